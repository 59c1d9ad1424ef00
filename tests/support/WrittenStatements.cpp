#include "tests/support/WrittenStatements.h"

#include <algorithm>

#include "base/Text.h"

namespace clb {
namespace {

using Rows = std::vector<WrittenRow>;

std::string Unsigned(const Money& amount)
{
    return (amount.IsNegative() ? -amount : amount).ToText();
}

/// With two decimals and this mark.
std::string Decimals(const Money& amount, const std::string& mark)
{
    return Replace(Replace(amount.Grouped(), ",", ""), ".", mark);
}

/// The parts of a date: "2024", "03", "07".
struct Day {
    explicit Day(const Date& date)
        : year(date.ToIso().substr(0, 4)),
          month(date.ToIso().substr(5, 2)),
          day(date.ToIso().substr(8, 2))
    {
    }
    std::string year;
    std::string month;
    std::string day;
};

Money SumOf(const Rows& rows)
{
    Money sum;
    for (const WrittenRow& row : rows)
        sum += row.amount;
    return sum;
}

std::string Markup(const std::string& text)
{
    return Replace(Replace(Replace(text, "&", "&amp;"), "<", "&lt;"), ">", "&gt;");
}

std::string Element(const char* tag, const std::string& value, bool closed, const char* after)
{
    return std::string("<") + tag + ">" + value +
           (closed ? std::string("</") + tag + ">" : std::string()) + after;
}

std::string OfxBody(const std::string& account, const Rows& rows, bool closed, const char* after)
{
    std::string text =
        std::string("<OFX>") + after + "<BANKMSGSRSV1><STMTTRNRS><STMTRS>" +
        Element("CURDEF", "EUR", closed, after) + "<BANKACCTFROM>" +
        Element("BANKID", "1", closed, after) + Element("ACCTID", account, closed, after) +
        Element("ACCTTYPE", "CHECKING", closed, after) + "</BANKACCTFROM><BANKTRANLIST>" + after;
    for (const WrittenRow& row : rows) {
        const Day day(row.date);
        text += "<STMTTRN>" + Element("TRNTYPE", "OTHER", closed, after) +
                Element("DTPOSTED", day.year + day.month + day.day, closed, after) +
                Element("TRNAMT", Decimals(row.amount, "."), closed, after);
        if (!row.identifier.empty())
            text += Element("FITID", row.identifier, closed, after);
        text += Element("NAME", Markup(row.name), closed, after) +
                Element("MEMO", Markup(row.text), closed, after) + "</STMTTRN>" + after;
    }
    return text + "</BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>" + after;
}

std::string OfxSgml(const std::string& account, const Rows& rows)
{
    return "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\nSECURITY:NONE\r\nENCODING:UTF-8\r\n"
           "CHARSET:NONE\r\nCOMPRESSION:NONE\r\nOLDFILEUID:NONE\r\nNEWFILEUID:NONE\r\n\r\n" +
           OfxBody(account, rows, false, "\r\n");
}

std::string OfxOneLine(const std::string& account, const Rows& rows)
{
    return OfxBody(account, rows, false, "");
}

std::string OfxXml(const std::string& account, const Rows& rows)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<?OFX OFXHEADER=\"200\" "
           "VERSION=\"220\"?>\n" +
           OfxBody(account, rows, true, "\n");
}

std::string Qif(const std::string& account, const Rows& rows, bool dayFirst)
{
    std::string text = "!Account\nN" + account + "\nTBank\n^\n!Type:Bank\n";
    for (const WrittenRow& row : rows) {
        const Day day(row.date);
        text += "D" + (dayFirst ? day.day + "." + day.month + "." + day.year
                                : day.month + "/" + day.day + "'" + day.year.substr(2));
        text += "\nT" + Decimals(row.amount, dayFirst ? "," : ".") + "\nP" + row.name + "\nM" +
                row.text + "\n^\n";
    }
    return text;
}

std::string QifMonthFirst(const std::string& account, const Rows& rows)
{
    return Qif(account, rows, false);
}

std::string QifDayFirst(const std::string& account, const Rows& rows)
{
    return Qif(account, rows, true);
}

std::string Cell(const std::string& text)
{
    return "\"" + Replace(text, "\"", "\"\"") + "\"";
}

std::string CsvSigned(const std::string& account, const Rows& rows)
{
    std::string text = "Account number,Date,Amount,Payee,Memo\n";
    for (const WrittenRow& row : rows)
        text += account + "," + row.date.ToIso() + "," + Decimals(row.amount, ".") + "," +
                Cell(row.name) + "," + Cell(row.text) + "\n";
    return text;
}

std::string CsvGerman(const std::string& account, const Rows& rows)
{
    std::string text = "Kontonummer;Buchungstag;Empf\xC3\xA4nger;Verwendungszweck;Betrag\r\n";
    for (const WrittenRow& row : rows) {
        const Day day(row.date);
        text += account + ";" + day.day + "." + day.month + "." + day.year + ";" + Cell(row.name) +
                ";" + Cell(row.text) + ";" + Decimals(row.amount, ",") + "\r\n";
    }
    return text;
}

std::string CsvInAndOut(const std::string& account, const Rows& rows)
{
    std::string text = "Account number\tDate\tPayee\tMemo\tPaid out\tPaid in\n";
    for (const WrittenRow& row : rows) {
        const Day day(row.date);
        const std::string amount =
            Decimals(row.amount.IsNegative() ? -row.amount : row.amount, ".");
        text += account + "\t" + day.day + "/" + day.month + "/" + day.year + "\t" +
                Cell(row.name) + "\t" + Cell(row.text) + "\t" +
                (row.amount.IsNegative() ? amount + "\t" : "\t" + amount) + "\n";
    }
    return text;
}

std::string CamtBalance(const char* code, const Money& amount)
{
    return std::string("<Bal><Tp><CdOrPrtry><Cd>") + code +
           "</Cd></CdOrPrtry></Tp><Amt Ccy=\"EUR\">" + Unsigned(amount) + "</Amt><CdtDbtInd>" +
           (amount.IsNegative() ? "DBIT" : "CRDT") +
           "</CdtDbtInd><Dt><Dt>2024-01-01</Dt></Dt></Bal>";
}

std::string Camt(const std::string& account, const Rows& rows)
{
    std::string text =
        "<?xml version=\"1.0\"?><Document xmlns=\"urn:iso:std:iso:20022:tech:xsd:camt.053.001.02\">"
        "<BkToCstmrStmt><Stmt><Acct><Id><Othr><Id>" +
        account + "</Id></Othr></Id><Ccy>EUR</Ccy></Acct>" + CamtBalance("OPBD", Money()) +
        CamtBalance("CLBD", SumOf(rows));
    for (const WrittenRow& row : rows) {
        const std::string side = row.amount.IsNegative() ? "Cdtr" : "Dbtr";
        text += "<Ntry><Amt Ccy=\"EUR\">" + Unsigned(row.amount) + "</Amt><CdtDbtInd>" +
                (row.amount.IsNegative() ? "DBIT" : "CRDT") +
                "</CdtDbtInd><Sts>BOOK</Sts><BookgDt><Dt>" + row.date.ToIso() + "</Dt></BookgDt>";
        if (!row.identifier.empty())
            text += "<AcctSvcrRef>" + row.identifier + "</AcctSvcrRef>";
        text += "<NtryDtls><TxDtls><RltdPties><" + side + "><Nm>" + Markup(row.name) + "</Nm></" +
                side + "></RltdPties><RmtInf><Ustrd>" + Markup(row.text) +
                "</Ustrd></RmtInf></TxDtls></NtryDtls></Ntry>";
    }
    return text + "</Stmt></BkToCstmrStmt></Document>";
}

std::string WithComma(const Money& amount)
{
    const std::string text = Replace(Unsigned(amount), ".", ",");
    return text.find(',') == std::string::npos ? text + "," : text;
}

std::string Mt940Balance(const char* tag, const Money& amount)
{
    return std::string(":") + tag + ":" + (amount.IsNegative() ? "D" : "C") + "240101EUR" +
           WithComma(amount) + "\r\n";
}

std::string Mt940(const std::string& account, const Rows& rows)
{
    std::string text =
        ":20:STATEMENT\r\n:25:" + account + "\r\n:28C:1/1\r\n" + Mt940Balance("60F", Money());
    for (const WrittenRow& row : rows) {
        const Day day(row.date);
        text += ":61:" + day.year.substr(2) + day.month + day.day + day.month + day.day +
                (row.amount.IsNegative() ? "D" : "C") + WithComma(row.amount) + "NMSCNONREF" +
                (row.identifier.empty() ? "" : "//" + row.identifier) +
                "\r\n:86:166?00TRANSFER?20" + row.text + "?32" + row.name + "\r\n";
    }
    return text + Mt940Balance("62F", SumOf(rows)) + "-\r\n";
}

}  // namespace

const std::vector<Dialect>& Dialects()
{
    static const StatementAnswers monthFirst = {.dateOrder = DateText::Order::MonthDayYear,
                                                .inverted = false};
    static const StatementAnswers dayFirst = {.dateOrder = DateText::Order::DayMonthYear,
                                              .inverted = false};
    static const std::vector<Dialect> dialects = {
        {"OfxSgml", OfxSgml, true, {}},
        {"OfxOneLine", OfxOneLine, true, {}},
        {"OfxXml", OfxXml, true, {}},
        {"QifMonthFirst", QifMonthFirst, false, monthFirst},
        {"QifDayFirst", QifDayFirst, false, dayFirst},
        {"CsvSigned", CsvSigned, false, monthFirst},
        {"CsvGerman", CsvGerman, false, dayFirst},
        {"CsvInAndOut", CsvInAndOut, false, dayFirst},
        {"Camt053", Camt, true, {}},
        {"Mt940", Mt940, true, {}}};
    return dialects;
}

std::string WrittenRows::Words()
{
    static const std::vector<std::string> words = {"Baker", "Caf\xC3\xA9", "A&B",  "M\xC3\xBCller",
                                                   "Inn",   "O'Hara",      "No.5", "x-y"};
    std::string text;
    for (int count = Number(1, 2); count > 0; --count)
        text +=
            " " + words[static_cast<std::size_t>(Number(0, static_cast<int>(words.size()) - 1))];
    return text;
}

std::vector<WrittenRow> WrittenRows::Make(bool identified)
{
    std::vector<WrittenRow> rows;
    for (int count = Number(1, 20); count > 0; --count) {
        if (!rows.empty() && Number(0, 5) == 0) {
            rows.push_back(
                rows[static_cast<std::size_t>(Number(0, static_cast<int>(rows.size()) - 1))]);
            continue;
        }
        WrittenRow row;
        row.date = *Date::Of(2024, Number(1, 2), Number(1, 28));
        const int cents = Number(1, 500000) * (Number(0, 1) == 0 ? -1 : 1);
        row.amount = Money::FromScaled(cents * 100LL);
        row.name = "N" + Words();
        row.text = "T" + Words();
        rows.push_back(row);
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const auto& one, const auto& other) { return one.date < other.date; });
    if (identified)
        Identify(rows);
    return rows;
}

void WrittenRows::Identify(std::vector<WrittenRow>& rows)
{
    const int shared = Number(0, 5);
    for (std::size_t at = 0; at < rows.size(); ++at) {
        rows[at].identifier = "REF" + std::to_string(100000 + at);
        if (at == 0 || Number(0, 9) >= shared)
            continue;
        const WrittenRow& other =
            rows[static_cast<std::size_t>(Number(0, static_cast<int>(at) - 1))];
        const bool distinct = std::none_of(
            rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(at), [&](const auto& row) {
                return row.identifier == other.identifier && row.amount == rows[at].amount;
            });
        if (distinct)
            rows[at].identifier = other.identifier;
    }
}

}  // namespace clb
