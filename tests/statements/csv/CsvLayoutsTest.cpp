// Layouts of account exports from many countries, with made-up rows.
#include <gtest/gtest.h>

#include "tests/statements/csv/ReadTable.h"
#include "tests/support/TestNames.h"

namespace clb {
namespace {

struct Layout {
    const char* name;
    const char* text;
    const char* rows;
};

class CsvLayoutsTest : public testing::TestWithParam<Layout> {};

TEST_P(CsvLayoutsTest, IsReadWithoutAQuestion)
{
    EXPECT_EQ(Rows(GetParam().text), GetParam().rows);
}

INSTANTIATE_TEST_SUITE_P(
    Group1, CsvLayoutsTest,
    testing::Values(
        Layout{"BritishColumnsInAndOut",
               R"csv(Date,Type,Description,Money Out,Money In,Balance
31/03/2021,DEB,CORNER SHOP,12.50,,487.50
30/03/2021,FPI,J SMITH,,500.00,500.00
)csv",
               R"(2021-03-31 -12.5
2021-03-30 500
)"},
        Layout{
            "BritishWithSortCodeAndAccount",
            R"csv(Transaction Date,Transaction Type,Sort Code,Account Number,Transaction Description,Debit Amount,Credit Amount,Balance
15/02/2022,DD,'11-22-33,12345678,WATER CO,33.10,,966.90
14/02/2022,BGC,'11-22-33,12345678,WAGES,,1000.00,1000.00
)csv",
            R"(2022-02-15 -33.1
2022-02-14 1000
)"},
        Layout{"BritishNumberDateAccountAmountSubcategoryMemo",
               R"csv(Number,Date,Account,Amount,Subcategory,Memo
 ,28/02/2020,20-00-00 12345678,-45.00,Debit,"POWER CO	DDR"
 ,27/02/2020,20-00-00 12345678,1200.00,Funds Transfer,"EMPLOYER LTD	BGC"
 ,26/02/2020,20-00-00 12345678,-3.20,Debit,"CAFE	BCC"
)csv",
               R"(2020-02-28 -45
2020-02-27 1200
2020-02-26 -3.2
)"},
        Layout{"BritishWithPoundSigns",
               R"csv("Account Name:","Current ****1234"
"Account Balance:","£1,234.56"
"Available Balance: ","£1,234.56"

"Date","Transaction type","Description","Paid out","Paid in","Balance"
"13 Mar 2021","Visa purchase","SHOP","£20.00","","£1,234.56"
"14 Mar 2021","Bank credit","A PERSON","","£100.00","£1,334.56"
)csv",
               R"(2021-03-13 -20
2021-03-14 100
)"},
        Layout{"BritishBuildingSocietyWithMonthNames",
               R"csv(Date,Description,Value,Balance,Account Name,Account Number
16 May 2023,CARD PAYMENT TO CAFE,-4.50,195.50,'Main,'112233-12345678
15 May 2023,FROM A FRIEND,50.00,200.00,'Main,'112233-12345678
)csv",
               R"(2023-05-16 -4.5
2023-05-15 50
)"},
        Layout{"AmericanDetailsPostingDateCheckNumber",
               R"csv(Details,Posting Date,Description,Amount,Type,Balance,Check or Slip #
DEBIT,03/19/2021,"GROCERY STORE",-54.21,DEBIT_CARD,945.79,,
CREDIT,03/18/2021,"PAYROLL",1000.00,ACH_CREDIT,1000.00,,
CHECK,03/17/2021,"CHECK 101",-20.00,CHECK_PAID,0.00,101,
)csv",
               R"(2021-03-19 -54.21
2021-03-18 1000
2021-03-17 -20
)"},
        Layout{"AmericanCardWithTypes",
               R"csv(Transaction Date,Post Date,Description,Category,Type,Amount,Memo
03/16/2021,03/17/2021,BOOK STORE,Shopping,Sale,-15.99,
03/10/2021,03/11/2021,Payment Thank You - Web,,Payment,200.00,
03/14/2021,03/15/2021,DINER,Food & Drink,Sale,-30.00,
)csv",
               R"(2021-03-17 -15.99
2021-03-11 200
2021-03-15 -30
)"},
        Layout{"AmericanWithoutHeader",
               R"csv("03/19/2021","-54.21","*","","GROCERY STORE"
"03/18/2021","1000.00","*","","PAYROLL"
"03/17/2021","-20.00","*","101","CHECK"
)csv",
               R"(2021-03-19 -54.21
2021-03-18 1000
2021-03-17 -20
)"},
        Layout{"AmericanSummaryAboveTheTable",
               R"csv(Description,,Summary Amt.
Beginning balance as of 03/01/2021,,"500.00"
Total credits,,"1,000.00"
Total debits,,"-54.21"
Ending balance as of 03/31/2021,,"1,445.79"

Date,Description,Amount,Running Bal.
03/01/2021,Beginning balance as of 03/01/2021,,"500.00"
03/18/2021,"PAYROLL","1,000.00","1,500.00"
03/19/2021,"GROCERY, STORE","-54.21","1,445.79"
)csv",
               R"(2021-03-18 1000
2021-03-19 -54.21
)"},
        Layout{
            "AmericanCreditUnion",
            R"csv("Transaction Number",Date,Description,Memo,"Amount Debit","Amount Credit",Balance,"Check Number",Fees
20210319000000[-5:EST],03/19/2021,"POS Purchase","GROCERY STORE",-54.21,,945.79,,
20210318000000[-5:EST],03/18/2021,"Deposit","PAYROLL",,1000.00,1000.00,,
)csv",
            R"(2021-03-19 -54.21
2021-03-18 1000
)"},
        Layout{
            "GermanSavingsBank",
            R"csv("Auftragskonto";"Buchungstag";"Valutadatum";"Buchungstext";"Verwendungszweck";"Beguenstigter/Zahlungspflichtiger";"Kontonummer";"BLZ";"Betrag";"Waehrung";"Info"
"12345678";"31.03.21";"31.03.21";"LASTSCHRIFT";"Strom 3/21";"Stadtwerke";"DE00";"XX";"-1.045,00";"EUR";"Umsatz gebucht"
"12345678";"30.03.21";"30.03.21";"GUTSCHRIFT";"Lohn";"Firma";"DE00";"XX";"2.500,10";"EUR";"Umsatz gebucht"
)csv",
            R"(2021-03-31 -1045
2021-03-30 2500.1
)"},
        Layout{"GermanCooperativeBankWithSollHaben",
               R"csv(Testbank eG

Umsatzanzeige

BLZ:;12345678;;Datum:;05.04.2021
Konto:;1234567;;Uhrzeit:;10:11:12

Buchungstag;Valuta;Textschlüssel;Primanota;Zahlungsempfänger;ZahlungsempfängerKto;Verwendungszweck;Währung;Umsatz;Soll/Haben
01.04.2021;01.04.2021;05;;Stadtwerke;123;Strom;EUR;45,10;S
31.03.2021;31.03.2021;51;;Firma;456;Lohn;EUR;2.500,00;H

01.04.2021;;;;;;Anfangssaldo;EUR;100,00;H
05.04.2021;;;;;;Endsaldo;EUR;2.554,90;H
)csv",
               R"(2021-04-01 -45.1
2021-03-31 2500
)"},
        Layout{
            "GermanCooperativeBankWithBalance",
            R"csv(Bezeichnung Auftragskonto;IBAN Auftragskonto;BIC Auftragskonto;Bankname Auftragskonto;Buchungstag;Valutadatum;Name Zahlungsbeteiligter;IBAN Zahlungsbeteiligter;BIC (SWIFT-Code) Zahlungsbeteiligter;Buchungstext;Verwendungszweck;Betrag;Waehrung;Saldo nach Buchung;Bemerkung
Giro;DE11;XX;Bank;05.03.2021;05.03.2021;Stadtwerke;DE22;YY;Lastschrift;Strom;-50,00;EUR;450,00;
Giro;DE11;XX;Bank;04.03.2021;04.03.2021;Firma;DE33;ZZ;Gutschrift;Lohn;500,00;EUR;500,00;
)csv",
            R"(2021-03-05 -50
2021-03-04 500
)"},
        Layout{"GermanDirectBankWithPreamble",
               R"csv("Kontonummer:";"DE12345678 / Girokonto";

"Von:";"01.03.2021";
"Bis:";"31.03.2021";
"Kontostand vom 31.03.2021:";"1.000,00 EUR";

"Buchungstag";"Wertstellung";"Buchungstext";"Auftraggeber / Begünstigter";"Verwendungszweck";"Kontonummer";"BLZ";"Betrag (EUR)";"Gläubiger-ID";"Mandatsreferenz";"Kundenreferenz";
"31.03.2021";"31.03.2021";"Lastschrift";"Stadtwerke";"Strom";"DE1";"XX";"-45,10";"";"";"";
"15.03.2021";"15.03.2021";"Gutschrift";"Firma";"Lohn";"DE2";"YY";"1.500,00";"";"";"";
)csv",
               R"(2021-03-31 -45.1
2021-03-15 1500
)"},
        Layout{"GermanCardStatement",
               R"csv("Kreditkarte:";"4998********1234";

"Zeitraum:";"letzte 30 Tage";
"Saldo:";"-55.10 EUR";
"Datum:";"05.04.2021";

"Umsatz abgerechnet und nicht im Saldo enthalten";"Wertstellung";"Belegdatum";"Beschreibung";"Betrag (EUR)";"Ursprünglicher Betrag";
"Ja";"31.03.2021";"29.03.2021";"BUCHLADEN";"-15,10";"";
"Nein";"30.03.2021";"28.03.2021";"GASTHOF";"-40,00";"-45,00 CHF";
"Nein";"22.03.2021";"22.03.2021";"AUSGLEICH";"155,00";"";
)csv",
               R"(2021-03-29 -15.1
2021-03-28 -40
2021-03-22 155
)"},
        Layout{
            "GermanMobileBank",
            R"csv("Datum","Empfänger","Kontonummer","Transaktionstyp","Verwendungszweck","Betrag (EUR)","Betrag (Fremdwährung)","Fremdwährung","Wechselkurs"
"2021-03-13","Cafe","","Kartenzahlung","","-4.5","-4.5","EUR","1.0"
"2021-03-14","Anna","DE12","Gutschrift","Danke","20.0","","",""
)csv",
            R"(2021-03-13 -4.5
2021-03-14 20
)"}),
    [](const auto& test) { return std::string(test.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Group2, CsvLayoutsTest,
    testing::Values(
        Layout{"GermanBigBankWithSollAndHaben",
               R"csv(Umsätze Girokonto;;;Kundennummer: 100 1234567
01.03.2021 - 31.03.2021
Letzter Kontostand;;;;1.234,00;EUR
Buchungstag;Wert;Umsatzart;Begünstigter / Auftraggeber;Verwendungszweck;IBAN;BIC;Kundenreferenz;Mandatsreferenz;Gläubiger ID;Fremde Gebühren;Betrag;Abweichender Empfänger;Anzahl der Aufträge;Anzahl der Schecks;Soll;Haben;Währung
1.3.2021;1.3.2021;SEPA-Lastschrift;Stadtwerke;Strom;DE1;X;;;;;;;;;-45,10;;EUR
15.3.2021;15.3.2021;SEPA-Überweisung;Firma;Lohn;DE2;X;;;;;;;;;;1.500,00;EUR
Kontostand;31.3.2021;;;2.688,90;EUR
)csv",
               R"(2021-03-01 -45.1
2021-03-15 1500
)"},
        Layout{
            "AustrianWithoutHeader",
            R"csv(01.03.2021;Bezahlung Karte SUPERMARKT;01.03.2021;-23,45;EUR;01.03.2021 10:11:12:123
15.03.2021;Gehalt FIRMA;15.03.2021;1.823,40;EUR;15.03.2021 01:02:03:456
)csv",
            R"(2021-03-01 -23.45
2021-03-15 1823.4
)"},
        Layout{
            "AustrianWithAccountAndCurrency",
            R"csv(IBAN;Auszugsnummer;Buchungsdatum;Valutadatum;Umsatzzeit;Zahlungsreferenz;Waehrung;Betrag;Buchungstext;Umsatztext
AT611904300234573201;;01.03.2021;01.03.2021;2021-03-01-10.11.12.123456;;EUR;-23,45;Karte;SUPERMARKT
AT611904300234573201;;15.03.2021;15.03.2021;2021-03-15-01.02.03.123456;;EUR;1823,40;Gehalt;FIRMA
)csv",
            R"(2021-03-01 -23.45
2021-03-15 1823.4
)"},
        Layout{
            "SwissWithApostrophes",
            R"csv(Buchungsdatum;Avisierungstext;Gutschrift in CHF;Lastschrift in CHF;Valuta;Saldo in CHF
31.03.2021;KAUF LADEN;;45.10;31.03.2021;4'954.90
30.03.2021;GUTSCHRIFT FIRMA;5'000.00;;30.03.2021;5'000.00
)csv",
            R"(2021-03-31 -45.1
2021-03-30 5000
)"},
        Layout{"SwissBigBank",
               R"csv(Kontonummer:;0200 00123456.01;
IBAN:;CH11;
Von:;2021-03-01;
Bis:;2021-03-31;
Anfangssaldo:;0.00;
Schlusssaldo:;4954.90;
Bewertet in:;CHF;
Anzahl Transaktionen:;2;

Abschlussdatum;Abschlusszeit;Buchungsdatum;Valutadatum;Währung;Belastung;Gutschrift;Einzelbetrag;Saldo;Transaktions-Nr.;Beschreibung1;Beschreibung2;Beschreibung3;Fussnoten;
2021-03-31;10:11:12;2021-03-31;2021-03-31;CHF;-45.10;;;4954.90;123AB45678;LADEN;Kauf;;;
2021-03-30;01:02:03;2021-03-30;2021-03-30;CHF;;5000.00;;5000.00;123AB45679;FIRMA;Gutschrift;;;
)csv",
               R"(2021-03-31 -45.1
2021-03-30 5000
)"},
        Layout{"FrenchDebitAndCredit",
               R"csv(Date;Libellé;Débit euros;Crédit euros;
31/03/2021;CARTE 30/03 BOULANGERIE;-4,50;;
30/03/2021;VIR SALAIRE;;1 850,00;
)csv",
               R"(2021-03-31 -4.5
2021-03-30 1850
)"},
        Layout{
            "FrenchWithPreamble",
            R"csv(Code de la banque : 12345;Code de l'agence : 00001;Date de début de téléchargement : 01/03/2021;Date de fin de téléchargement : 31/03/2021
Numéro de compte : 12345678901;Nom du compte : COMPTE;Devise : EUR
Solde en fin de période : 1845,50
Date;Numéro d'opération;Libellé;Débit;Crédit;Détail
31/03/21;0001;CB BOULANGERIE;-4,50;;x
30/03/21;0002;VIREMENT;;+1850,00;y
Solde en début de période : 0,00
)csv",
            R"(2021-03-31 -4.5
2021-03-30 1850
)"},
        Layout{
            "FrenchSignedAmount",
            R"csv(dateOp;dateVal;label;category;categoryParent;supplierFound;amount;comment;accountNum;accountLabel;accountbalance
2021-03-31;2021-03-31;"CARTE BOULANGERIE";Restaurants;Loisirs;boulangerie;-4,50;;00012345;Compte;1845.50
2021-03-30;2021-03-30;"VIR SALAIRE";Virements;Revenus;;1 850,00;;00012345;Compte;1845.50
2021-03-29;2021-03-29;"CARTE CINEMA";Loisirs;Loisirs;;-10,20;;00012345;Compte;1845.50
)csv",
            R"(2021-03-31 -4.5
2021-03-30 1850
2021-03-29 -10.2
)"},
        Layout{
            "DutchAfBij",
            R"csv("Datum";"Naam / Omschrijving";"Rekening";"Tegenrekening";"Code";"Af Bij";"Bedrag (EUR)";"Mutatiesoort";"Mededelingen";"Saldo na mutatie";"Tag"
"20210331";"Bakker";"NL11";"NL22";"BA";"Af";"4,50";"Betaalautomaat";"Pas 1";"495,50";""
"20210330";"Werkgever";"NL11";"NL33";"OV";"Bij";"500,00";"Overschrijving";"Loon";"500,00";""
)csv",
            R"(2021-03-31 -4.5
2021-03-30 500
)"},
        Layout{
            "DutchWithSequenceNumber",
            R"csv("IBAN/BBAN","Munt","BIC","Volgnr","Datum","Rentedatum","Bedrag","Saldo na trn","Tegenrekening IBAN/BBAN","Naam tegenpartij","Code","Omschrijving-1"
"NL11TEST0123456789","EUR","TESTNL2U","000000000000001234","2021-03-30","2021-03-30","+500,00","+500,00","NL33","Werkgever","cb","Loon"
"NL11TEST0123456789","EUR","TESTNL2U","000000000000001235","2021-03-31","2021-03-31","-4,50","+495,50","NL22","Bakker","bc","Pas"
)csv",
            R"(2021-03-30 500
2021-03-31 -4.5
)"},
        Layout{
            "DutchTabsWithoutHeader",
            R"csv(123456789	EUR	20210330	0,00	500,00	20210330	500,00	SEPA Overboeking Loon
123456789	EUR	20210331	500,00	495,50	20210331	-4,50	BEA Bakker
123456789	EUR	20210401	495,50	485,50	20210401	-10,00	BEA Slager
)csv",
            R"(2021-03-30 500
2021-03-31 -4.5
2021-04-01 -10
)"},
        Layout{
            "BelgianAccountStatement",
            R"csv(Rekeningnummer;Rubrieknaam;Naam;Munt;Afschriftnummer;Datum;Omschrijving;Valuta;Bedrag;Saldo;credit;debet
BE11;ZICHT;JAN;EUR; 02021001;31/03/2021;BAKKER;31/03/2021;-4,50;495,50;;-4,50
BE11;ZICHT;JAN;EUR; 02021001;30/03/2021;LOON;30/03/2021;500,00;500,00;500,00;
)csv",
            R"(2021-03-31 -4.5
2021-03-30 500
)"},
        Layout{"SpanishConcept",
               R"csv(FECHA;FECHA VALOR;CONCEPTO;IMPORTE;SALDO
31/03/2021;31/03/2021;COMPRA TARJETA PANADERIA;-4,50;1.845,50
30/03/2021;30/03/2021;NOMINA;1.850,00;1.850,00
)csv",
               R"(2021-03-31 -4.5
2021-03-30 1850
)"},
        Layout{"ItalianDareAvere",
               R"csv(Data contabile;Data valuta;Descrizione;Dare;Avere
31/03/2021;31/03/2021;PAGAMENTO POS FORNAIO;4,50;
30/03/2021;30/03/2021;STIPENDIO;;1.850,00
)csv",
               R"(2021-03-31 -4.5
2021-03-30 1850
)"},
        Layout{"SwedishWithPreamble",
               R"csv(Clearingnummer,Kontonummer,Datum,Text,Belopp,Saldo
8327,1234567,2021-03-31,BUTIK,-45.00,955.00
8327,1234567,2021-03-30,Lön,1000.00,1000.00
)csv",
               R"(2021-03-31 -45
2021-03-30 1000
)"},
        Layout{"SwedishBookingDays",
               R"csv(Bokföringsdag;Belopp;Avsändare;Mottagare;Namn;Rubrik;Saldo;Valuta
2021/03/31;-45,00;12;34;BUTIK;Kortköp;955,00;SEK
2021/03/30;1000,00;;;;Lön;1000,00;SEK
)csv",
               R"(2021-03-31 -45
2021-03-30 1000
)"}),
    [](const auto& test) { return std::string(test.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Group3, CsvLayoutsTest,
    testing::Values(
        Layout{"DanishWithStates",
               R"csv("Dato";"Tekst";"Beløb";"Saldo";"Status";"Afstemt"
"31.03.2021";"Kortkøb Bager";"-45,00";"955,00";"Udført";"Nej"
"30.03.2021";"Løn";"1.000,00";"1.000,00";"Udført";"Nej"
)csv",
               R"(2021-03-31 -45
2021-03-30 1000
)"},
        Layout{"NorwegianInAndOut",
               R"csv("Dato";"Forklaring";"Rentedato";"Ut fra konto";"Inn på konto"
"31.03.2021";"VARER BUTIK";"31.03.2021";"45,00";""
"30.03.2021";"LØNN";"30.03.2021";"";"1000,00"
)csv",
               R"(2021-03-31 -45
2021-03-30 1000
)"},
        Layout{
            "FinnishWithUnderlines",
            R"csv(Kirjauspäivä;Arvopäivä;Määrä EUROA;Laji;Selitys;Saaja/Maksaja;Saajan tilinumero;Viite;Viesti;Arkistointitunnus
31.03.2021;31.03.2021;-4,50;162;PKORTTIMAKSU;LEIPOMO;;;;20210331/5RXE00/000001
30.03.2021;30.03.2021;1850,00;710;PALKKA;FIRMA;;;;20210330/5RXE00/000002
)csv",
            R"(2021-03-31 -4.5
2021-03-30 1850
)"},
        Layout{"PolishWithPreamble",
               R"csv(Bank S.A. Bankowość;
#Klient;
JAN KOWALSKI;

#Za okres:;
01.03.2021;31.03.2021;

#Data operacji;#Data księgowania;#Opis operacji;#Tytuł;#Nadawca/Odbiorca;#Numer konta;#Kwota;#Saldo po operacji;
2021-03-30;2021-03-30;PRZELEW;WYPŁATA;FIRMA;'12345';1 850,00;1 850,00;
2021-03-31;2021-03-31;ZAKUP;;PIEKARNIA;'';-4,50;1 845,50;
;;;;;;#Saldo końcowe;1 845,50 PLN;
)csv",
               R"(2021-03-30 1850
2021-03-31 -4.5
)"},
        Layout{
            "CzechWithSeveralNumbers",
            R"csv("Datum zaúčtování";"Částka";"Měna";"Zůstatek";"Číslo účtu";"Název protiúčtu";"VS";"KS";"SS";"Popis"
"31.03.2021";"-45,00";"CZK";"955,00";"123/0800";"PEKAŘ";"1";"";"";"Platba kartou"
"30.03.2021";"1 000,00";"CZK";"1 000,00";"123/0800";"FIRMA";"";"";"";"Mzda"
)csv",
            R"(2021-03-31 -45
2021-03-30 1000
)"},
        Layout{"PortugueseMovements",
               R"csv(Consultar saldos e movimentos à ordem - 31-03-2021

Conta ;0123456789 - EUR - Conta
Data de início ;01-03-2021
Data de fim ;31-03-2021

Data mov. ;Data valor ;Descrição ;Débito ;Crédito ;Saldo contabilístico ;Saldo disponível ;
31-03-2021;30-03-2021;COMPRA PADARIA;4,50;;1.845,50;1.845,50;
30-03-2021;30-03-2021;ORDENADO;;1.850,00;1.850,00;1.850,00;
 ; ; ; ;Saldo contabilístico;1.845,50 EUR; ;
)csv",
               R"(2021-03-31 -4.5
2021-03-30 1850
)"},
        Layout{"BrazilianWithBalancesOfTheDay",
               R"csv(Data,Dependência Origem,Histórico,Data do Balancete,Número do documento,Valor
"03/01/2021","","Saldo Anterior","","0","100.00"
"03/15/2021","0000-0","Compra","","123456","-4.50"
"03/16/2021","0000-0","Salário","","123457","1850.00"
"03/31/2021","","S A L D O","","0","1945.50"
)csv",
               R"(2021-03-15 -4.5
2021-03-16 1850
)"},
        Layout{"BrazilianWithSides",
               R"csv(Data;Lançamento;Valor;Tipo
15/03/2021;Padaria;4,50;D
16/03/2021;Salário;1.850,00;C
)csv",
               R"(2021-03-15 -4.5
2021-03-16 1850
)"},
        Layout{"AustralianWithoutHeader",
               R"csv(31/03/2021,"-4.50","BAKERY SYDNEY","+1845.50"
30/03/2021,"+1850.00","SALARY","+1850.00"
)csv",
               R"(2021-03-31 -4.5
2021-03-30 1850
)"},
        Layout{
            "AustralianDebitCreditBalance",
            R"csv("BSB Number","Account Number","Transaction Date","Narration","Cheque","Debit","Credit","Balance","Transaction Type"
"633-000","123456789","31/03/2021","BAKERY","","4.50","","1845.50","WDL"
"633-000","123456789","30/03/2021","SALARY","","","1850.00","1850.00","DEP"
)csv",
            R"(2021-03-31 -4.5
2021-03-30 1850
)"},
        Layout{
            "NewZealandParticulars",
            R"csv(Type,Details,Particulars,Code,Reference,Amount,Date,ForeignCurrencyAmount,ConversionCharge
Eft-Pos,Bakery,1234,,,-4.50,31/03/2021,,
Salary,Employer,,,Pay,1850.00,30/03/2021,,
Eft-Pos,Cafe,1234,,,-5.50,29/03/2021,,
)csv",
            R"(2021-03-31 -4.5
2021-03-30 1850
2021-03-29 -5.5
)"},
        Layout{"CanadianWithoutHeaderInAndOut",
               R"csv(03/31/2021,BAKERY,4.50,,1845.50
03/30/2021,PAYROLL,,1850.00,1850.00
03/29/2021,CAFE,5.50,,0.00
)csv",
               R"(2021-03-31 -4.5
2021-03-30 1850
2021-03-29 -5.5
)"},
        Layout{
            "CanadianAccountTypes",
            R"csv("Account Type","Account Number","Transaction Date","Cheque Number","Description 1","Description 2","CAD$","USD$"
Chequing,01234-1234567,3/31/2021,,"BAKERY","",-4.50,,
Chequing,01234-1234567,3/30/2021,,"PAYROLL","",1850.00,,
)csv",
            R"(2021-03-31 -4.5
2021-03-30 1850
)"},
        Layout{
            "IndianNarration",
            R"csv(Date,Narration,Value Dat,Debit Amount,Credit Amount,Chq/Ref Number,Closing Balance
 31/03/21,UPI-BAKERY,31/03/21,4.50,0.00,0000012345,184995.50
 01/04/21,NEFT SALARY,01/04/21,0.00,"1,85,000.00",0000012346,"3,69,995.50"
)csv",
            R"(2021-03-31 -4.5
2021-04-01 185000
)"},
        Layout{"IndianWithSides",
               R"csv(Sl. No.,Date,Description,Chq / Ref number,Amount,Dr / Cr,Balance,Dr / Cr
1,31/03/2021,UPI BAKERY,UPI-1,4.50,DR,"1,845.50",CR
2,30/03/2021,SALARY,NEFT-2,"1,850.00",CR,"1,850.00",CR
)csv",
               R"(2021-03-31 -4.5
2021-03-30 1850
)"},
        Layout{"JapaneseInAndOut",
               R"csv("お取引日","お取引内容","お引出し","お預入れ","残高"
"2021/03/30","給与","","185,000円","185,000円"
"2021/03/31","カード","4,500円","","180,500円"
)csv",
               R"(2021-03-30 185000
2021-03-31 -4500
)"}),
    [](const auto& test) { return std::string(test.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Group4, CsvLayoutsTest,
    testing::Values(
        Layout{"ChineseInAndOut",
               R"csv(交易日期,摘要,收入,支出,余额
2021-03-30,工资,1850.00,,1850.00
2021-03-31,消费,,4.50,1845.50
)csv",
               R"(2021-03-30 1850
2021-03-31 -4.5
)"},
        Layout{"ChinesePaymentApp",
               R"csv(支付账单明细,,,,,,,,,,
起始时间：[2021-03-01 00:00:00] 终止时间：[2021-03-31 23:59:59],,,,,,,,,,
----------------------支付账单明细列表--------------------,,,,,,,,,,
交易时间,交易类型,交易对方,商品,收/支,金额(元),支付方式,当前状态,交易单号,商户单号,备注
2021-03-31 12:00:00,商户消费,面包店,"面包",支出,¥4.50,零钱,支付成功,"100000001	","200000001	","/"
2021-03-30 12:00:00,转账,朋友,"转账",收入,¥50.00,/,已存入零钱,"100000002	","200000002	","/"
)csv",
               R"(2021-03-31 -4.5
2021-03-30 50
)"},
        Layout{
            "RussianCard",
            R"csv("Дата операции";"Дата платежа";"Номер карты";"Статус";"Сумма операции";"Валюта операции";"Сумма платежа";"Валюта платежа";"Кэшбэк";"Категория";"MCC";"Описание";"Бонусы (включая кэшбэк)"
"31.03.2021 12:05:00";"01.04.2021";"*1234";"OK";"-10,00";"USD";"-750,00";"RUB";"";"Кафе";"5812";"Кафе";"0,00"
"30.03.2021 12:05:00";"30.03.2021";"*1234";"OK";"1000,00";"RUB";"1000,00";"RUB";"";"Пополнения";"";"Иван";"0,00"
"29.03.2021 12:05:00";"";"*1234";"FAILED";"-99,00";"RUB";"-99,00";"RUB";"";"Кафе";"";"Кафе";"0,00"
)csv",
            R"(2021-04-01 -750
2021-03-30 1000
)"},
        Layout{"IsraeliAccount",
               R"csv(תאריך,הפעולה,פרטים,אסמכתא,חובה,זכות,יתרה בש"ח
31/03/2021,כרטיס,,1234,4.50,,1845.50
30/03/2021,משכורת,,1235,,1850.00,1850.00
)csv",
               R"(2021-03-31 -4.5
2021-03-30 1850
)"},
        Layout{"SouthAfricanAccount",
               R"csv(Account Number,Date,Description,Amount,Balance
1234567890,20210330,SALARY,1850.00,1850.00
1234567890,20210331,BAKERY,-4.50,1845.50
)csv",
               R"(2021-03-30 1850
2021-03-31 -4.5
)"},
        Layout{"HungarianAccount",
               R"csv(Könyvelés dátuma;Értéknap;Összeg;Deviza;Közlemény
2021.03.31.;2021.03.31.;-4 500;HUF;Pék
2021.03.30.;2021.03.30.;185 000;HUF;Fizetés
2021.03.29.;2021.03.29.;-1 500;HUF;Kávé
)csv",
               R"(2021-03-31 -4500
2021-03-30 185000
2021-03-29 -1500
)"},
        Layout{
            "PaymentServiceWithGrossFeeNet",
            R"csv("Date","Time","TimeZone","Name","Type","Status","Currency","Gross","Fee","Net","From Email Address","To Email Address","Transaction ID","Balance"
"31/03/2021","12:05:00","BST","Buyer","Payment","Completed","GBP","100.00","-3.20","96.80","a@b","c@d","AB12345678","196.80"
"31/03/2021","13:05:00","BST","Seller","Payment","Completed","GBP","-50.00","0.00","-50.00","c@d","e@f","AB12345679","146.80"
"31/03/2021","14:05:00","BST","Other","Payment","Pending","GBP","10.00","0.00","10.00","c@d","e@f","AB12345680","146.80"
)csv",
            R"(2021-03-31 96.8
2021-03-31 -50
)"},
        Layout{
            "MoneyServiceWithFees",
            R"csv(Type,Product,Started Date,Completed Date,Description,Amount,Fee,Currency,State,Balance
CARD_PAYMENT,Current,2021-03-30 12:05:00,2021-03-31 12:05:00,Bakery,-4.50,0.00,GBP,COMPLETED,95.50
ATM,Current,2021-03-31 12:05:00,2021-04-01 12:05:00,Cash,-20.00,0.40,GBP,COMPLETED,75.10
CARD_PAYMENT,Current,2021-03-31 12:05:00,,Shop,-9.00,0.00,GBP,REVERTED,
TOPUP,Current,2021-04-01 12:05:00,2021-04-02 12:05:00,Top-up,100.00,1.00,GBP,COMPLETED,174.10
)csv",
            R"(2021-03-31 -4.5
2021-04-01 -20.4
2021-04-02 99
)"},
        Layout{
            "TransferServiceWithRunningBalance",
            R"csv("Transfer ID",Date,Amount,Currency,Description,"Payment Reference","Running Balance","Exchange From","Exchange To","Exchange Rate","Payer Name","Payee Name","Payee Account Number",Merchant,"Card Last Four Digits","Card Holder Full Name",Attachment,Note,"Total fees"
CARD-1234567,31-03-2021,-4.50,EUR,"Card transaction",,95.50,,,,,,,Bakery,1234,"A B",,,0.00
TRANSFER-1234568,30-03-2021,100.00,EUR,"Received money",,100.00,,,,"C D",,,,,,,,0.00
)csv",
            R"(2021-03-31 -4.5
2021-03-30 100
)"},
        Layout{"EachLineInQuotes",
               R"csv("Date,""Description"",Amount"
"31/03/2021,""BAKERY, MAIN ST"",-4.50"
"30/03/2021,""SALARY"",1850.00"
"29/03/2021,""CAFE"",-5.50"
)csv",
               R"(2021-03-31 -4.5
2021-03-30 1850
2021-03-29 -5.5
)"},
        Layout{"DelimiterInATextWithoutQuotes",
               R"csv(Date,Description,Amount,Balance
31/03/2021,BAKERY, MAIN ST,-4.50,1845.50
30/03/2021,SALARY,1850.00,1850.00
)csv",
               R"(2021-03-31 -4.5
2021-03-30 1850
)"},
        Layout{"FormulasThatKeepZeros",
               R"csv(sep=;
Datum;Konto;Text;Betrag
31.03.2021;="00012";Bäcker;-4,50
30.03.2021;="00012";Gehalt;1850,00
)csv",
               R"(2021-03-31 -4.5
2021-03-30 1850
)"},
        Layout{"UnsignedCardChargesWithCreditMarks",
               R"csv(Date,Description,Amount
03/31/2021,BAKERY,4.50
03/30/2021,PAYMENT,100.00 CR
03/29/2021,CAFE,5.50
)csv",
               R"(2021-03-31 -4.5
2021-03-30 100
2021-03-29 -5.5
)"}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace clb
