-- The delivered empty database, schema version 2. Column types are those of the program's SQL
-- dialect; an INTEGER PRIMARY KEY AUTOINCREMENT is its COUNTER.

CREATE TABLE Account (
    AccountID TEXT,
    Description TEXT,
    Type TEXT,
    OpeningBalance MONEY DEFAULT 0,
    CurrentBalance MONEY DEFAULT 0,
    Sequence INTEGER PRIMARY KEY AUTOINCREMENT,
    BudgetInclude YESNO NOT NULL DEFAULT 1
);

CREATE TABLE Trans (
    Sequence LONG DEFAULT 0,
    SubSequence LONG DEFAULT 0,
    AccountID TEXT,
    PostDate DATETIME,
    Description TEXT,
    Amount MONEY DEFAULT 0,
    CheckID TEXT,
    Category TEXT(50),
    PayeeName TEXT,
    Year LONG DEFAULT 0,
    Period LONG DEFAULT 0,
    FITID TEXT
);

CREATE TABLE Budget (
    Sequence INTEGER PRIMARY KEY AUTOINCREMENT,
    Year LONG DEFAULT 0,
    Period LONG DEFAULT 0,
    CategoryGroup TEXT(50),
    Category TEXT(50),
    Amount MONEY DEFAULT 0
);

CREATE TABLE Investment (
    StockSymbol TEXT,
    StockName TEXT,
    PurchaseDate DATETIME,
    Quantity DOUBLE,
    PurchasePrice MONEY DEFAULT 0,
    LastPrice MONEY DEFAULT 0,
    Total MONEY DEFAULT 0,
    AccountID TEXT,
    Sequence INTEGER PRIMARY KEY AUTOINCREMENT
);

CREATE TABLE Loan (
    Description TEXT,
    OriginalAmount MONEY DEFAULT 0,
    PaidAmount MONEY DEFAULT 0,
    InterestRate SINGLE,
    AccountID TEXT,
    Sequence INTEGER PRIMARY KEY AUTOINCREMENT
);

-- No rows: the version is the name of the one column.
CREATE TABLE _SchemaVersion ("2" LONG);

CREATE INDEX AccountByID ON Account (AccountID);
-- Registers by month in the order they are shown, and the sums up to a month without touching the
-- table. Without the date the planner would walk the whole account in order of date.
CREATE INDEX TransByAccountMonth ON Trans (AccountID, Year, Period, PostDate, Amount);
-- Pieces of a transaction, and the largest number.
CREATE INDEX TransBySequence ON Trans (Sequence, SubSequence);
-- What was spent on a category in a month, without touching the table.
CREATE INDEX TransByMonthCategory ON Trans (Year, Period, Category, AccountID, Amount);
-- Whether a record of a statement is already there.
CREATE INDEX TransByAccountDate ON Trans (AccountID, PostDate, Amount);
CREATE INDEX BudgetByMonth ON Budget (Year, Period, Category);
-- The lines of a group in a month, and what was budgeted. With the category in it the planner would
-- begin a group's sum with all transactions of the month.
CREATE INDEX BudgetByMonthGroup ON Budget (Year, Period, CategoryGroup, Amount);
CREATE INDEX InvestmentByAccount ON Investment (AccountID);
CREATE INDEX LoanByAccount ON Loan (AccountID);

-- Rows follow the number of their account, unless another account still has the old one.
CREATE TRIGGER RowsFollowAccount AFTER UPDATE OF AccountID ON Account
WHEN OLD.AccountID <> NEW.AccountID
    AND NOT EXISTS (SELECT 1 FROM Account WHERE AccountID = OLD.AccountID)
BEGIN
    UPDATE Trans SET AccountID = NEW.AccountID WHERE AccountID = OLD.AccountID;
    UPDATE Investment SET AccountID = NEW.AccountID WHERE AccountID = OLD.AccountID;
    UPDATE Loan SET AccountID = NEW.AccountID WHERE AccountID = OLD.AccountID;
END;
