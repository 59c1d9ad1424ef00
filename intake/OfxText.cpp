#include "intake/OfxText.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/Text.h"

namespace clb {
namespace {

constexpr const char* kHeader =
    "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\nSECURITY:NONE\r\nENCODING:UTF-8\r\n"
    "COMPRESSION:NONE\r\nOLDFILEUID:NONE\r\nNEWFILEUID:NONE\r\n\r\n";
constexpr const char* kEnd = "</BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>\r\n";

bool EndsValue(char c)
{
    return c == '<' || c == '\r' || c == '\n';
}

bool IsCarried(std::string_view text)
{
    // Three searches for one byte are quicker than one for three.
    return text.find('<') == std::string_view::npos && text.find('\r') == std::string_view::npos &&
           text.find('\n') == std::string_view::npos;
}

/// Appends a value, which ends at the next tag or line end.
void AppendValue(std::string& text, std::string_view value)
{
    text += value;
    if (!IsCarried(value))
        std::replace_if(text.end() - static_cast<std::ptrdiff_t>(value.size()), text.end(),
                        EndsValue, ' ');
}

std::string Value(std::string_view text)
{
    std::string value;
    AppendValue(value, text);
    return value;
}

void AppendDay(std::string& text, const Date& date)
{
    for (const char c : date.ToIso().substr(0, 10))
        if (c != '-')
            text += c;
}

}  // namespace

std::string DescriptionOf(const StatementRow& row)
{
    return std::string(Trim(row.name.empty() ? row.text : row.name));
}

std::string NotesOf(const StatementRow& row)
{
    return row.name.empty() ? std::string() : std::string(Trim(row.text));
}

OfxText::OfxText(const std::string& accountID, const StatementAccount& account)
    : head_(std::string(kHeader) + "<OFX><BANKMSGSRSV1><STMTTRNRS><STMTRS><CURDEF>" +
            Value(account.currency) + "\r\n<BANKACCTFROM><BANKID>" + Value(account.bank) +
            "\r\n<ACCTID>" + Value(accountID) +
            "\r\n<ACCTTYPE>CHECKING\r\n</BANKACCTFROM><BANKTRANLIST>\r\n"),
      text_(head_)
{
}

void OfxText::Add(const StatementRow& row, const std::string& identifier)
{
    text_ += row.checkNumber.empty() ? "<STMTTRN><TRNTYPE>OTHER" : "<STMTTRN><TRNTYPE>CHECK";
    text_ += "\r\n<DTPOSTED>";
    AppendDay(text_, row.date);
    text_ += "\r\n<TRNAMT>";
    text_ += row.amount.ToText();
    text_ += "\r\n<FITID>";
    text_ += identifier;
    if (!row.checkNumber.empty()) {
        text_ += "\r\n<CHECKNUM>";
        AppendValue(text_, row.checkNumber);
    }
    text_ += "\r\n<NAME>";
    AppendValue(text_, Trim(row.name.empty() ? row.text : row.name));
    text_ += "\r\n<MEMO>";
    if (!row.name.empty())
        AppendValue(text_, Trim(row.text));
    text_ += "\r\n</STMTTRN>\r\n";
    ++rows_;
}

std::string OfxText::Take()
{
    text_ += kEnd;
    rows_ = 0;
    return std::exchange(text_, head_);
}

bool OfxText::CanCarry(const StatementRow& row)
{
    return row.category.empty() && row.pieces.empty() && IsCarried(row.name) &&
           IsCarried(row.text) && IsCarried(row.checkNumber);
}

}  // namespace clb
