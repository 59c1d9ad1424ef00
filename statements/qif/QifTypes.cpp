#include "statements/qif/QifTypes.h"

#include <string>

#include "base/Text.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

struct Known {
    std::string_view name;  ///< capitals and digits only
    QifType type;
};

constexpr QifType kList{"", false, true};
constexpr QifType kInvestment{"Investment", true, false};
constexpr QifType kCredit{"Credit Card", false, false};

constexpr Known kKnown[] = {
    {"BANK", {"Bank", false, false}},
    {"CASH", {"Cash", false, false}},
    {"CCARD", kCredit},
    {"CREDITCARD", kCredit},
    {"OTHA", {"Bank", false, false}},
    {"OTHL", kCredit},
    {"INVST", kInvestment},
    {"PORT", kInvestment},
    {"401K", kInvestment},
    {"401K403B", kInvestment},
    {"MUTUAL", kInvestment},
    {"CAT", kList},
    {"CLASS", kList},
    {"TAG", kList},
    {"MEMORIZED", kList},
    {"PRICES", kList},
    {"SECURITY", kList},
    {"BUDGET", kList},
    {"INVITEM", kList},
    {"TEMPLATE", kList},
    {"PAYEE", kList},
};

/// The capitals and digits of a name.
std::string Plain(std::string_view name)
{
    std::string plain;
    for (const char c : ToUpperAscii(name))
        if (IsDigit(static_cast<unsigned char>(c)) || (c >= 'A' && c <= 'Z'))
            plain += c;
    return plain;
}

bool BeginsWith(std::string_view line, std::string_view start)
{
    return EqualsIgnoringCase(line.substr(0, start.size()), start);
}

}  // namespace

QifHeader ReadQifHeader(std::string_view line)
{
    if (BeginsWith(line, "!Account"))
        return {QifHeader::Kind::Account};
    if (BeginsWith(line, "!Clear"))
        return {QifHeader::Kind::Clear};
    if (!BeginsWith(line, "!Type"))
        return {};
    std::string_view name = TrimSpaces(line.substr(5));
    if (name.starts_with(':'))
        name.remove_prefix(1);
    return {QifHeader::Kind::Type, TrimSpaces(name)};
}

QifType FindQifType(std::string_view name)
{
    const std::string plain = Plain(name);
    for (const Known& known : kKnown)
        if (known.name == plain)
            return known.type;
    return {};
}

}  // namespace clb
