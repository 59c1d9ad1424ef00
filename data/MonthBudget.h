// All sums of a month's budget. Two queries read them, instead of one for each line and group.
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

    /// Reads the month's sums unless they are held and the file has not changed since. Returns
    /// false if each sum must be read by its own query: while queries are traced or a group
    /// is pending, and if one of the sums cannot be made, so that its own query reports the
    /// error. Throws EngineError if the file cannot be read.
    bool Read(Month month);

    struct Sums {
        Money budgeted;
        Money spent;
    };
    // These are sums of the month that was read last.

    [[nodiscard]] Money SpentOn(const std::string& category) const;
    /// The sums of a group's lines; a category with two lines counts twice.
    [[nodiscard]] Sums OfGroup(const std::string& group) const;
    /// Everything budgeted and everything spent in the month, with or without a budget line.
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
    bool held_ = false;    ///< month_ and contents_ belong to a completed reading
    bool usable_ = false;  ///< that reading gave all sums
    MonthSums sums_;
    std::int64_t schemaVersion_ = -1;  ///< the version that byLetter_ was read at; -1: not read yet
    bool byLetter_ = false;
};

}  // namespace clb
