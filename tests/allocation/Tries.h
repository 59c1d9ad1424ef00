// Repeats an action while one allocation after the other fails.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "tests/allocation/BookFolder.h"
#include "tests/allocation/FailingAllocations.h"

namespace clb {

/// Does an action again and again, each time in a process of its own, and lets a later allocation
/// fail each time until none fails any more. Before that it is done once undisturbed.
class Tries {
public:
    /// stride: every so many places are tried; all of them with CLB_ALLOCATION_ALL set.
    Tries(BookFolder& books, Refusal refusal, std::int64_t stride, Counted counted = Counted::All);
    ~Tries();
    Tries(const Tries&) = delete;
    Tries& operator=(const Tries&) = delete;

    /// True in the process of one try, which does the action and calls End; false in the test's
    /// own process once all tries are over.
    bool Next();
    /// In the process of a try: allocations fail from now on as it is this try's turn.
    void Begin() const { FailingAllocations::Begin(n_, refusal_, counted_); }
    /// The same: ends the try. wrong: what is wrong with its outcome; empty when nothing is.
    [[noreturn]] void End(const std::string& wrong) const;
    /// Whether this is the undisturbed try.
    [[nodiscard]] bool Undisturbed() const { return n_ == 0; }

    /// What is wrong with the book: it must be as before the action or as after it, with no other
    /// file left. succeeded: what the action has answered; it tells which of the two.
    [[nodiscard]] std::string WrongInBook(bool succeeded) const;
    /// Whether the undisturbed action has changed the tables.
    [[nodiscard]] bool Changes() const { return !(after_ == books_.KeptTables()); }
    /// Whether this try is one of those that look whether the program goes on to work.
    [[nodiscard]] bool LooksFurther() const;
    /// Whether the tables are as they were before the action.
    [[nodiscard]] bool IsAsBefore() const;

    /// What was wrong, a line a try; at most a few tries.
    [[nodiscard]] const std::vector<std::string>& Problems() const { return problems_; }
    /// How many allocations failed, each in a try.
    [[nodiscard]] std::int64_t Failed() const { return n_ - 1; }

private:
    /// False when no allocation failed any more.
    bool Evaluate(int status);

    struct Told;
    BookFolder& books_;
    Refusal refusal_;
    std::int64_t stride_;
    Counted counted_;
    std::int64_t n_ = -1;
    TableDump after_;
    std::map<std::string, std::string> afterFiles_;
    std::vector<std::string> problems_;
    Told* told_;  // shared by the processes
};

}  // namespace clb
