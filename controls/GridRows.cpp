#include "controls/GridRows.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "controls/GridSource.h"

namespace clb {
namespace {

constexpr const char* kKeyField = "Sequence";

/// Evaluates a heading's expression: names and quoted texts joined by "&".
std::string Evaluate(const std::string& expression, const std::string& value, std::size_t children)
{
    std::string text;
    std::size_t at = 0;
    while (at < expression.size()) {
        if (expression[at] == '\'') {
            const std::size_t end = std::min(expression.find('\'', at + 1), expression.size());
            text += expression.substr(at + 1, end - at - 1);
            at = end + 1;
        } else if (expression[at] == '&' || expression[at] == ' ') {
            ++at;
        } else {
            const std::size_t end =
                std::min(expression.find_first_of(" &'", at), expression.size());
            const std::string name = expression.substr(at, end - at);
            text += name == "GroupingValue"     ? value
                    : name == "TotalChildCount" ? std::to_string(children)
                                                : std::string();
            at = end;
        }
    }
    return text;
}

const std::string kNoGroup;

}  // namespace

void GridRows::Bind(IGridSource* source, const GridColumns& columns, const GridGroups& groups)
{
    source_ = source;
    columns_ = &columns;
    groupings_ = &groups;
    groups_.clear();
    sort_ = {};
    Rebuild();
}

void GridRows::Rebuild()
{
    if (!source_ || !source_->IsOpen()) {
        groups_.clear();
        rows_.clear();
        return;
    }
    generation_ = source_->Generation();
    std::vector<Group> groups = CollectGroups();
    rows_.clear();  // they refer to the old groups
    groups_ = std::move(groups);
    Display();
}

std::vector<GridRows::Group> GridRows::CollectGroups() const
{
    const auto count = source_->Count();
    std::vector<Group> groups;
    if (groupings_->empty())
        return groups;
    std::set<std::string> folded = folds_;
    for (const Group& group : groups_)
        if (group.folded)
            folded.insert(group.value);
    std::map<std::string, std::size_t> known;
    const auto field = static_cast<std::size_t>(groupings_->front().column - 1);
    for (std::size_t record = 0; record < count; ++record) {
        const std::string value = ToText(source_->At(record, field));
        const auto [found, added] = known.try_emplace(value, groups.size());
        if (added)
            groups.push_back({value, {}, folded.contains(value)});
        groups[found->second].records.push_back(record);
    }
    return groups;
}

void GridRows::Display()
{
    const bool sorts = sort_.column != 0 && sort_.column <= columns_->Count();
    rows_ = Lines(sorts ? SortKeys() : std::vector<Value>(), true);
}

std::vector<GridRows::Row> GridRows::Lines(const std::vector<Value>& keys, bool folds) const
{
    std::vector<Row> rows;
    const auto add = [&](std::vector<std::size_t> records, std::size_t group) {
        if (!keys.empty())
            SortRecords(records, keys, sort_.descending);
        for (const std::size_t record : records)
            rows.push_back({GridRowKind::Data, record, group});
    };
    if (groupings_->empty()) {
        std::vector<std::size_t> records(source_->Count());
        std::iota(records.begin(), records.end(), std::size_t{0});
        rows.reserve(records.size() + 1);
        add(std::move(records), 0);
    }
    for (std::size_t group = 0; group < groups_.size(); ++group) {
        rows.push_back({GridRowKind::GroupHeading, 0, group});
        if (folds && groups_[group].folded)
            continue;
        add(groups_[group].records, group);
        rows.push_back({GridRowKind::GroupFooter, 0, group});
    }
    rows.push_back({GridRowKind::NewRow, 0, 0});
    return rows;
}

/// The calculated cell that the rows are shown by; nothing if it cannot be calculated.
Value GridRows::OrNothing(std::size_t row) const
{
    try {
        return sortKey_(row);
    } catch (const RuntimeError&) {
        return Null{};
    }
}

std::vector<Value> GridRows::SortKeys()
{
    std::vector<Value> keys(source_->Count());
    if (!columns_->Item(sort_.column).Calculated()) {
        for (std::size_t record = 0; record < keys.size(); ++record)
            keys[record] = OfSource(record, sort_.column);
        return keys;
    }
    std::vector<Row> before = std::exchange(rows_, Lines({}, false));
    try {
        for (std::size_t row = 1; row <= rows_.size(); ++row)
            if (Kind(row) == GridRowKind::Data)
                keys[Record(row)] = OrNothing(row);
    } catch (...) {
        rows_ = std::move(before);
        throw;
    }
    return keys;
}

void GridRows::SortBy(GridSort sort, SortKey key)
{
    const GridSort before = std::exchange(sort_, sort);
    sortKey_ = std::move(key);
    if (!source_ || !source_->IsOpen())
        return;
    try {
        Display();
    } catch (...) {
        sort_ = before;
        throw;
    }
}

const GridRows::Row& GridRows::At(std::size_t row) const
{
    if (row < 1 || row > rows_.size())
        throw RuntimeError(errors::SubscriptOutOfRange, "Subscript out of range");
    return rows_[row - 1];
}

GridRowKind GridRows::Kind(std::size_t row) const
{
    return At(row).kind;
}

std::int32_t GridRows::Position(std::size_t row) const
{
    return At(row).kind == GridRowKind::NewRow ? 1 : 0;
}

std::size_t GridRows::Record(std::size_t row) const
{
    return At(row).record;
}

Value GridRows::Key(std::size_t row) const
{
    const Row& shown = At(row);
    const std::int32_t column = columns_->Find(kKeyField);
    if (shown.kind != GridRowKind::Data || column == 0)
        return Null{};
    return source_->At(shown.record, static_cast<std::size_t>(column - 1));
}

std::size_t GridRows::Records() const
{
    return source_ && source_->IsOpen() ? source_->Count() : 0;
}

const Value& GridRows::OfSource(std::size_t record, std::int32_t column) const
{
    return source_->At(record, static_cast<std::size_t>(column - 1));
}

Value GridRows::Stored(std::size_t row, std::int32_t column) const
{
    const Row& shown = At(row);
    if (shown.kind != GridRowKind::Data || columns_->Item(column).Calculated())
        return Null{};
    return source_->At(shown.record, static_cast<std::size_t>(column - 1));
}

const std::string& GridRows::GroupValue(std::size_t row) const
{
    const Row& shown = At(row);
    if (groups_.empty() || shown.kind == GridRowKind::NewRow)
        return kNoGroup;
    return groups_[shown.group].value;
}

std::size_t GridRows::OfGroup(GridRowKind kind, const std::string& value) const
{
    for (std::size_t row = 1; row <= rows_.size(); ++row)
        if (At(row).kind == kind && groups_[At(row).group].value == value)
            return row;
    return 0;
}

std::string GridRows::HeadingText(std::size_t row) const
{
    const Row& shown = At(row);
    if (shown.kind != GridRowKind::GroupHeading)
        return {};
    const Group& group = groups_[shown.group];
    return Evaluate(groupings_->front().headerText, group.value, group.records.size());
}

bool GridRows::Folded(std::size_t row) const
{
    const Row& shown = At(row);
    return shown.kind == GridRowKind::GroupHeading && groups_[shown.group].folded;
}

std::size_t GridRows::Fold(std::size_t row, bool folded, std::size_t followed)
{
    const Row& shown = At(row);
    if (shown.kind != GridRowKind::GroupHeading || groups_[shown.group].folded == folded)
        return followed;
    const std::size_t before = Count();
    SetFolded(groups_[shown.group], folded);
    Display();
    if (followed <= row)
        return followed;
    const bool foldedAway = folded && followed <= row + before - Count();
    return foldedAway ? row : followed + Count() - before;
}

std::size_t GridRows::PastFooter(std::size_t row) const
{
    return passesFooters_ && row != 0 && Kind(row) == GridRowKind::GroupFooter ? row + 1 : row;
}

void GridRows::SetFolded(Group& group, bool folded)
{
    group.folded = folded;
    if (folded && keepsFolds_)
        folds_.insert(group.value);
    else
        folds_.erase(group.value);
}

std::size_t GridRows::NewRow() const
{
    return rows_.size();
}

std::size_t GridRows::FirstData() const
{
    const auto found = std::find_if(rows_.begin(), rows_.end(),
                                    [](const Row& row) { return row.kind == GridRowKind::Data; });
    return found == rows_.end() ? 0 : static_cast<std::size_t>(found - rows_.begin()) + 1;
}

std::size_t GridRows::OfRecord(std::size_t record) const
{
    const auto found = std::find_if(rows_.begin(), rows_.end(), [record](const Row& row) {
        return row.kind == GridRowKind::Data && row.record == record;
    });
    return found == rows_.end() ? 0 : static_cast<std::size_t>(found - rows_.begin()) + 1;
}

std::size_t GridRows::Reveal(std::size_t record)
{
    for (Group& group : groups_)
        if (group.folded &&
            std::find(group.records.begin(), group.records.end(), record) != group.records.end()) {
            SetFolded(group, false);
            Display();
        }
    return OfRecord(record);
}

std::size_t GridRows::OfKey(const Value& key) const
{
    const std::int32_t column = columns_->Find(kKeyField);
    if (column == 0)
        return 0;
    const auto field = static_cast<std::size_t>(column - 1);
    for (std::size_t row = 1; row <= rows_.size(); ++row)
        if (At(row).kind == GridRowKind::Data && source_->At(At(row).record, field) == key)
            return row;
    return 0;
}

std::size_t GridRows::Identity(std::size_t row) const
{
    const Row& shown = At(row);
    return shown.kind == GridRowKind::Data ? source_->Identity(shown.record) : 0;
}

std::size_t GridRows::OfIdentity(std::size_t identity) const
{
    for (std::size_t row = 1; row <= rows_.size(); ++row)
        if (At(row).kind == GridRowKind::Data && source_->Identity(At(row).record) == identity)
            return row;
    return 0;
}

bool GridRows::Stale() const
{
    return source_ != nullptr && (!source_->IsOpen() || source_->Generation() != generation_);
}

}  // namespace clb
