// Books with many rows, for tests of imports.
#pragma once
#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "import/modImport.h"
#include "tests/support/Books.h"
#include "tests/support/FakeImportHost.h"

namespace clb {

/// Books in which every table has rows that an import must not change, and an import command whose
/// questions are answered: QIF files go into the bank account "1".
class CrowdedBooks : public Books {
public:
    CrowdedBooks()
    {
        const char* types[] = {"Bank", "Cash", "Credit Card", "Investment", "Loan"};
        AddAccount("1", "Bank", "Checking");
        for (int n = 0; n < 5; ++n)
            AddAccount("n" + std::to_string(n), types[n], "Neighbour's " + std::to_string(n));
        Execute(
            "INSERT INTO Trans (Sequence, AccountID, Amount, FITID, PayeeName, PostDate) "
            "VALUES (1, 'n0', 10, 'H1', 'fare', #2006-01-01#)");
        Execute("INSERT INTO Trans (Sequence, AccountID, Amount) VALUES (2, 'n1', -3.5)");
        Execute("INSERT INTO Investment (AccountID, StockSymbol, Total) VALUES ('n3', 'X', 9)");
        Execute("INSERT INTO Loan (AccountID, OriginalAmount, PaidAmount) VALUES ('n4', 9, 4)");
        Execute(
            "INSERT INTO Budget (Year, Period, Category, CategoryGroup, Amount) "
            "VALUES (2006, 3, 'Food', 'Home', 300)");
        host.fallback = "1";
        RebalanceNeighbours();
    }

    /// The import command on a file of this name and content. The name is free for the repair of
    /// line ends each time.
    void Import(const std::string& name, std::string_view bytes)
    {
        std::filesystem::remove(statements_.Path(name + ".org"));
        ImportPath(statements_.Write(name, bytes));
    }
    void ImportPath(const std::string& path)
    {
        ++clock.ticks;
        host.file = path;
        host.events.clear();
        messages.boxes.clear();
        import.ImportFile();
    }
    /// Returns the rows that imports added, oldest first.
    std::vector<std::string> Imported()
    {
        return Rows(
            "SELECT AccountID, FITID, PostDate, Amount, Description, PayeeName, CheckID, "
            "Category FROM Trans WHERE Sequence > 2 ORDER BY Sequence");
    }
    void ForgetImported() { Execute("DELETE FROM Trans WHERE Sequence > 2"); }

    /// Returns every row of every table as a line, except the balances of accounts that may get
    /// rows.
    std::vector<std::string> Everything()
    {
        std::vector<std::string> lines;
        for (const char* table : {"Trans", "Budget", "Investment", "Loan"})
            Append(lines, table, std::string("SELECT * FROM ") + table);
        Append(lines, "Account",
               "SELECT Sequence, AccountID, Description, Type, OpeningBalance, BudgetInclude "
               "FROM Account");
        Append(lines, "Balance",
               "SELECT AccountID, CurrentBalance FROM Account WHERE AccountID LIKE 'n%'");
        Append(lines, "Version", "SELECT * FROM _SchemaVersion");
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    FakeImportHost host;
    modImport import{window.Data(), window.View(), host, messages, clock};

private:
    void RebalanceNeighbours()
    {
        Execute("UPDATE Account SET CurrentBalance = 10 WHERE AccountID = 'n0'");
        Execute("UPDATE Account SET CurrentBalance = -3.5 WHERE AccountID = 'n1'");
        Execute("UPDATE Account SET CurrentBalance = 9 WHERE AccountID = 'n3'");
        Execute("UPDATE Account SET CurrentBalance = 5 WHERE AccountID = 'n4'");
    }
    void Append(std::vector<std::string>& lines, const std::string& name, const std::string& select)
    {
        for (const std::string& row : Rows(select))
            lines.push_back(name + "|" + row);
    }

    TempFolder statements_{TempFolder::Memory()};
};

/// Returns the lines that only the first of two sorted lists has.
inline std::vector<std::string> OnlyIn(const std::vector<std::string>& first,
                                       const std::vector<std::string>& second)
{
    std::vector<std::string> only;
    std::set_difference(first.begin(), first.end(), second.begin(), second.end(),
                        std::back_inserter(only));
    return only;
}

}  // namespace clb
