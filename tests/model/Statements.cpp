#include "tests/model/Statements.h"

#include <random>

namespace clb::model {
namespace {

/// Random draws that are the same on every system. Those of the standard library's distributions
/// are not.
class Dice {
public:
    explicit Dice(int seed) : engine_(static_cast<std::mt19937::result_type>(seed)) {}
    int Below(int limit) { return static_cast<int>(engine_() % static_cast<unsigned>(limit)); }
    template <class T>
    const T& Of(const std::vector<T>& all)
    {
        return all[static_cast<std::size_t>(Below(static_cast<int>(all.size())))];
    }

private:
    std::mt19937 engine_;
};

using Meant = std::pair<std::string, std::string>;

const std::vector<std::string> kNames = {
    "Grocer",
    "O'Neil's",
    "",
    "Rent",
    std::string(20, 'n') + "\xC3\xA4\xC3\xB6\xC3\xBC of the long names",
    std::string("B\xC3\xA4") + "cker"};
const std::vector<std::string> kMemos = {
    "", "card 7", "it's due", "a memo that is longer than the fifty characters of it", "cash"};
const std::vector<std::string> kCategories = {
    "(none)", "Food", "Kid's", "Travel", "food", "", std::string(51, 'c')};

}  // namespace

Statement Statement::Markup(int seed)
{
    static const std::vector<std::string> accounts = {"1001", "4711", "900", "O'Hara 7",
                                                      "D-1",  "C-1",  "900"};
    static const std::vector<std::string> ids = {"F1", "F2", "F3", "F4", "F5", "F6",
                                                 "F7", "F8", "",   "F1", "F2", "F'9"};
    static const std::vector<Meant> dates = {
        {"20060301", "2006-03-01"}, {"20060305120000", "2006-03-05"}, {"20060228", "2006-02-28"},
        {"20051231", "2005-12-31"}, {"20060401", "2006-04-01"},       {"20060315", "2006-03-15"}};
    static const std::vector<Meant> amounts = {{"-45.00", "-45"},
                                               {"12.5", "12.5"},
                                               {"1,234.56", "1234.56"},
                                               {"-0.01", "-0.01"},
                                               {"100", "100"}};
    Dice dice(seed);
    Statement statement;
    statement.account = dice.Of(accounts);
    statement.bareLines = dice.Below(5) == 0;
    for (int count = dice.Below(5); count > 0; --count) {
        StatementRecord entry;
        entry.fitid = dice.Of(ids);
        entry.date = dice.Below(40) == 0 ? Meant{"20061301", ""} : dice.Of(dates);
        entry.amount = dice.Below(40) == 0 ? Meant{"12x", ""} : dice.Of(amounts);
        entry.name = dice.Of(kNames);
        entry.memo = dice.Of(kMemos);
        if (dice.Below(4) == 0)
            entry.check = std::to_string(1040 + dice.Below(3));
        statement.entries.push_back(entry);
    }
    return statement;
}

Statement Statement::Records(int seed)
{
    static const std::vector<Meant> dates = {{"3/5'06", "2006-03-05"},
                                             {"03/15/2006", "2006-03-15"},
                                             {"2/28/06", "2006-02-28"},
                                             {"12-31-05", "2005-12-31"},
                                             {"4/ 1'06", "2006-04-01"}};
    static const std::vector<Meant> amounts = {
        {"-45.00", "-45"}, {"12.5", "12.5"}, {"1,234.56", "1234.56"}, {"much", ""}, {"100", "100"}};
    static const std::vector<std::string> checks = {"", "", "", "0", "1042", "ATM", "7'1"};
    Dice dice(seed);
    Statement statement;
    statement.records = true;
    statement.bareLines = dice.Below(5) == 0;
    for (int count = dice.Below(3); count > 0; --count) {
        StatementCategory line{dice.Of(std::vector<std::string>{"Living", "Kids'", "Fun"}),
                               dice.Of(std::vector<std::string>{"Food", "Kid's", "Cinema"}),
                               {}};
        for (int sums = dice.Below(3); sums > 0; --sums)
            line.amounts.push_back(dice.Of(std::vector<std::string>{"200", "50.25"}));
        statement.categories.push_back(line);
    }
    for (int count = dice.Below(4); count > 0; --count) {
        StatementRecord entry;
        entry.hasDate = dice.Below(12) != 0;
        entry.date = dice.Below(30) == 0 ? Meant{"15/15'06", ""} : dice.Of(dates);
        entry.amount = dice.Of(amounts);
        entry.name = dice.Of(kNames);
        entry.memo = dice.Of(kMemos);
        entry.check = dice.Of(checks);
        entry.category = dice.Of(kCategories);
        statement.entries.push_back(entry);
        if (dice.Below(5) == 0)
            statement.entries.push_back(entry);
    }
    return statement;
}

std::string Statement::Text() const
{
    std::string text;
    const std::string end = bareLines ? "\n" : "\r\n";
    const auto line = [&text, &end](const std::string& one) { text += one + end; };
    if (!records) {
        line("OFXHEADER:100");
        line("DATA:OFXSGML");
        line("VERSION:102");
        line("");
        line("<OFX><ACCTID>" + account);
        for (const StatementRecord& entry : entries) {
            line("<STMTTRN><TRNTYPE>" + std::string(entry.check.empty() ? "DEBIT" : "CHECK"));
            line("<DTPOSTED>" + entry.date.first);
            line("<TRNAMT>" + entry.amount.first);
            line("<FITID>" + entry.fitid);
            if (!entry.check.empty())
                line("<CHECKNUM>" + entry.check);
            line("<NAME>" + entry.name + "<MEMO>" + entry.memo);
            line("</STMTTRN>");
        }
        line("</OFX>");
        return text;
    }
    line("!Type:Cat");
    for (const StatementCategory& category : categories) {
        line("N" + category.group + ":" + category.category);
        for (const std::string& amount : category.amounts)
            line("B" + amount);
        line("^");
    }
    line("!Type:Bank");
    for (const StatementRecord& entry : entries) {
        if (entry.hasDate)
            line("D" + entry.date.first);
        line("T" + entry.amount.first);
        line("N" + entry.check);
        line("P" + entry.name);
        line("M" + entry.memo);
        if (entry.category != "(none)")
            line("L" + entry.category);
        line("^");
    }
    return text;
}

}  // namespace clb::model
