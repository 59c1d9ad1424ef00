// The accounts and currencies of tables.
#include <gtest/gtest.h>

#include "tests/statements/csv/ReadTable.h"

namespace clb {
namespace {

TEST(CsvAccountsTest, EachAccountAndCurrencyIsAnAccount)
{
    const KeptStatement kept = Kept(
        "Account,Date,Text,Amount,Currency\nMain,2021-03-01,a,-1.00,EUR\nSpare,2021-03-02,b,2.00,"
        "EUR\n"
        "Main,2021-03-03,c,-3.00,USD\nMain,2021-03-04,d,-4.00,EUR\n");
    ASSERT_EQ(kept.accounts.size(), 3U);
    EXPECT_EQ(kept.accounts[0].account.number, "Main");
    EXPECT_EQ(kept.accounts[0].rows.size(), 2U);
    EXPECT_EQ(kept.accounts[1].account.number, "Spare");
    EXPECT_EQ(kept.accounts[2].account.currency, "USD");
}

/// Currency and amounts of each account, one account a line.
std::string ByCurrency(std::string_view text)
{
    std::string lines = Asked(text);
    for (const auto& account : Kept(text).accounts) {
        lines += account.account.currency;
        for (const StatementRow& row : account.rows)
            lines += " " + row.amount.ToText();
        lines += "\n";
    }
    return lines;
}

TEST(CsvAccountsTest, CurrenciesStayApartBesideARunningBalance)
{
    EXPECT_EQ(ByCurrency("Datum;Text;Währung;Betrag;Guthaben\n"
                         "13.04.2026;Kauf;USD;-10,00;-10,00\n"
                         "13.04.2026;Umrechnung;USD;10,00;0,00\n"
                         "13.04.2026;Umrechnung;EUR;-9,45;-9,45\n"
                         "13.04.2026;Bank;EUR;9,45;0,00\n14.04.2026;Kunde;EUR;97,15;97,15\n"),
              "USD -10 10\nEUR -9.45 9.45 97.15\n");
    EXPECT_EQ(ByCurrency("Datum;Text;Währung;Brutto;Entgelt;Netto;Guthaben\n"
                         "13.04.2026;Kauf;USD;-10,00;0,00;-10,00;-10,00\n"
                         "13.04.2026;Umrechnung;USD;10,00;0,00;10,00;0,00\n"
                         "13.04.2026;Umrechnung;EUR;-9,45;0,00;-9,45;-9,45\n"
                         "13.04.2026;Bank;EUR;9,45;0,00;9,45;0,00\n"
                         "14.04.2026;Kunde;EUR;100,00;-2,85;97,15;97,15\n"),
              "USD -10 10\nEUR -9.45 9.45 97.15\n");
}

TEST(CsvAccountsTest, ABalanceThatGoesOnFromCurrencyToCurrencyIsOfOneAccount)
{
    EXPECT_EQ(Kept("Date;Text;Currency;Amount;Balance\n2026-04-13;a;EUR;-10.00;90.00\n"
                   "2026-04-14;b;USD;-5.00;85.00\n2026-04-15;c;EUR;-1.00;84.00\n")
                  .accounts.size(),
              1U);
}

TEST(CsvAccountsTest, SignsInCellsAreCurrencies)
{
    EXPECT_EQ(ByCurrency("Date,Text,Amount\n2026-04-13,A,£-10.00\n2026-04-14,B,$-20.00\n"),
              "GBP -10\nUSD -20\n");
    EXPECT_EQ(ByCurrency("Date,Text,Amount\n2026-04-13,Shop,$-10.00\n2026-04-14,Shop,€-9.00\n"
                         "2026-04-15,Shop,-19.00 €\n"),
              "USD -10\nEUR -9 -19\n");
    EXPECT_EQ(ByCurrency("Date,Text,Amount\n2026-04-13,A,-10.00 kr\n2026-04-14,B,€-20.00\n"),
              "kr -10\nEUR -20\n");
    EXPECT_EQ(ByCurrency("Date,Text,Amount\n2026-04-13,A,$-10.00\n2026-04-14,B,$-20.00\n"),
              " -10 -20\n");
}

TEST(CsvAccountsTest, TheCurrencyOfAnOriginalAmountIsNotThatOfTheAccount)
{
    EXPECT_EQ(ByCurrency("Datum;Text;Betrag (EUR);Ursprünglicher Betrag\n"
                         "13.04.2026;Hotel;-123,45;-135,00 USD\n14.04.2026;REWE;-20,00;\n"),
              "EUR -123.45 -20\n");
    EXPECT_EQ(ByCurrency("Munt,Naam,Datum,Bedrag,Omschrijving,Oorspr bedrag,Oorspr munt\n"
                         "EUR,Visa,2026-04-13,\"-23,45\",AMAZON,\"-25,00\",USD\n"
                         "EUR,Visa,2026-04-14,\"-3,45\",AH,,\n"),
              "EUR -23.45 -3.45\n");
    EXPECT_EQ(ByCurrency("Date,Text,Amount (EUR),Currency\n2026-04-13,a,-1.00,USD\n"
                         "2026-04-14,b,-2.00,EUR\n"),
              "EUR -1 -2\n");
    EXPECT_EQ(ByCurrency("Date,Text,Amount,Foreign amount,Ccy\n2026-04-13,a,-1.00,-1.10,USD\n"
                         "2026-04-14,b,-2.00,,\n"),
              " -1 -2\n");
}

/// The numbers of the accounts, each with its number of rows, and what is asked.
std::string Numbers(std::string_view text)
{
    std::string numbers = Asked(text);
    for (const auto& account : Kept(text).accounts)
        numbers += account.account.number + ":" + std::to_string(account.rows.size()) + " ";
    return numbers;
}

TEST(CsvAccountsTest, TheNumberOfTheOtherPartyIsNotTheAccount)
{
    EXPECT_EQ(Numbers("Datum;Empfänger;IBAN;Betrag\n13.04.2026;A;DE89370400440532013000;-1,00\n"
                      "14.04.2026;A;DE89370400440532013000;-1,00\n"),
              ":2 ");
    EXPECT_EQ(Numbers("Girokonto;DE02120300000000202051\n\nBuchungsdatum;Status;"
                      "Zahlungsempfänger*in;Verwendungszweck;IBAN;Betrag (€)\n"
                      "14.04.26;Gebucht;Max;Urlaub;DE12500105171234567890;-200,00\n"),
              "DE02120300000000202051:1 ");
    EXPECT_EQ(Numbers("Date,Payee,Account number,Payment reference,Amount (EUR)\n"
                      "2026-04-13,Max,DE12500105171234567890,Sparen,-100.0\n"
                      "2026-04-14,Max,DE12500105171234567890,Sparen,-110.0\n"),
              ":2 ");
    EXPECT_EQ(Numbers("Datum;Text;Gegenkonto;Betrag\n13.04.2026;a;DE89370400440532013000;-1,00\n"),
              ":1 ");
    EXPECT_EQ(Numbers("Datum;Text;Numer konta kontrahenta;Betrag\n13.04.2026;a;PL61109010140000;"
                      "-1,00\n"),
              ":1 ");
    EXPECT_EQ(Numbers("IBAN;Datum;Empfänger;Betrag\nDE89370400440532013000;13.04.2026;A;-1,00\n"),
              "DE89370400440532013000:1 ");
}

TEST(CsvAccountsTest, ANumberOfTheAccountWinsOverItsName)
{
    EXPECT_EQ(Numbers("Date,Type,Description,Value,Balance,Account Name,Account Number\n"
                      "13 Apr 2026,POS,TESCO,-23.45,1076.55,'SMITH J,'600001-12345678\n"
                      "01 Apr 2026,BAC,PAY,1100.00,1100.00,'SMITH J,'600001-12345678\n"
                      "13 Apr 2026,POS,SAVE,50,150,'SMITH J,'600001-99999999\n"
                      "01 Apr 2026,INT,Interest,100.00,100.00,'SMITH J,'600001-99999999\n"),
              "600001-12345678:2 600001-99999999:2 ");
    EXPECT_EQ(Numbers("Account Name,Date,Text,Amount\nMain,2026-04-13,a,-1.00\n"
                      "Spare,2026-04-14,b,-1.00\n"),
              "Main:1 Spare:1 ");
}

TEST(CsvAccountsTest, RowsOfSeveralAccountsAreAnAccountEach)
{
    EXPECT_EQ(Numbers("Bank Account,Date,Narrative,Debit Amount,Credit Amount,Balance\n"
                      "032001123456,13/04/2026,COLES,23.45,,1076.55\n"
                      "032001999999,03/04/2026,INT,,1.00,501.00\n"
                      "032001123456,02/04/2026,SALARY,,1100.00,1100.00\n"
                      "032001999999,01/04/2026,DEP,,100.00,500.00\n"),
              "032001123456:2 032001999999:2 ");
    EXPECT_EQ(Numbers("dateOp;label;amount;accountNum;accountLabel;accountbalance\n"
                      "2026-04-13;AUCHAN;-23,45;00040123456;Compte;1476.55\n"
                      "2026-04-14;INTERETS;10,00;00040999999;Livret;500.00\n"),
              "00040123456:1 00040999999:1 ");
    EXPECT_EQ(Numbers("Numéro de compte;Nom du compte;Compte partie adverse;Date comptable;"
                      "Montant;Libellés\nBE68539007547034;DUPONT;BE1;13/04/2026;-23,45;COLRUYT\n"
                      "BE68539007549999;DUPONT;BE2;14/04/2026;23,45;EPARGNE\n"),
              "BE68539007547034:1 BE68539007549999:1 ");
    EXPECT_EQ(Numbers("Numer rachunku/karty,Data transakcji,Opis,Obciążenia,Uznania,Saldo\n"
                      "PL12,2026-04-13,ŻABKA,-23.45,,1076.55\n"
                      "PL99,2026-04-14,ODSETKI,,1.00,501.00\n"),
              "PL12:1 PL99:1 ");
    EXPECT_EQ(Numbers("Posted Account,Posted Transactions Date,Description,Debit Amount,"
                      "Credit Amount,Balance\n111,13/04/26,TESCO,23.45,,1000.00\n"
                      "222,14/04/26,ALDI,6.55,,70.00\n"),
              "111:1 222:1 ");
}

TEST(CsvAccountsTest, TheNumberOfTheAccountMayStandAboveTheTable)
{
    const KeptStatement kept = Kept(
        "IBAN:;DE02120300000000202051\nWährung;EUR\n\nDatum;Text;Betrag\n13.03.2021;a;-1,00\n");
    EXPECT_EQ(kept.accounts[0].account.number, "DE02120300000000202051");
    EXPECT_EQ(kept.accounts[0].account.currency, "EUR");
}

}  // namespace
}  // namespace clb
