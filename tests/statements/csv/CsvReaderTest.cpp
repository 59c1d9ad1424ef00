#include <gtest/gtest.h>

#include "statements/csv/CsvReader.h"
#include "tests/statements/csv/ReadTable.h"

namespace clb {
namespace {

std::string Reasons(const KeptStatement& kept)
{
    std::string reasons;
    for (const LeftOutPart& part : kept.leftOut)
        reasons += std::to_string(part.line) + " " + ToText(part.reason) + "\n";
    return reasons;
}

TEST(CsvReaderTest, NamesTextsAndIdentifiersAreTaken)
{
    const KeptStatement kept = Kept(
        "Booking date;Value date;Payee;Purpose;Reference;Amount;Currency;Category;Check number;"
        "Transaction ID;Balance\n"
        "01.03.2021;02.03.2021;Shop;Food;RF1;-5,00;EUR;Groceries;;TX000001;95,00\n"
        "13.03.2021;13.03.2021;;Cheque;;-10,00;EUR;;0101;TX000002;85,00\n");

    ASSERT_EQ(kept.accounts.size(), 1U);
    ASSERT_EQ(kept.accounts[0].rows.size(), 2U);
    EXPECT_EQ(kept.accounts[0].account.currency, "EUR");
    const StatementRow& row = kept.accounts[0].rows[0];
    EXPECT_EQ(row.line, 2U);
    EXPECT_EQ(row.date.ToIso(), "2021-03-01");
    EXPECT_EQ(row.valueDate->ToIso(), "2021-03-02");
    EXPECT_EQ(row.name, "Shop");
    EXPECT_EQ(row.text, "Food RF1");
    EXPECT_EQ(row.category, "Groceries");
    EXPECT_EQ(row.identifier, "TX000001");
    EXPECT_EQ(row.balance->ToText(), "95");
    EXPECT_EQ(kept.accounts[0].rows[1].name, "Cheque");
    EXPECT_EQ(kept.accounts[0].rows[1].checkNumber, "0101");
    EXPECT_EQ(kept.accounts[0].balances.opening->ToText(), "100");
    EXPECT_EQ(kept.accounts[0].balances.closing->ToText(), "85");
    EXPECT_EQ(kept.accounts[0].balances.closingDate->ToIso(), "2021-03-13");
}

TEST(CsvReaderTest, AnIdentifierThatStandsTwiceIsNone)
{
    const KeptStatement kept = Kept(
        "Date,Text,Amount,Transaction "
        "ID\n2021-03-01,a,-1.00,AB123456\n2021-03-02,b,-2.00,AB123456\n"
        "2021-03-03,c,3.00,AB123457\n");
    EXPECT_EQ(kept.accounts[0].rows[0].identifier, "");
    EXPECT_EQ(kept.accounts[0].rows[1].identifier, "");
    EXPECT_EQ(kept.accounts[0].rows[2].identifier, "AB123457");
}

TEST(CsvReaderTest, RunningNumbersAreNoIdentifiers)
{
    const KeptStatement kept =
        Kept("ID,Date,Text,Amount\n1,2021-03-01,a,-1.00\n2,2021-03-02,b,2.00\n");
    EXPECT_EQ(kept.accounts[0].rows[0].identifier, "");
}

TEST(CsvReaderTest, ANewestFirstFileHasItsOpeningBalanceAtTheEnd)
{
    const KeptStatement kept =
        Kept("Date,Text,Amount,Balance\n2021-03-13,b,-10.00,85.00\n2021-03-01,a,-5.00,95.00\n");
    EXPECT_EQ(kept.accounts[0].balances.opening->ToText(), "100");
    EXPECT_EQ(kept.accounts[0].balances.closing->ToText(), "85");
}

TEST(CsvReaderTest, BalancesThatDoNotFollowAreNotReported)
{
    const KeptStatement kept = Kept(
        "Date,Text,Amount,Balance\n2021-03-01,a,-5.00,95.00\n2021-03-02,b,-1.00,94.00\n"
        "2021-03-03,c,-2.00,92.00\n2021-03-04,d,-1.00,50.00\n2021-03-05,e,1.00,51.00\n");
    EXPECT_EQ(kept.accounts[0].rows.size(), 5U);
    EXPECT_FALSE(kept.accounts[0].balances.opening);
}

/// Lines whose balances do not follow, each as "line: before amount after".
std::string Breaks(std::string_view text)
{
    std::string breaks;
    for (const auto& account : Kept(text).accounts)
        for (const BalanceBreak& at : account.balances.breaks)
            breaks += std::to_string(at.line) + ": " + at.before.ToText() + " " +
                      at.amount.ToText() + " " + at.after.ToText() + "\n";
    return breaks;
}

TEST(CsvReaderTest, ARowThatContradictsTheBalancesIsNamed)
{
    EXPECT_EQ(Breaks("Date,Text,Amount,Balance\n2026-04-13,A,-10.00,90.00\n"
                     "2026-04-14,B,-9.00,81.00\n2026-04-15,C,-50.00,76.00\n"
                     "2026-04-16,D,-5.00,71.00\n2026-04-17,E,-5.00,66.00\n"),
              "4: 81 -50 76\n");
    EXPECT_EQ(Breaks("Date,Text,Amount,Balance\n2026-04-17,E,-5.00,66.00\n"
                     "2026-04-16,D,-5.00,71.00\n2026-04-15,C,-50.00,76.00\n"
                     "2026-04-14,B,-9.00,81.00\n2026-04-13,A,-10.00,90.00\n"),
              "4: 81 -50 76\n");
    EXPECT_EQ(Breaks("Date,Text,Amount,Balance\n2026-04-13,A,-10.00,90.00\n"
                     "2026-04-14,B,-9.00,81.00\n2026-04-15,C,-5.00,76.00\n"
                     "2026-04-16,D,-5.00,17.00\n2026-04-17,E,-5.00,12.00\n"),
              "5: 76 -5 17\n");
    EXPECT_EQ(Breaks("Date,Text,Amount,Balance\n2026-04-13,A,-10.00,90.00\n"
                     "2026-04-14,B,-9.00,81.00\n"),
              "");
}

TEST(CsvReaderTest, ABalanceOnTheLastRowOfADayIsChecked)
{
    const KeptStatement kept = Kept(
        "Date,Text,Amount,Balance\n2021-03-01,a,-5.00,\n2021-03-01,b,-1.00,94.00\n"
        "2021-03-02,c,-2.00,\n2021-03-02,d,-1.00,91.00\n2021-03-03,e,1.00,92.00\n");
    EXPECT_EQ(kept.accounts[0].balances.opening->ToText(), "100");
    EXPECT_EQ(kept.accounts[0].balances.closing->ToText(), "92");
}

TEST(CsvReaderTest, ABalanceSettlesInvertedSigns)
{
    EXPECT_EQ(Rows("Date,Text,Amount,Balance\n2021-03-01,a,5.00,95.00\n2021-03-02,b,-10.00,105.00\n"
                   "2021-03-03,c,2.00,103.00\n"),
              "2021-03-01 -5\n2021-03-02 10\n2021-03-03 -2\n");
}

TEST(CsvReaderTest, PendingAndDeclinedRowsAreLeftOutAndListed)
{
    const KeptStatement kept = Kept(
        "Date,Description,Amount,Status\n2021-03-01,a,-5.00,Completed\n2021-03-02,b,-6.00,Pending\n"
        "2021-03-03,c,7.00,Declined\n2021-03-04,d,8.00,Completed\n");
    EXPECT_EQ(kept.accounts[0].rows.size(), 2U);
    EXPECT_EQ(Reasons(kept), "3 it is not booked yet\n4 it is no transaction\n");
}

TEST(CsvReaderTest, RowsThatAreNotBookedAreKnownInManyLanguages)
{
    for (const char* state :
         {"Venter",     "Autorizzato",      "In behandeling",     "Reserviert",
          "offen",      "Vorgemerkt",       "En attente",         "Pendiente",
          "Reserverat", "Oczekująca",       "Čeká na zpracování", "В процессе",
          "未入账",     "処理中",           "Beklemede",          "Függőben",
          "ממתין",      "Em processamento", "Käsittelyssä",       "Ikke bokført"})
        EXPECT_EQ(Reasons(Kept(std::string("Date;Text;Amount;Status\n2026-04-13;A;-10,00;\n"
                                           "2026-04-14;B;-20,00;") +
                               state + "\n")),
                  "3 it is not booked yet\n")
            << state;
}

TEST(CsvReaderTest, AColumnOfStatesNeedsNoName)
{
    EXPECT_EQ(Reasons(Kept("Datum;Text;Betrag;Bemerkung\n13.04.2026;A;-10,00;gebucht\n"
                           "14.04.2026;B;-20,00;vorgemerkt\n")),
              "3 it is not booked yet\n");
    EXPECT_EQ(Reasons(Kept("Datum;Text;Betrag;Bemerkung\n13.04.2026;A;-10,00;Miete\n"
                           "14.04.2026;B;-20,00;vorgemerkt\n")),
              "");
}

TEST(CsvReaderTest, EveryLineThatIsNoRowIsListed)
{
    const KeptStatement kept = Kept(
        "Date;Text;Amount\n01.03.2021;a;-5,00\n31.02.2021;b;-6,00\n02.03.2021;c;six\n;d;-7,00\n"
        "just a note\n13.03.2021;e;8,00\nTotal;;-10,00\nNo invoice.\n");
    EXPECT_EQ(kept.accounts[0].rows.size(), 2U);
    EXPECT_EQ(Reasons(kept),
              "3 it has no date that can be read\n4 it has no amount that can be read exactly\n"
              "5 it is no transaction\n6 it is no transaction\n8 it is no transaction\n");
    EXPECT_EQ(kept.leftOut[0].text, "31.02.2021;b;-6,00");
}

TEST(CsvReaderTest, OnlyWhatIsOpenIsAsked)
{
    EXPECT_EQ(Asked("Date,Text,Amount\n01/02/2021,a,-1.00\n"), "dateOrder ");
    EXPECT_EQ(Asked("Datum;Text;Betrag\n13.02.2021;a;-1.234\n"), "decimal ");
    EXPECT_EQ(Asked("Date,Text,Amount\n2021-02-13,a,1.00\n2021-02-14,b,2.00\n"), "sign ");
    EXPECT_EQ(Asked("2021-02-13,a,1.00,5.00\n2021-02-14,b,2.00,9.00\n"), "columns sign ");
}

TEST(CsvReaderTest, AnswersSettleWhatIsOpen)
{
    StatementAnswers answers;
    answers.dateOrder = DateText::Order::MonthDayYear;
    EXPECT_EQ(Rows("Date,Text,Amount\n01/02/2021,a,-1.00\n", answers), "2021-01-02 -1\n");
    answers = {};
    answers.decimal = ',';
    EXPECT_EQ(Rows("Datum;Text;Betrag\n13.02.2021;a;-1.234\n", answers), "2021-02-13 -1234\n");
    answers = {};
    answers.inverted = true;
    EXPECT_EQ(Rows("Date,Text,Amount\n2021-02-13,a,1.00\n2021-02-14,b,2.00\n", answers),
              "2021-02-13 -1\n2021-02-14 -2\n");
}

TEST(CsvReaderTest, GivenColumnsThatCannotBeAreRefused)
{
    const std::string text = "Datum;Empfänger;Betrag\n13.04.2026;REWE;-23,45\n";
    StatementAnswers answers;
    answers.columns = "date=2,amount=3";
    EXPECT_THROW(Rows(text, answers), NotAStatement);
    answers.columns = "date=1,amount=3,in=3";
    EXPECT_THROW(Rows(text, answers), NotAStatement);
    answers.columns = "date=1,amount=3,in=,out=";
    EXPECT_EQ(Rows(text, answers), "2026-04-13 -23.45\n");
}

TEST(CsvReaderTest, ColumnsThatAreAskedAboutCanBeToldApart)
{
    const auto options = [](std::string_view text) {
        return ReadCsv(text)->Open({}).at(0).options;
    };
    EXPECT_EQ(options("13/04/2026,A,10.00,\n14/04/2026,B,,20.00\n"),
              (std::vector<std::string>{"3 + 4", "3"}));
    const auto equal = options(
        "Date,Text,Amount,Amount\n2026-04-13,a,-1.00,-2.00\n"
        "2026-04-14,b,-3.00,-4.00\n");
    EXPECT_EQ(equal, (std::vector<std::string>{"3: Amount", "4: Amount"}));
}

TEST(CsvReaderTest, ColumnsInAndOutMayNameACurrencyBySign)
{
    EXPECT_EQ(Rows("Data;Histórico;Docto.;Crédito (R$);Débito (R$);Saldo (R$);\n"
                   "31/03/26;SALDO ANTERIOR;;;;\"1.000,00\";\n"
                   "13/04/26;PADARIA;1;;\"-23,45\";\"976,55\";\n"
                   "14/04/26;TED;2;\"100,00\";;\"1.076,55\";\n"
                   ";;Total;\"100,00\";\"-23,45\";\"1.076,55\";\n"),
              "2026-04-13 -23.45\n2026-04-14 100\n");
}

TEST(CsvReaderTest, ARowThatOnlyStatesABalanceIsNoRow)
{
    EXPECT_EQ(Reasons(Kept("Date,Description,Amount,Running Bal.\n"
                           "03/01/2026,Beginning balance as of 03/01/2026,,\"1,000.00\"\n"
                           "03/15/2026,Coffee,-4.50,995.50\n04/13/2026,Check,-100.00,895.50\n")),
              "2 it is no transaction\n");
}

TEST(CsvReaderTest, ColumnsCanBeGivenByNameAndNumber)
{
    StatementAnswers answers;
    answers.columns = "date=1,amount=4-,text=2+3";
    const std::string text = "2021-02-13,a,b,1.00,5.00\n2021-02-14,c,d,2.00,9.00\n";
    EXPECT_EQ(Rows(text, answers), "2021-02-13 -1\n2021-02-14 -2\n");
    EXPECT_EQ(Kept(text, answers).accounts[0].rows[0].name, "a");
    EXPECT_EQ(Kept(text, answers).accounts[0].rows[0].text, "b");

    answers.columns = "date=when,in=plus,out=minus";
    EXPECT_EQ(Rows("when,what,minus,plus\n2021-02-13,a,1.00,\n2021-02-14,c,,2.00\n", answers),
              "2021-02-13 -1\n2021-02-14 2\n");

    answers.columns = "amount=nothing";
    EXPECT_THROW(Rows(text, answers), NotAStatement);
    answers.columns = "colour=1";
    EXPECT_THROW(Rows(text, answers), NotAStatement);
}

TEST(CsvReaderTest, AColumnIsMeantByItsNumberWhateverTheNamesAre)
{
    StatementAnswers answers;
    answers.columns = "date=#1,amount=#3,text=#2,balance=";
    const std::string text =
        "Date,\"3\",\"Amount, net=a+b\"\n2021-02-13,a,1.00\n2021-02-14,b,2.00\n";

    EXPECT_EQ(Rows(text, answers), "2021-02-13 1\n2021-02-14 2\n");

    answers.columns = "amount=#4";
    EXPECT_THROW(Rows(text, answers), NotAStatement);
}

TEST(CsvReaderTest, AColumnWithAGivenMeaningIsNoTextAnyMore)
{
    StatementAnswers answers;
    answers.columns = "date=1,amount=3,text=2";
    const std::string text = "Payee,Text,Paid\nJan 5 2026,Shop,1.00\nJan 6 2026,Bar,2.00\n";
    EXPECT_EQ(Kept(text, answers).accounts[0].rows[0].name, "Shop");
    EXPECT_EQ(Kept(text, answers).accounts[0].rows[0].text, "");
}

TEST(CsvReaderTest, TheOnlyColumnOfDaysIsTheDate)
{
    EXPECT_EQ(Rows("Payee;Text;Amount\n20260105;Shop;-1.00\n20260106;Bar;-2.00\n"),
              "2026-01-05 -1\n2026-01-06 -2\n");
}

TEST(CsvReaderTest, TheTableSaysWhatItsColumnsHold)
{
    const auto table = ReadCsv(
                           "Date,Payee,Purpose,Amount,Balance\n"
                           "2021-02-13,,x,-1.00,9.00\n2021-02-14,Shop,y,-2.00,7.00\n")
                           ->Table({});

    using Columns = StatementTable::Columns;
    EXPECT_EQ(table->columns.at(1).name, "Payee");
    EXPECT_EQ(table->columns.at(1).sample, "Shop");
    EXPECT_EQ(table->date, Columns{0});
    EXPECT_EQ(table->amount, Columns{3});
    EXPECT_EQ(table->in, Columns());
    EXPECT_EQ(table->name, Columns{1});
    EXPECT_EQ(table->text, Columns{2});
    EXPECT_EQ(table->balance, Columns{4});
    EXPECT_FALSE(table->inverted);
}

TEST(CsvReaderTest, ATableWhoseColumnsAreUnknownIsDescribedToo)
{
    const auto table =
        ReadCsv("Date,Text,Currency,Exchange rate\n2021-03-13,a,EUR,1.12\n")->Table({});

    EXPECT_EQ(table->columns.size(), 4U);
    EXPECT_EQ(table->columns.at(3).sample, "1.12");
    EXPECT_EQ(table->amount, StatementTable::Columns());
}

TEST(CsvReaderTest, LinesAndDelimiterCanBeGiven)
{
    StatementAnswers answers;
    answers.skip = 2;
    EXPECT_EQ(Rows("Date,Amount\n2021-01-01,1.00\nDate,Amount\n2021-02-13,-1.00\n", answers),
              "2021-02-13 -1\n");
    answers = {};
    answers.delimiter = ':';
    EXPECT_EQ(Rows("Date:Amount\n2021-02-13:-1.00\n", answers), "2021-02-13 -1\n");
}

TEST(CsvReaderTest, AFeeCountsIfTheBalanceSaysSo)
{
    EXPECT_EQ(Rows("Date,Text,Amount,Fee\n2021-03-01,a,-5.00,1.00\n2021-03-02,b,8.00,0.00\n"),
              "2021-03-01 -5\n2021-03-02 8\n");
    EXPECT_EQ(Rows("Date,Text,Amount,Fee,Balance\n2021-03-01,a,-5.00,1.00,94.00\n"
                   "2021-03-02,b,-5.00,1.00,88.00\n2021-03-03,c,8.00,0.00,96.00\n"),
              "2021-03-01 -6\n2021-03-02 -6\n2021-03-03 8\n");
}

TEST(CsvReaderTest, RowsThatNoMarkSettlesAreAskedAbout)
{
    EXPECT_EQ(Asked("交易时间,交易对方,收/支,金额\n2021-03-01 10:00:00,a,支出,5.00\n"
                    "2021-03-02 10:00:00,b,不计收支,6.00\n2021-03-03 10:00:00,c,收入,7.00\n"),
              "sign ");
}

TEST(CsvReaderTest, ABalanceOfADebtDoesNotTurnNamedColumns)
{
    const std::string text =
        "Date,Text,Debit,Credit,Balance\n2021-03-01,a,5.00,,105.00\n2021-03-02,b,,10.00,95.00\n"
        "2021-03-03,c,2.00,,97.00\n";
    EXPECT_EQ(Asked(text), "sign ");
    EXPECT_EQ(ReadCsv(text)->Open({})[0].proposed, "normal");
}

TEST(CsvReaderTest, WordsInATextAreNoMarksIfTheBalanceSaysSo)
{
    EXPECT_EQ(Rows("Date,Type,Amount,Balance\n2021-03-01,DEBIT,-5.00,95.00\n"
                   "2021-03-02,DEBIT,3.00,98.00\n2021-03-03,DEBIT,-2.00,96.00\n"),
              "2021-03-01 -5\n2021-03-02 3\n2021-03-03 -2\n");
}

TEST(CsvReaderTest, ARateIsNoAmount)
{
    EXPECT_EQ(Asked("Date,Text,Currency,Exchange rate\n2021-03-13,a,EUR,1.12\n"), "columns ");
}

TEST(CsvReaderTest, WordsSettleTheSignsOfACard)
{
    EXPECT_EQ(Rows("Date,Description,Amount\n01/15/2021,COFFEE,5.25\n"
                   "01/16/2021,AUTOPAY PAYMENT - THANK YOU,-200.00\n01/20/2021,GROCERY,54.10\n"),
              "2021-01-15 -5.25\n2021-01-16 200\n2021-01-20 -54.1\n");
}

TEST(CsvReaderTest, ACardWhosePaymentsAloneAreNegativeIsAskedAbout)
{
    for (const char* payment :
         {"Zahlung erhalten - Danke", "PAGO RECIBIDO GRACIAS", "BETALNING MOTTAGEN TACK",
          "Pagamento ricevuto grazie", "Hartelijk dank voor uw betaling", "Pagamento recebido",
          "ONLINE PMT CHECKING", "Betaling modtaget", "Betaling mottatt", "Kiitos maksusta",
          "Dziękujemy za płatność", "Děkujeme za platbu", "Спасибо за платеж", "信用卡还款",
          "Ödeme alındı", "Befizetés", "お支払い", "תשלום", "Votre règlement"})
        EXPECT_EQ(Asked(std::string("Date,Text,Amount\n2026-04-13,ICA,23.45\n2026-04-05,") +
                        payment + ",-500.00\n"),
                  "sign ")
            << payment;
}

TEST(CsvReaderTest, MostlyPositiveAmountsAreAskedAboutUnlessWordsFit)
{
    EXPECT_EQ(Asked("Date,Text,Amount\n2026-04-13,a,23.45\n2026-04-14,b,2.45\n"
                    "2026-04-05,c,-500.00\n"),
              "sign ");
    EXPECT_EQ(Asked("Date,Text,Amount\n2026-04-13,Salary,23.45\n2026-04-14,b,2.45\n"
                    "2026-04-05,Rent payment,-500.00\n"),
              "");
    EXPECT_EQ(Asked("Date,Text,Amount,Balance\n2026-04-13,a,23.45,523.45\n"
                    "2026-04-14,Payment,-500.00,23.45\n2026-04-15,b,1.00,24.45\n"),
              "");
}

TEST(CsvReaderTest, ADelimiterInATextMovesNoAmount)
{
    // The text of the second row holds an amount, so two readings are possible.
    const KeptStatement kept = Kept(
        "Date,Amount,Text,Balance\n2021-03-01,-5.00,a,95.00\n2021-03-02,-6.00,a, 1.00,89.00\n");
    EXPECT_EQ(Rows("Date,Text,Amount,Balance\n2021-03-01,a,-5.00,95.00\n"
                   "2021-03-02,b, c,-6.00,89.00\n2021-03-03,d,-1.00,88.00\n"),
              "2021-03-01 -5\n2021-03-02 -6\n2021-03-03 -1\n");
    for (const StatementRow& row : kept.accounts[0].rows)
        EXPECT_NE(row.amount.ToText(), "1");
}

TEST(CsvReaderTest, DecimalCommasWithoutQuotesAreJoinedOrRefused)
{
    EXPECT_EQ(Rows("Datum,Text,Betrag,Waehrung\n13.02.2021,Foo,-5,00,EUR\n14.02.2021,Bar,7,50,EUR\n"
                   "15.02.2021,Baz,-1,20,EUR\n"),
              "2021-02-13 -5\n2021-02-14 7.5\n2021-02-15 -1.2\n");
    EXPECT_THROW(Rows("Datum,Text,Soll,Haben,Saldo\n13.02.2021,Foo,5,00,,95,00\n"
                      "14.02.2021,Bar,,7,50,102,50\n"),
                 NotAStatement);
    EXPECT_EQ(Rows("13.02.2021,Foo,-5,00\n14.02.2021,Bar,7,50\n"), "asked columns ");
}

TEST(CsvReaderTest, AFileThatBreaksOffInItsLastRowIsAskedAbout)
{
    const std::string rows =
        "Date,Text,Amount,Balance\n2026-04-13,A,-10.00,90.00\n"
        "2026-04-14,B,-5.00,85.00\n";
    for (const char* cut : {"2026-04-1", "2026-04-15", "2026-04-15,Re", "2026-04-15,Rent,-1",
                            "2026-04-15,\"Rent", "2026-04-15,Rent,-1.00,8"})
        EXPECT_EQ(Asked(rows + cut), "truncated ") << cut;
    StatementAnswers answers;
    answers.takeWholeRows = true;
    EXPECT_EQ(Rows(rows + "2026-04-15,Rent,-1", answers), "2026-04-13 -10\n2026-04-14 -5\n");
    EXPECT_EQ(Reasons(Kept(rows + "2026-04-15,Rent,-1", answers)), "4 the file breaks off in it\n");
    EXPECT_EQ(Asked("Buchungstag;Empfänger;Betrag;Währung\n13.04.2026;A;-10,00;EUR\n"
                    "14.04.2026;B;-1.250,00;EUR\n15.04.2026;Miete;-1"),
              "truncated ");
    EXPECT_EQ(Asked("Datum;Text;Betrag\n13.04.2026;A;-10,00\n15.04.2026;Miete;-1,2"), "truncated ");
}

TEST(CsvReaderTest, AWholeLastRowNeedsNoEndOfLine)
{
    const std::string rows =
        "Date,Text,Amount,Balance\n2026-04-13,A,-10.00,90.00\n"
        "2026-04-14,B,-5.00,85.00\n";
    EXPECT_EQ(Asked(rows + "2026-04-15,Rent,-1.00,84.00"), "");
    EXPECT_EQ(Asked(rows + "2026-04-15,Rent,-1.00,84"), "");
    EXPECT_EQ(Asked(rows + "Total: 3 rows"), "");
    EXPECT_EQ(Asked("Date,Text,Amount\n2026-04-13,A,-10.5\n2026-04-14,B,3\n2026-04-14,C,-1"), "");
    EXPECT_EQ(Asked("Date,Text,Amount,\n2026-04-13,A,-10.50,\n2026-04-14,C,-1.00"), "");
    EXPECT_EQ(Asked("Date,Amount,Text\n2026-04-13,-10.50,A\n2026-04-14,-1,C"), "");
    EXPECT_EQ(Asked("Date,Text,Amount,Note\n2026-04-13,A,-10.50,x\n2026-04-13,A,-10.50\n"
                    "2026-04-14,C,-1.00"),
              "");
}

TEST(CsvReaderTest, TheShapeIsThatOfTheLayout)
{
    const auto shape = [](std::string_view text) { return ReadCsv(text)->Shape(); };
    EXPECT_EQ(shape("Date,Amount\n2021-03-01,-1.00\n"), shape("Date,Amount\n2022-04-02,17.00\n"));
    EXPECT_NE(shape("Date,Amount\n2021-03-01,-1.00\n"), shape("Date;Amount\n2021-03-01;-1.00\n"));
    EXPECT_NE(shape("Date,Amount\n2021-03-01,-1.00\n"), shape("Day,Amount\n2021-03-01,-1.00\n"));
    EXPECT_EQ(shape("2021-03-01,a,-1.00\n"), shape("2022-03-01,bc,5.00\n"));
}

TEST(CsvReaderTest, ATableWithoutRowsIsAnEmptyStatement)
{
    EXPECT_EQ(Rows("Date,Text,Amount\n"), "");
    EXPECT_EQ(Kept("Date,Text,Amount\n").accounts.size(), 1U);
}

TEST(CsvReaderTest, OtherTextsAreNoStatements)
{
    for (const char* text :
         {" ", "Hello world,\nthis is a letter.\n", "<html><body>no</body></html>", "a,b\nc,d\n",
          "{\"a\": 1}", "Name;Phone\nAnna;12345\n"}) {
        bool refused = false;
        try {
            refused = Rows(text).starts_with("asked");
        } catch (const NotAStatement&) {
            refused = true;
        }
        EXPECT_TRUE(refused) << text;
    }
}

}  // namespace
}  // namespace clb
