#include "intake/RowIdentifiers.h"

#include <algorithm>
#include <functional>

#include "base/Text.h"
#include "intake/Digest.h"

namespace clb {
namespace {

constexpr std::size_t kDigits = 24;

bool IsPlain(const std::string& identifier)
{
    return std::all_of(identifier.begin(), identifier.end(), [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
    });
}

std::string Hashed(std::string_view content)
{
    return ToUpperAscii(Sha256(content).substr(0, kDigits));
}

}  // namespace

std::string Comparable(std::string_view text)
{
    std::string folded;
    folded.reserve(text.size());
    for (const char c : text) {
        const bool blank = c == ' ' || c == '\t' || c == '\r' || c == '\n';
        if (!blank)
            folded += c;
        else if (!folded.empty() && folded.back() != ' ')
            folded += ' ';
    }
    if (!folded.empty() && folded.back() == ' ')
        folded.pop_back();
    return ToUpperAscii(folded);
}

std::string RowIdentifiers::Content(const StatementRow& row) const
{
    return account_ + '\n' + row.date.ToIso() + '\n' + row.amount.ToText() + '\n' +
           row.checkNumber + '\n' + Comparable(row.name) + '\n' + Comparable(row.text);
}

std::string RowIdentifiers::Make(const StatementRow& row)
{
    const std::string digest = Hashed(Content(row));
    return digest + "-" + std::to_string(equals_.Add(std::hash<std::string>()(digest)));
}

std::string RowIdentifiers::OfBank(const std::string& identifier)
{
    return IsPlain(identifier) ? identifier : Hashed(identifier);
}

std::string RowIdentifiers::Further(const StatementRow& row) const
{
    return Hashed(row.identifier + '\n' + Content(row)) + "-0";
}

}  // namespace clb
