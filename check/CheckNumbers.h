#pragma once
#include <cstdint>
#include <vector>

#include "check/CheckFindings.h"
#include "engine/rows/RawSql.h"

namespace clb {

/// A row of Trans that gets another number.
struct NewNumber {
    std::int64_t row = 0;  ///< the storage's number of the row
    std::int32_t number = 0;
};

/// Finds transaction numbers (Trans.Sequence) that stand for more than one transaction, and works
/// out new ones.
///
/// The pieces of one transaction share its number and its account and differ in SubSequence. Rows
/// that share a number in several accounts, or number and SubSequence, are several transactions:
/// older versions gave a number twice when two programs wrote at the same time. A piece goes to the
/// transaction of its account that does not have its SubSequence yet and whose date and description
/// are the same (a split appends " (split #2)" to it), failing that to one of its date, failing
/// that to the earliest; with nowhere to go it begins a transaction. The transaction with the
/// earliest row keeps the number, the others get new ones, in the order of their earliest rows,
/// above the largest number there is. Rows without a number get one each.
class CheckNumbers {
public:
    /// Borrows the database. Throws EngineError when Trans cannot be read.
    CheckNumbers(RawSql& raw, FindingList& findings);

    /// In the order of the rows. Empty also when there are not enough numbers left.
    [[nodiscard]] const std::vector<NewNumber>& NewNumbers() const { return newNumbers_; }

private:
    struct Group;

    void FindDoubled(RawSql& raw);
    void FindMissing(RawSql& raw);
    void Close(const Group& group);
    void Number(std::int64_t largest);

    std::vector<Finding> found_;
    std::vector<std::vector<std::int64_t>>
        later_;  ///< the rows of each transaction to be renumbered
    std::vector<NewNumber> newNumbers_;
};

}  // namespace clb
