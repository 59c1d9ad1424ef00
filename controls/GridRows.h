// The rows of a data grid as displayed.
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "base/Value.h"
#include "controls/GridColumn.h"
#include "controls/GridSort.h"

namespace clb {

class IGridSource;

/// What a row of the grid is.
enum class GridRowKind { Data = 0, GroupHeading = 1, GroupFooter = 2, NewRow = 3 };

/// The rows as displayed, numbered from 1: data rows with the headings and footers of their groups,
/// and the new-row line at the end.
class GridRows {
public:
    /// Data rows of the source, grouped; all groups open, unless folded ones are kept. nullptr: no
    /// rows at all.
    void Bind(IGridSource* source, const GridColumns& columns, const GridGroups& groups);
    /// Reads the rows from the source again; folded groups stay folded.
    void Rebuild();

    [[nodiscard]] std::size_t Count() const { return rows_.size(); }
    /// Throws RuntimeError (SubscriptOutOfRange) if there is no such row.
    [[nodiscard]] GridRowKind Kind(std::size_t row) const;
    /// 1 for the new-row line, else 0.
    [[nodiscard]] std::int32_t Position(std::size_t row) const;
    /// Number of the source's row, from 0, of a data row.
    [[nodiscard]] std::size_t Record(std::size_t row) const;
    /// Value of the row key's field; null on other rows than data, the new-row line included.
    [[nodiscard]] Value Key(std::size_t row) const;
    /// Number of the source's rows, and the value of a bound column in one of them, from 0.
    [[nodiscard]] std::size_t Records() const;
    [[nodiscard]] const Value& OfSource(std::size_t record, std::int32_t column) const;
    /// Grows whenever the source's rows were read again.
    [[nodiscard]] std::uint64_t Generation() const { return generation_; }
    /// Stored value of a bound column in a data row; null elsewhere.
    [[nodiscard]] Value Stored(std::size_t row, std::int32_t column) const;
    /// Text of the group that the row belongs to; empty when rows are not grouped.
    [[nodiscard]] const std::string& GroupValue(std::size_t row) const;
    /// Displayed number of a group's heading or footer; 0 if there is none.
    [[nodiscard]] std::size_t OfGroup(GridRowKind kind, const std::string& value) const;
    /// Heading text of a heading row.
    [[nodiscard]] std::string HeadingText(std::size_t row) const;
    [[nodiscard]] bool Folded(std::size_t row) const;
    /// Folds the group of a heading row, or opens it. Returns the number that the row `followed`
    /// has then: that of the heading if it was folded away.
    std::size_t Fold(std::size_t row, bool folded, std::size_t followed);
    /// Shows the rows in another order, those of a group among themselves; the new-row line stays
    /// last. `key` returns a calculated cell of a displayed row while all rows are displayed in the
    /// source's order; a cell for which it throws RuntimeError counts as nothing. Binding other
    /// rows ends it.
    using SortKey = std::function<Value(std::size_t row)>;
    void SortBy(GridSort sort, SortKey key);
    [[nodiscard]] const GridSort& Sort() const { return sort_; }
    /// Whether a folded group stays folded when other rows are bound, and when it comes back.
    void KeepFolds(bool keep) { keepsFolds_ = keep; }
    /// Whether nobody is meant to stay on a group's footer.
    void PassFooters(bool pass) { passesFooters_ = pass; }
    /// The row itself, or the one after it if it is a footer to pass: the new-row line is below
    /// every footer. 0 for 0.
    [[nodiscard]] std::size_t PastFooter(std::size_t row) const;

    /// Displayed number of the new-row line, of the first data row, of a row of the source, and
    /// of the first data row with the key; 0 if there is none (or it is folded away).
    [[nodiscard]] std::size_t NewRow() const;
    [[nodiscard]] std::size_t FirstData() const;
    [[nodiscard]] std::size_t OfRecord(std::size_t record) const;
    /// Displayed number of a row of the source; its group is opened if it was folded.
    std::size_t Reveal(std::size_t record);
    [[nodiscard]] std::size_t OfKey(const Value& key) const;
    /// Unseen identity of a data row's stored row, which survives reading the rows again; 0 for
    /// none.
    [[nodiscard]] std::size_t Identity(std::size_t row) const;
    [[nodiscard]] std::size_t OfIdentity(std::size_t identity) const;

    /// Whether the source's rows were replaced since they were last read.
    [[nodiscard]] bool Stale() const;

private:
    struct Row {
        GridRowKind kind = GridRowKind::Data;
        std::size_t record = 0;
        std::size_t group = 0;
    };
    struct Group {
        std::string value;
        std::vector<std::size_t> records;
        bool folded = false;
    };
    [[nodiscard]] const Row& At(std::size_t row) const;
    [[nodiscard]] std::vector<Group> CollectGroups() const;
    void SetFolded(Group& group, bool folded);
    /// An exception leaves the displayed rows as they were.
    void Display();
    /// The displayed rows, in the order of the keys if there are any.
    [[nodiscard]] std::vector<Row> Lines(const std::vector<Value>& keys, bool folds) const;
    [[nodiscard]] std::vector<Value> SortKeys();
    [[nodiscard]] Value OrNothing(std::size_t row) const;

    IGridSource* source_ = nullptr;
    const GridColumns* columns_ = nullptr;
    const GridGroups* groupings_ = nullptr;
    std::uint64_t generation_ = 0;
    bool keepsFolds_ = false;
    bool passesFooters_ = false;
    std::set<std::string> folds_;  ///< values of the groups to fold when they come back
    std::vector<Group> groups_;
    std::vector<Row> rows_;
    GridSort sort_;
    SortKey sortKey_;
};

}  // namespace clb
