// All sums of a month's budget, read by two statements instead of one for each line and group.
#pragma once
#include <cstdint>
#include <map>
#include <string>

#include "base/Date.h"
#include "base/Money.h"
#include "engine/rows/Connection.h"

namespace clb {

/// What is budgeted for a month and what was spent in it, by category and by group. Holds the sums
/// of one month until something is written. The connection is borrowed.
///
/// Only transactions of accounts that take part in the budget count. A category is compared as the
/// database compares it: letter by letter, upper and lower case are different.
class MonthBudget {
public:
    explicit MonthBudget(Connection& connection) : connection_(connection) {}

    /// Reads the month's sums unless they are held and still what the file says. False if each sum
    /// is to be asked for by itself: while statements are traced or a group is pending, and if one
    /// of the sums cannot be made, so that its own statement reports the error. Throws EngineError
    /// if the file cannot be read.
    bool Read(Month month);

    struct Sums {
        Money budgeted;
        Money spent;
    };
    // Of the month that was read last.

    [[nodiscard]] Money SpentOn(const std::string& category) const;
    /// Over the lines of a group; a category with two lines counts twice.
    [[nodiscard]] Sums OfGroup(const std::string& group) const;
    /// All that is budgeted, and all that was spent, with or without a line.
    [[nodiscard]] const Sums& OfMonth() const { return sums_.month; }

private:
    struct MonthSums {
        std::map<std::string, Money> spent;    ///< by category
        std::map<std::string, Sums> budgeted;  ///< by group
        Sums month;
    };
    /// Whether the columns of categories and groups are declared as in the delivered database.
    bool ComparesByLetter();
    [[nodiscard]] MonthSums ReadSums(Month month) const;

    Connection& connection_;
    Month month_;
    Connection::Contents contents_;
    bool held_ = false;    ///< month_ and contents_ are those of a reading
    bool usable_ = false;  ///< which gave all sums
    MonthSums sums_;
    std::int64_t schemaVersion_ = -1;  ///< of byLetter_; -1: not looked at yet
    bool byLetter_ = false;
};

}  // namespace clb
