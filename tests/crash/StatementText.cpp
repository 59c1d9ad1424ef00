#include "tests/crash/StatementText.h"

#include "tests/crash/SessionScript.h"

namespace clb {
namespace {

std::string Upto(std::mt19937& random, unsigned limit)
{
    return std::to_string(random() % limit);
}

std::string TwoDigits(unsigned long number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string Amount(std::mt19937& random)
{
    const std::string sign = random() % 3 == 0 ? "" : "-";
    return sign + Upto(random, 5000) + "." + TwoDigits(random() % 100);
}

}  // namespace

std::string OfxText(const std::string& account, std::mt19937& random, int transactions)
{
    std::string text =
        "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n\r\n<OFX>\r\n<ACCTID>" + account + "\r\n";
    for (int number = 0; number < transactions; ++number)
        text += "<STMTTRN><TRNTYPE>DEBIT<DTPOSTED>2006" + TwoDigits(random() % 4 + 1) +
                TwoDigits(random() % 28 + 1) + "<TRNAMT>" + Amount(random) + "<FITID>" +
                Upto(random, 100000) + "<NAME>Shop " + Upto(random, 50) + "<MEMO>number " +
                std::to_string(number) + "</STMTTRN>\r\n";
    return text + "</OFX>\r\n";
}

std::string QifText(std::mt19937& random, int transactions)
{
    std::string text = "!Type:Bank\r\n";
    for (int number = 0; number < transactions; ++number)
        text += "D" + std::to_string(random() % 4 + 1) + "/" + std::to_string(random() % 28 + 1) +
                "/2006\r\nT" + Amount(random) + "\r\nPShop " + Upto(random, 50) + "\r\nMnumber " +
                std::to_string(number) + "\r\nLKind " + Upto(random, 8) + "\r\n^\r\n";
    text += "!Type:Cat\r\n";
    for (int number = 0; number < 3; ++number)
        text += "NGroup:Listed " + Upto(random, 20) + "\r\nB" + Upto(random, 400) + "\r\n^\r\n";
    return text;
}

std::vector<std::string> SessionScript::FirstStatements()
{
    std::vector<std::string> statements;
    static const char* const accounts[] = {
        "'B-1', 'Checking', 'Bank', 100", "'C-1', 'Wallet', 'Cash', 0",
        "'V-1', 'Visa', 'Credit Card', (-20.5)", "'I-1', 'Broker', 'Investment', 0",
        "'L-1', 'House', 'Loan', 0"};
    for (const char* account : accounts)
        statements.push_back(
            std::string("INSERT INTO Account (AccountID, Description, Type, OpeningBalance) "
                        "VALUES (") +
            account + ")");
    static const char* const registers[] = {"B-1", "C-1", "V-1"};
    static const char* const categories[] = {"Food", "Rent", "Travel", "Wages", "(none)"};
    for (int number = 0; number < 90; ++number) {
        const std::string month = std::to_string(2 + number % 3);
        statements.push_back(
            "INSERT INTO Trans (Sequence, AccountID, PostDate, Description, Amount, Category, Year,"
            " Period, PayeeName, FITID, CheckID) VALUES (" +
            std::to_string(number + 1) + ", '" + registers[number / 3 % 3] + "', #2006-0" + month +
            "-" + TwoDigits(static_cast<unsigned>(number) % 28 + 1) + "#, 'Shop " +
            std::to_string(number) + "', (-" + std::to_string(number * 7 % 50) + ".0" +
            std::to_string(number % 10) + "), '" + categories[number % 5] + "', 2006, " + month +
            ", '" + std::string(static_cast<std::size_t>(number % 7) * 10, 'n') + "', '', '')");
    }
    for (int number = 0; number < 15; ++number)
        statements.push_back(
            "INSERT INTO Budget (Year, Period, Category, CategoryGroup, Amount) VALUES (2006, " +
            std::to_string(2 + number / 5) + ", '" + categories[number % 5] + "', '" +
            (number % 2 == 0 ? "Household" : "(none)") + "', " + std::to_string(number * 10) + ")");
    for (const char* symbol : {"ACME", "BOLT", "CORE"})
        statements.push_back(
            std::string("INSERT INTO Investment (StockSymbol, StockName, PurchaseDate, Quantity, "
                        "PurchasePrice, LastPrice, Total, AccountID) VALUES ('") +
            symbol + "', 'Shares', #2005-01-31#, 10.125, 7.25, 8, 81, 'I-1')");
    statements.push_back(
        "INSERT INTO Loan (Description, OriginalAmount, PaidAmount, InterestRate, AccountID) "
        "VALUES ('Mortgage', 100000, 2500.25, 4.75, 'L-1')");
    return statements;
}

std::vector<std::string> SessionScript::StatementsBackTo(int version)
{
    std::vector<std::string> statements = {"DROP TABLE _SchemaVersion",
                                           "ALTER TABLE Account DROP COLUMN BudgetInclude",
                                           "ALTER TABLE Loan ALTER COLUMN InterestRate DOUBLE"};
    if (version == 1)
        statements.emplace_back("CREATE TABLE _SchemaVersion (1 LONG)");
    return statements;
}

}  // namespace clb
