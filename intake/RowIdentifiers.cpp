#include "intake/RowIdentifiers.h"

#include <algorithm>
#include <functional>

#include "intake/Digest.h"
#include "intake/RowTexts.h"

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
    std::string digest = Sha256(content);
    digest.resize(kDigits);
    for (char& digit : digest)
        digit = digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
    return digest;
}

}  // namespace

std::string RowIdentifiers::Content(const StatementRow& row) const
{
    return account_ + '\n' + row.date.ToIso() + '\n' + row.amount.ToText() + '\n' +
           row.checkNumber + '\n' + Comparable(row.name) + '\n' + Comparable(row.text);
}

std::string RowIdentifiers::Digest(const StatementRow& row, const std::string& identifier) const
{
    return Hashed(identifier.empty() ? Content(row) : identifier + '\n' + Content(row));
}

std::string RowIdentifiers::Make(const StatementRow& row)
{
    std::string digest = Digest(row, row.sharedIdentifier);
    std::uint32_t place = equals_.Add(std::hash<std::string>()(digest));
    // The first has the number that Further gives if the row is in a file without the others.
    if (!row.sharedIdentifier.empty())
        --place;
    return digest.append("-").append(std::to_string(place));
}

std::string RowIdentifiers::OfBank(const std::string& identifier)
{
    return IsPlain(identifier) ? identifier : Hashed(identifier);
}

std::string RowIdentifiers::Further(const StatementRow& row) const
{
    return Digest(row, row.identifier) + "-0";
}

}  // namespace clb
