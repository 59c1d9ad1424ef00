// A fixture: the program under automation and, beside it, clb runs that change the same book.
#pragma once
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/scenarios/Scenario.h"
#include "tests/stress/ClbProcess.h"
#include "tests/stress/RawBook.h"

namespace clb {

/// Shows the register of the account Checking (B-1) in March 2006. It has the transactions 3, 2
/// and 1 in this order, of -30, -20 and -10.
class TwoPrograms : public Scenario {
protected:
    /// `further` are options of the program under automation.
    explicit TwoPrograms(const std::vector<std::string>& further = {})
    {
        options = further;
        AddAccount("B-1", "Bank", "Checking");
        AddAccount("B-2", "Bank", "Savings");
        for (const char* amount : {"-10", "-20", "-30"})
            AddTransaction("B-1", "2006-3", amount, "Food");
        AddBudget("2006-3", "Food", "100");
        Sql("UPDATE Account SET CurrentBalance = -60 WHERE AccountID = 'B-1'");
        ShowAll();
        Click("Checking");
        Events();
    }

    /// Runs clb on the book to its end; it must go well. Returns what it printed.
    std::string Other(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin() + 1, {"--home", folder.Path()});
        ClbProcess process(arguments);
        EXPECT_EQ(process.Wait(), 0) << process.Story();
        return process.Out();
    }
    /// Another program runs one statement.
    void OtherSql(const std::string& statement)
    {
        ClbProcess process({"sql", folder.Path(), statement});
        EXPECT_EQ(process.Wait(), 0) << process.Story();
    }
    /// Another program adds a transaction of Checking in March.
    void OtherAdds(int number, const std::string& amount)
    {
        OtherSql(
            "INSERT INTO Trans (Sequence, AccountID, PostDate, Description, Amount, Category, "
            "Year, Period, FITID) VALUES (" +
            std::to_string(number) + ", 'B-1', #2006-03-15#, 'Other', " + amount +
            ", 'Food', 2006, 3, 'F" + std::to_string(number) + "')");
    }
    std::string Statement(const std::string& name, const std::string& fitid)
    {
        return folder.Write(name,
                            "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n<OFX>\r\n"
                            "<ACCTID>B-1\r\n<STMTTRN><DTPOSTED>20060305<TRNAMT>-7<FITID>" +
                                fitid + "<NAME>Imported</STMTTRN>\r\n");
    }

    /// Numbers and amounts of the stored transactions, read past the program: "1:-10 2:-20".
    std::string Stored()
    {
        std::string text;
        for (const std::string& row : RawBook(folder.Path())
                                          .Rows("SELECT Sequence || ':' || (Amount / 10000) FROM "
                                                "Trans ORDER BY Sequence, SubSequence"))
            text += (text.empty() ? "" : " ") + row;
        return text;
    }
    std::string StoredCell(const std::string& field, int number)
    {
        return RawBook(folder.Path())
            .One("SELECT " + field + " FROM Trans WHERE Sequence = " + std::to_string(number));
    }
    std::string StoredBalance()
    {
        return RawBook(folder.Path())
            .One("SELECT CurrentBalance / 10000 FROM Account WHERE Description = 'Checking'");
    }
    /// The reply to a request that may be refused.
    Json Try(const Json& request) { return Program().Ask(request); }
    Json TryMenu(const std::string& item) { return Try({{"do", "menu"}, {"item", item}}); }
    bool Dirty() { return Grid()["dirty"] == true; }
};

}  // namespace clb
