#include "intake/OfxText.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "base/Text.h"

namespace clb {
namespace {

constexpr const char* kHeader =
    "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\nSECURITY:NONE\r\nENCODING:UTF-8\r\n"
    "COMPRESSION:NONE\r\nOLDFILEUID:NONE\r\nNEWFILEUID:NONE\r\n\r\n";
constexpr const char* kEnd = "</BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>\r\n";
/// What the import keeps of a memo.
constexpr std::size_t kMemoLength = 50;

/// A value ends at the next tag or line end.
std::string Value(std::string_view text)
{
    std::string value(text);
    std::replace_if(
        value.begin(), value.end(), [](char c) { return c == '<' || c == '\r' || c == '\n'; }, ' ');
    return value;
}

bool IsCarried(const std::string& text)
{
    return text.find_first_of("<\r\n") == std::string::npos;
}

std::string Day(const Date& date)
{
    char text[16];
    std::snprintf(text, sizeof text, "%04d%02d%02d", date.Year(), date.Month(), date.Day());
    return text;
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
    text_ += "\r\n<DTPOSTED>" + Day(row.date) + "\r\n<TRNAMT>" + row.amount.ToText() +
             "\r\n<FITID>" + identifier;
    if (!row.checkNumber.empty())
        text_ += "\r\n<CHECKNUM>" + Value(row.checkNumber);
    text_ += "\r\n<NAME>" + Value(DescriptionOf(row)) + "\r\n<MEMO>" + Value(NotesOf(row)) +
             "\r\n</STMTTRN>\r\n";
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
           IsCarried(row.text) && IsCarried(row.checkNumber) && Length(NotesOf(row)) <= kMemoLength;
}

}  // namespace clb
