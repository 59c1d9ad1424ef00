#include "statements/messages/Mt940Subfields.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/Text.h"
#include "statements/messages/RowText.h"

namespace clb {
namespace {

/// Signs that banks put before the codes of subfields; those after the first four only after a
/// transaction code.
constexpr std::string_view kSigns = "?<~^>|!@#$;&+";
constexpr std::string_view kSureSigns = "?<~^";

/// Tags of SEPA in the purpose; SVWZ is the purpose itself.
constexpr std::array<std::string_view, 17> kTags = {
    "EREF+", "KREF+", "MREF+", "CRED+", "DEBT+", "COAM+", "OAMT+", "SVWZ+", "ABWA+",
    "ABWE+", "IBAN+", "BIC+",  "RREF+", "RTRN+", "PREF+", "PURP+", "ANAM+"};

constexpr std::size_t kLongestTag = 5;

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view TagAt(std::string_view text)
{
    if (text.substr(0, kLongestTag).find('+') == std::string_view::npos)
        return {};
    for (const std::string_view tag : kTags)
        if (text.starts_with(tag))
            return tag;
    return {};
}

struct Subfield {
    int code = 0;
    std::string_view text;
};

std::vector<Subfield> SubfieldsOf(std::string_view text, char sign)
{
    std::vector<Subfield> subfields;
    std::size_t begin = std::string_view::npos;
    for (std::size_t at = text.find(sign); at != std::string_view::npos;
         at = text.find(sign, at + 1)) {
        if (!IsSubfield(text.substr(at), sign))
            continue;
        if (begin != std::string_view::npos)
            subfields.back().text = text.substr(begin, at - begin);
        subfields.push_back({(text[at + 1] - '0') * 10 + (text[at + 2] - '0'), {}});
        begin = at + 3;
    }
    if (begin != std::string_view::npos)
        subfields.back().text = text.substr(begin);
    return subfields;
}

bool IsPurpose(int code)
{
    return (code >= 20 && code <= 29) || (code >= 60 && code <= 69);
}
bool IsName(int code)
{
    return code == 32 || code == 33;
}

/// How many characters a subfield holds before the next one continues it. German banks use 27, some
/// 35 or 65.
std::size_t WidthOf(const std::vector<Subfield>& subfields)
{
    std::size_t longest = 0;
    for (const Subfield& subfield : subfields)
        if (IsPurpose(subfield.code) || IsName(subfield.code))
            longest = std::max(longest, Length(subfield.text));
    return longest <= 27 ? 27 : longest <= 35 ? 35 : 65;
}

/// The texts of subfields as one: a full one goes on in the next.
template <typename Fits>
std::string Joined(const std::vector<Subfield>& subfields, const Fits& fits)
{
    const std::size_t width = WidthOf(subfields);
    std::string all;
    bool full = true;
    for (const Subfield& subfield : subfields) {
        if (!fits(subfield.code))
            continue;
        if (!full || !TagAt(subfield.text).empty())
            all += ' ';
        all += subfield.text;
        full = Length(subfield.text) >= width;
    }
    return all;
}

/// The parts of the purpose: first what is for people, then the tagged references.
void AddPurpose(RowText& text, const std::string& purpose)
{
    std::string plain;
    std::vector<std::pair<std::string_view, std::string_view>> tagged;
    const std::string_view all = purpose;
    std::size_t begin = 0;
    std::string_view tag;
    const auto end = [&](std::size_t at) {
        const std::string_view value = all.substr(begin, at - begin);
        if (tag.empty() || tag == "SVWZ+")
            plain += std::string(value) + ' ';
        else
            tagged.emplace_back(tag.substr(0, tag.size() - 1), value);
    };
    for (std::size_t at = 0; at < all.size(); ++at) {
        const std::string_view found =
            at == 0 || all[at - 1] == ' ' ? TagAt(all.substr(at)) : std::string_view();
        if (found.empty())
            continue;
        end(at);
        tag = found;
        begin = at + found.size();
    }
    end(all.size());
    text.Add(plain);
    for (const auto& [label, value] : tagged)
        text.Add(label, value);
}

/// Codes between slashes. The first seven lead to texts for people.
constexpr std::array<std::string_view, 46> kCodes = {
    "REMI", "USTD", "STRD", "NAME",    "CNTP", "ORDP", "BENM", "EREF", "MARF", "CSID",
    "IBAN", "BIC",  "TRTP", "TRCD",    "PREF", "IREF", "ADDR", "ISDT", "RTRN", "ULTC",
    "ULTD", "ULTB", "PURP", "OCMT",    "EXCH", "CHGS", "CHGF", "SVCL", "NRTX", "ID",
    "CUR",  "ISTR", "CUST", "CDTRREF", "CREF", "BTCH", "ACCW", "OAMT", "CAMT", "SWOC",
    "SWOD", "SUM",  "CPRP", "INIT",    "ORIG", "SWEEP"};

/// A code with its value.
struct Coded {
    std::string_view code;
    std::string_view value;
};

std::string_view CodeAt(std::string_view text)
{
    if (text.empty() || text[0] != '/')
        return {};
    const std::size_t end = text.substr(0, 9).find('/', 1);
    if (end == std::string_view::npos)
        return {};
    const std::string_view code = text.substr(1, end - 1);
    return IsCode(code) ? code : std::string_view();
}

std::string_view WithoutSlashes(std::string_view value)
{
    while (!value.empty() && (value.front() == '/' || value.front() == ' '))
        value.remove_prefix(1);
    while (!value.empty() && (value.back() == '/' || value.back() == ' '))
        value.remove_suffix(1);
    return value;
}

std::vector<Coded> CodedParts(std::string_view text)
{
    std::vector<Coded> parts;
    std::size_t begin = 0;
    for (std::size_t at = text.find('/'); at != std::string_view::npos;
         at = text.find('/', at + 1)) {
        const std::string_view code = CodeAt(text.substr(at));
        if (code.empty())
            continue;
        const std::string_view before = at > begin ? text.substr(begin, at - begin) : "";
        if (!parts.empty())
            parts.back().value = before;
        else if (!before.empty())
            parts.push_back({{}, before});
        parts.push_back({code, {}});
        begin = at + code.size() + 2;
        at = begin - 2;  // the slash that ends this code may begin the next
    }
    if (!parts.empty())
        parts.back().value = text.substr(begin);
    return parts;
}

/// The other party in one value: account, bank, name and town, with slashes between.
void AddCounterparty(std::string_view value, Mt940Description& described, RowText& rest)
{
    const std::vector<std::string> parts = Split(value, '/');
    for (std::size_t at = 0; at < parts.size(); ++at)
        if (at == 2 && described.name.empty())
            described.name = Squeezed(parts[at]);
        else
            rest.Add(parts[at]);
}

}  // namespace

bool IsSubfield(std::string_view text, char sign)
{
    return text.size() >= 3 && text[0] == sign && IsDigit(text[1]) && IsDigit(text[2]) &&
           text[1] != '4' && text[1] != '5' && text[1] <= '7';
}

std::optional<char> SubfieldSign(std::string_view text)
{
    const bool coded = text.size() > 3 && std::all_of(text.begin(), text.begin() + 3, IsDigit);
    std::string_view rest = text.substr(coded ? 3 : 0);
    rest.remove_prefix(std::min(rest.find_first_not_of(" \r\n"), rest.size()));
    if (rest.empty())
        return {};
    const std::string_view signs = coded ? kSigns : kSureSigns;
    const bool isSign = signs.find(rest[0]) != std::string_view::npos;
    return isSign && IsSubfield(rest, rest[0]) ? std::optional(rest[0]) : std::nullopt;
}

Mt940Description ReadSubfields(std::string_view text, char sign)
{
    const std::vector<Subfield> subfields = SubfieldsOf(text, sign);
    const auto only = [&subfields](int code) {
        return Squeezed(Joined(subfields, [code](int other) { return other == code; }));
    };
    Mt940Description described;
    described.name = Squeezed(Joined(subfields, IsName));
    const std::string kind = only(0);
    RowText rest;
    AddPurpose(rest, Joined(subfields, IsPurpose));
    if (described.name.empty())
        described.name = kind;
    else
        rest.Add(kind);
    rest.Add(only(38));
    rest.Add(only(31));
    rest.Add(only(30));
    rest.Add(Joined(subfields, [](int code) { return code >= 70; }));
    described.text = rest.Text();
    return described;
}

bool IsCode(std::string_view code)
{
    return std::find(kCodes.begin(), kCodes.end(), code) != kCodes.end();
}

bool HasCodes(std::string_view text)
{
    return !CodeAt(text).empty();
}

Mt940Description ReadCodes(std::string_view text)
{
    Mt940Description described;
    RowText purpose;
    RowText rest;
    for (const auto& [code, whole] : CodedParts(text)) {
        const std::string_view value = WithoutSlashes(whole);
        if (code == "NAME" && described.name.empty())
            described.name = Squeezed(value);
        else if (code == "CNTP")
            AddCounterparty(value, described, rest);
        else if (code == "REMI" || code == "USTD" || code == "STRD" || code.empty())
            purpose.Add(value);
        else if (code == "NAME" || code == "ORDP" || code == "BENM")
            rest.Add(value);
        else
            rest.Add(code, value);
    }
    purpose.Add(rest.Text());
    described.text = purpose.Text();
    return described;
}

}  // namespace clb
