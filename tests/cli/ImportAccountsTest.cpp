// The accounts that clb import chooses and makes.

#include <gmock/gmock.h>

#include "tests/cli/CommandFixture.h"

namespace clb {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class ImportAccountsTest : public CommandFixture {
protected:
    ImportAccountsTest() { Run("new " + Books()); }

    static std::string Table(const std::string& rows)
    {
        return "Date,Text,Currency,Amount\n" + rows;
    }
    /// A statement of these accounts with one row each.
    static std::string Ofx(const std::vector<std::string>& accounts, const std::string& currency)
    {
        std::string text = "<OFX><BANKMSGSRSV1>";
        for (const std::string& account : accounts)
            text += "<STMTTRNRS><STMTRS><CURDEF>" + currency + "<BANKACCTFROM><ACCTID>" + account +
                    "</BANKACCTFROM><BANKTRANLIST><STMTTRN><DTPOSTED>20260413<TRNAMT>-1<FITID>1"
                    "<NAME>A</STMTTRN></BANKTRANLIST></STMTRS></STMTTRNRS>";
        return text + "</BANKMSGSRSV1></OFX>";
    }
    int Import(const std::string& name, const std::string& text, const std::string& options)
    {
        folder.Write(name, text);
        return Run("import '" + folder.Path(name) + "' " + options + Home());
    }
    std::string Accounts()
    {
        return Sql("SELECT AccountID, Description, CurrentBalance FROM Account ORDER BY Sequence");
    }
    std::string History()
    {
        EXPECT_EQ(Run("history" + Home()), 0);
        return Out();
    }
};

// Symptom: "G is kept in EUR, but the statement is in USD".
TEST_F(ImportAccountsTest, CurrenciesOfAFileFindTheirAccountsInAnyOrder)
{
    const std::string april =
        "2026-04-15,C,EUR,-3.00\n2026-04-14,B,USD,-2.00\n2026-04-13,A,EUR,-1.00\n";
    EXPECT_EQ(Import("april.csv", Table(april), "--create G"), 0);

    EXPECT_EQ(Import("longer.csv", Table("2026-04-16,D,USD,-4.00\n" + april), "--create G"), 0);
    EXPECT_EQ(Out(), "Imported 1 transaction\n");
    EXPECT_EQ(Import("dollars.csv", Table("2026-04-17,E,USD,-5.00\n"), "--create G"), 0);
    EXPECT_EQ(Import("francs.csv", Table("2026-04-18,F,CHF,-6.00\n" + april), "--map G"), 1);
    EXPECT_EQ(Import("francs.csv", Table("2026-04-18,F,CHF,-6.00\n" + april), "--create G"), 0);

    EXPECT_EQ(Accounts(), R"x([["New Account","G","-4"],["New Account-USD","G (2)","-11"],)x"
                          R"x(["New Account-CHF","G (3)","-6"]])x");
    EXPECT_EQ(Import("pounds.csv", Table("2026-04-19,G,GBP,-7.00\n"), "--create G"), 1);
    EXPECT_THAT(Err(), HasSubstr("The account 'G' is kept in EUR, but the statement is in GBP."));
}

// Symptom: the account kept the number of the refused file, with a step in the history.
TEST_F(ImportAccountsTest, AStatementInAnotherCurrencyChangesNothing)
{
    EXPECT_EQ(Import("a.csv", Table("2026-04-13,A,EUR,-1.00\n"), "--create G"), 0);
    const std::string accounts = Accounts();
    const std::string history = History();

    EXPECT_EQ(Import("usd.ofx", Ofx({"777"}, "USD"), "--map G"), 1);

    EXPECT_THAT(Err(), HasSubstr("The account 'G' is kept in EUR, but the statement is in USD. "
                                 "Nothing of it was imported."));
    EXPECT_EQ(Accounts(), accounts);
    EXPECT_EQ(History(), history);
    EXPECT_EQ(Import("eur.ofx", Ofx({"778"}, "EUR"), "--map G"), 0);
}

TEST_F(ImportAccountsTest, SeveralUnknownAccountsAreNotMappedToOne)
{
    EXPECT_EQ(Import("a.csv", "Date,Text,Amount\n2026-04-13,A,-1.00\n", "--create G"), 0);
    const std::string accounts = Accounts();
    const std::string history = History();

    EXPECT_EQ(Import("two.qfx", Ofx({"1", "2"}, "USD"), "--map G"), 1);

    EXPECT_THAT(Err(), HasSubstr("The file has 2 accounts that are not known, and --map names one "
                                 "only."));
    EXPECT_THAT(Err(), Not(HasSubstr("--map ACCOUNT")));
    EXPECT_EQ(Accounts(), accounts);
    EXPECT_EQ(History(), history);
}

/// An account that has a clash comes after one that would be made.
TEST_F(ImportAccountsTest, NoAccountOfARefusedStatementIsMade)
{
    EXPECT_EQ(Import("a.ofx", Ofx({"2"}, "EUR"), "--create G"), 0);
    const std::string accounts = Accounts();

    EXPECT_EQ(Import("two.ofx", Ofx({"1", "2"}, "USD"), "--create H"), 1);

    EXPECT_EQ(Accounts(), accounts);
}

// Symptom: an empty account was made, or an account was renamed.
TEST_F(ImportAccountsTest, AFileWithoutRowsMakesNoAccount)
{
    const std::string none =
        "<OFX><STMTRS><CURDEF>EUR<BANKACCTFROM><ACCTID>7</BANKACCTFROM>"
        "<BANKTRANLIST></BANKTRANLIST><LEDGERBAL><BALAMT>5</LEDGERBAL>"
        "</STMTRS></OFX>";
    EXPECT_EQ(Import("none.ofx", none, "--create G"), 0);
    EXPECT_EQ(Out(), "Imported 0 transactions\n");
    EXPECT_THAT(Err(), HasSubstr("The file has no transactions. No account was made for it."));
    EXPECT_EQ(Accounts(), "[]");

    EXPECT_EQ(Import("one.ofx", Ofx({"7"}, "EUR"), "--create G"), 0);
    EXPECT_EQ(Import("none.ofx", none, "--create H --json"), 0);
    EXPECT_THAT(Out(), HasSubstr(R"x("account":"7","name":"G")x"));
}

// Symptom: they were listed as files of another kind, with exit code 0.
TEST_F(ImportAccountsTest, WhatIsNamedAsAStatementInAnArchiveMustBeOne)
{
    folder.Write("a.ofx", Ofx({"7"}, "EUR"));
    folder.Write("bad.ofx", "<html><body>Please log in</body></html>");
    folder.Write("readme.txt", "Nothing to see here.");
    const auto pack = [this](const std::string& name, const std::string& files) {
        return std::system(("cd '" + folder.Path() + "' && tar czf " + name + " " + files).c_str());
    };
    ASSERT_EQ(pack("inner.tgz", "a.ofx"), 0);
    ASSERT_EQ(pack("good.tgz", "a.ofx readme.txt"), 0);
    ASSERT_EQ(pack("bad.tgz", "a.ofx bad.ofx"), 0);
    ASSERT_EQ(pack("outer.tgz", "a.ofx inner.tgz"), 0);
    const std::string options = " --create G" + Home();

    EXPECT_EQ(Run("import '" + folder.Path("good.tgz") + "'" + options), 0) << Err();
    EXPECT_EQ(Run("import '" + folder.Path("bad.tgz") + "'" + options), 1);
    EXPECT_THAT(Out(), HasSubstr("The file is a web page (HTML)."));
    EXPECT_EQ(Run("import '" + folder.Path("outer.tgz") + "'" + options), 1);
    EXPECT_THAT(Out(), HasSubstr("An archive inside an archive is not unpacked."));
}

}  // namespace
}  // namespace clb
