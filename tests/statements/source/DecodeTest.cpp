#include <gtest/gtest.h>
#include <iconv.h>

#include "statements/form/StatementReader.h"
#include "statements/source/SourceFile.h"

namespace clb {
namespace {

/// A UTF-8 text in another encoding.
std::string In(const std::string& encoding, std::string text)
{
    iconv_t open = iconv_open(encoding.c_str(), "UTF-8");
    std::string out(text.size() * 4 + 16, '\0');
    char* in = text.data();
    char* to = out.data();
    std::size_t left = text.size();
    std::size_t room = out.size();
    EXPECT_EQ(iconv(open, &in, &left, &to, &room), 0U) << encoding << ": " << text;
    iconv_close(open);
    out.resize(out.size() - room);
    return out;
}

const char* const kGerman =
    ":86:166?20Miete für März?32Jürgen Müßig\n:86:Größe, Überweisung, Gebühr\n";

TEST(DecodeTest, Utf8NeedsNoMark)
{
    EXPECT_EQ(DecodeStatement("Käse"), "Käse");
    EXPECT_EQ(DecodeStatement("\xEF\xBB\xBFKäse"), "Käse");
    EXPECT_EQ(DecodeStatement(""), "");
    EXPECT_EQ(DecodeStatement("plain"), "plain");
}

TEST(DecodeTest, Utf16NeedsNoMark)
{
    for (const char* const name : {"UTF-16LE", "UTF-16BE"}) {
        const std::string text = "Date,Amount\n2026-03-05,\"Łódź 12.50\"\n";
        EXPECT_EQ(DecodeStatement(In(name, text)), text) << name;
        EXPECT_EQ(DecodeStatement(In(name, "\xEF\xBB\xBF" + text)), text) << name;
    }
    EXPECT_EQ(DecodeStatement(In("UTF-32LE", "\xEF\xBB\xBFKäse")), "Käse");
}

TEST(DecodeTest, AnXmlDeclarationSaysTheEncoding)
{
    for (const char* const name :
         {"ISO-8859-2", "windows-1251", "ISO-8859-15", "GB2312", "Shift_JIS", "iso-8859-7"}) {
        const std::string letters = name == std::string("ISO-8859-2")     ? "Žluťoučký kůň"
                                    : name == std::string("windows-1251") ? "Оплата"
                                    : name == std::string("ISO-8859-15")  ? "5 €"
                                    : name == std::string("GB2312")       ? "联通"
                                    : name == std::string("Shift_JIS")    ? "カード"
                                                                          : "Πληρωμή";
        const std::string text =
            "<?xml version=\"1.0\" encoding='" + std::string(name) + "'?><a>" + letters + "</a>";
        EXPECT_EQ(DecodeStatement(In(name, text)), text);
    }
}

TEST(DecodeTest, AnOfxHeaderSaysTheEncoding)
{
    const auto header = [](const std::string& encoding, const std::string& charset) {
        return "OFXHEADER:100\r\nDATA:OFXSGML\r\nENCODING:" + encoding + "\r\nCHARSET:" + charset +
               "\r\n\r\n<OFX>";
    };
    const std::string western = header("USASCII", "1252") + "Café 5 €";
    EXPECT_EQ(DecodeStatement(In("CP1252", western)), western);
    const std::string central = header("USASCII", "1250") + "Žluťoučký";
    EXPECT_EQ(DecodeStatement(In("CP1250", central)), central);
    const std::string latin = header("USASCII", "8859-1") + "Café";
    EXPECT_EQ(DecodeStatement(In("ISO-8859-1", latin)), latin);
    const std::string wide = header("UNICODE", "NONE") + "Café";
    EXPECT_EQ(DecodeStatement(In("UTF-16LE", wide)), wide);
    const std::string none = header("UTF-8", "NONE") + "Café";
    EXPECT_EQ(DecodeStatement(none), none);
}

// Many banks write a header from long ago over texts of today.
TEST(DecodeTest, ValidUtf8IsNotWhatAHeaderOfSingleBytesSays)
{
    const std::string text = "ENCODING:USASCII\r\nCHARSET:1252\r\n<OFX>Müller";
    EXPECT_EQ(DecodeStatement(text), text);
    EXPECT_EQ(DecodeStatement("<?xml version='1.0' encoding='ISO-8859-1'?><a>é</a>"),
              "<?xml version='1.0' encoding='ISO-8859-1'?><a>é</a>");
}

TEST(DecodeTest, AWrongDeclarationIsNotBelieved)
{
    const std::string text = "<?xml version='1.0' encoding='UTF-8'?><a>Größe für Müller</a>";
    EXPECT_EQ(DecodeStatement(In("CP1252", text)), text);
    const std::string unknown = "<?xml version='1.0' encoding='X-NOT-KNOWN'?><a>Größe</a>";
    EXPECT_EQ(DecodeStatement(In("CP1252", unknown)), unknown);
}

// Some banks cut texts after so many bytes.
TEST(DecodeTest, Utf8MayHaveCutCharacters)
{
    EXPECT_EQ(DecodeStatement("Zażółć gęślą ja\xC5;Köln\n"), "Zażółć gęślą ja\xEF\xBF\xBD;Köln\n");
    EXPECT_EQ(DecodeStatement("Größe für M\xC3"), "Größe für M\xEF\xBF\xBD");
}

TEST(DecodeTest, WesternTextsAreWindows1252)
{
    for (const char* const text :
         {kGerman, "Café\n", "5 €\n", "Señor Muñoz, año\n", "l’été à Orléans, où ça\n",
          "Bjørn Åse Sørensen\n", "É\n", "ü\n", "João São Paulo, depósito e transferência\n",
          "“Quoted” – dash\n", "£5\n"})
        EXPECT_EQ(DecodeStatement(In("CP1252", text)), text);
}

TEST(DecodeTest, TextsOfDosAreCodePage850)
{
    for (const char* const text :
         {kGerman, "MÜLLER STRAßE\n", "Grüße\n", "Café à Genève, payé le 5 août\n"})
        EXPECT_EQ(DecodeStatement(In("CP850", text)), text);
}

TEST(DecodeTest, OtherScriptsAreFoundByTheWholeFile)
{
    const std::pair<const char*, const char*> cases[] = {
        {"CP1251",
         "Дата;Сумма;Описание операции\n01.03.2026;-500,00;Оплата товаров и услуг, "
         "Пятёрочка Москва\n02.03.2026;12000,00;Перевод от Ивана Петровича\n"},
        {"KOI8-R",
         "Дата;Сумма;Описание операции\n01.03.2026;-500,00;Оплата товаров и услуг, "
         "магазин в Москве\n02.03.2026;12000,00;Перевод от Ивана Петровича\n"},
        {"GB18030", "交易时间,交易类型,交易对方,商品,金额\n2026-03-05,转账,张三,餐饮费用,¥12.50\n"},
        {"CP932",
         "日付,内容,金額\n2026/03/05,クレジットカード引き落とし,12500\n"
         "2026/03/06,電気料金,8000\n"},
        {"BIG5",
         "交易日期,摘要,支出金額,存入金額\n2026/03/05,轉帳支出,500,\n2026/03/06,薪資轉入,,50000\n"},
        {"EUC-KR", "거래일자,적요,출금액,입금액,잔액\n2026-03-05,체크카드 결제,5000,0,100000\n"},
        {"CP1253",
         "Ημερομηνία;Περιγραφή;Ποσό\n05/03/2026;Πληρωμή λογαριασμού ηλεκτρικού;-50,00\n"
         "06/03/2026;Μεταφορά από λογαριασμό ταμιευτηρίου;100,00\n"}};
    for (const auto& [name, text] : cases)
        EXPECT_EQ(DecodeStatement(In(name, text)), text) << name;
}

TEST(DecodeTest, CentralEuropeanTextsAreFoundByTheWholeFile)
{
    const std::string polish =
        "Data operacji;Opis operacji;Kwota\n2026-03-05;Płatność kartą w sklepie spożywczym, "
        "Łódź;-12,50\n2026-03-06;Przelew przychodzący od Żanety Wiśniewskiej;100,00\n"
        "2026-03-07;Opłata za prowadzenie rachunku bieżącego;-5,00\n";
    EXPECT_EQ(DecodeStatement(In("CP1250", polish)), polish);
    EXPECT_EQ(DecodeStatement(In("ISO-8859-2", polish)), polish);
    const std::string czech =
        "Datum;Popis;Částka\n5.3.2026;Příchozí platba od zaměstnavatele, výplata mzdy;100,00\n"
        "6.3.2026;Trvalý příkaz, nájemné za březen, Žižkov;-12,50\n7.3.2026;Výběr z bankomatu, "
        "Hradec Králové;-500,00\n";
    EXPECT_EQ(DecodeStatement(In("CP1250", czech)), czech);
    const std::string hungarian =
        "Könyvelés dátuma;Összeg;Közlemény\n2026.03.05;-1250;Kártyás vásárlás, élelmiszerüzlet\n"
        "2026.03.06;100000;Jóváírás, munkabér, őszi időszak\n2026.03.07;-500;Számlavezetési díj, "
        "gyűjtőszámla\n";
    EXPECT_EQ(DecodeStatement(In("CP1250", hungarian)), hungarian);
}

TEST(DecodeTest, TheEncodingGivenWins)
{
    EXPECT_EQ(DecodeStatement("K\x84se", "cp437"), "Käse");
    EXPECT_EQ(DecodeStatement("K\xE4se", "ISO-8859-1"), "Käse");
    EXPECT_EQ(DecodeStatement("Käse", "utf-8"), "Käse");
    EXPECT_EQ(DecodeStatement("a\xFF\xFE"
                              "b",
                              "utf-8"),
              "a\xEF\xBF\xBD\xEF\xBF\xBD"
              "b");
    EXPECT_THROW((void)DecodeStatement("x", "no-such-encoding"), NotAStatement);
}

TEST(DecodeTest, CodesBeyondUnicodeAreReplaced)
{
    EXPECT_EQ(DecodeStatement("\xEF\xBB\xBF"
                              "a\xF5\xBC\xB7\x91"
                              "b"),
              "a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"
              "b");
    EXPECT_EQ(DecodeStatement("\xED\xA0\x80", "utf-8"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(DecodeTest, ABinaryFileIsRefused)
{
    const auto refusal = [](const std::string& bytes) -> std::string {
        try {
            (void)DecodeStatement(bytes);
        } catch (const NotAStatement& refused) {
            return refused.what();
        }
        return "none";
    };
    EXPECT_EQ(refusal("%PDF-1.4 ..."), "The file is a PDF document.");
    EXPECT_EQ(refusal("\x89PNG\r\n"), "The file is a picture.");
    EXPECT_EQ(refusal(std::string("a\x01\x02\x00\x03\x04\x05\x06\x07\x08\x0E\x0F\x10\x11", 14)),
              "The file is not a text.");
}

TEST(DecodeTest, SingleControlCharactersAreText)
{
    const std::string text = "\x01{1:F01}" + std::string(500, 'x') + std::string(1, '\0') + "\x1A";
    EXPECT_EQ(DecodeStatement(text), text);
}

}  // namespace
}  // namespace clb
