#include "statements/ofx/OfxIdentifiers.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <string_view>

#include "base/Text.h"
#include "statements/ofx/OfxSurvey.h"

namespace clb {
namespace {

constexpr std::size_t kDayDigits = 8;

std::size_t Hash(std::string_view text)
{
    return std::hash<std::string_view>()(text);
}

std::size_t Mixed(std::size_t one, std::size_t other)
{
    return (one ^ (other + 0x9E3779B97F4A7C15U + (one << 6U) + (one >> 2U))) * 0xFF51AFD7ED558CCDU;
}

/// Whether the text says that there is no identifier.
bool IsPlaceholder(std::string_view text)
{
    if (text.find_first_not_of("0-") == std::string_view::npos)
        return true;
    constexpr std::string_view kWords[] = {"NONE", "N/A", "NULL", "NONREF"};
    return std::any_of(std::begin(kWords), std::end(kWords),
                       [text](std::string_view word) { return EqualsIgnoringCase(text, word); });
}

std::size_t ContentOf(const OfxEntry& entry)
{
    std::size_t content = Hash(StampOf(entry).substr(0, kDayDigits));
    for (const std::string_view part : {entry.amount, entry.name, entry.party, entry.extendedName,
                                        entry.memo, entry.check, entry.currency})
        content = Mixed(content, Hash(part));
    return content;
}

}  // namespace

void OfxIdentifiers::Add(std::size_t statement, const OfxEntry& entry)
{
    if (!entry.corrected.empty())
        corrections_.push_back({statement, Hash(entry.corrected), 0});
    if (!IsPlaceholder(entry.identifier))
        rows_.push_back({statement, Hash(entry.identifier), ContentOf(entry)});
}

std::size_t OfxIdentifiers::KeyOf(const OfxEntry& entry, std::size_t account)
{
    return Mixed(Hash(entry.identifier), account);
}

void OfxIdentifiers::Settle(const std::vector<std::size_t>& accounts)
{
    for (Row& row : rows_)
        row.identifier = Mixed(row.identifier, accounts.at(row.statement));
    std::sort(rows_.begin(), rows_.end(), [](const Row& one, const Row& other) {
        return one.identifier != other.identifier ? one.identifier < other.identifier
                                                  : one.content < other.content;
    });
    const Row* const end = rows_.data() + rows_.size();
    for (const Row* begin = rows_.data(); begin != end;) {
        const Row* const next = std::find_if(
            begin, end, [begin](const Row& row) { return row.identifier != begin->identifier; });
        SettleGroup(begin, next);
        begin = next;
    }
    for (const Row& row : corrections_)
        corrected_.push_back(Mixed(row.identifier, accounts.at(row.statement)));
    std::sort(corrected_.begin(), corrected_.end());
    rows_ = {};
    corrections_ = {};
}

/// Takes all rows with one identifier, in order of content.
void OfxIdentifiers::SettleGroup(const Row* begin, const Row* end)
{
    if (end - begin < 2)
        return;
    const bool differ = begin->content != (end - 1)->content;
    (differ ? reused_ : again_).push_back(begin->identifier);
}

IdentifierUse OfxIdentifiers::UseOf(const OfxEntry& entry, std::size_t account) const
{
    if (IsPlaceholder(entry.identifier))
        return IdentifierUse::None;
    const std::size_t key = KeyOf(entry, account);
    const auto holds = [key](const std::vector<std::size_t>& keys) {
        return std::binary_search(keys.begin(), keys.end(), key);
    };
    if (holds(corrected_))
        return IdentifierUse::Corrected;
    if (holds(reused_))
        return IdentifierUse::Reused;
    return holds(again_) ? IdentifierUse::Again : IdentifierUse::Once;
}

}  // namespace clb
