// Finds transaction numbers that are used twice.
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

/// Finds transaction numbers (Trans.Sequence) that several transactions share, and chooses new
/// ones.
///
/// The pieces of one transaction have the same number and account and different SubSequences. Rows
/// with the same number in several accounts, or with the same number and SubSequence, belong to
/// several transactions: older versions used a number twice if two programs wrote at the same time.
/// A piece is assigned to a transaction of its account that does not have its SubSequence yet: to
/// one with the same date and description (a split appends " (split #2)" to it), else to one with
/// the same date, else to the earliest. If there is none, the piece begins a transaction. The
/// transaction with the earliest row keeps the number. The others get new numbers above the largest
/// one, in the order of their earliest rows. Each row without a number gets one.
class CheckNumbers {
public:
    /// Borrows the database. Throws EngineError if Trans cannot be read.
    CheckNumbers(RawSql& raw, FindingList& findings);

    /// The new numbers in the order of the rows. Also empty if there are not enough numbers left.
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
