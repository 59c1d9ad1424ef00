// Repeats an action while one allocation after the other fails.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "tests/allocation/BookFolder.h"
#include "tests/allocation/FailingAllocations.h"

namespace clb {

/// Repeats an action, each time in a new process, and lets a later allocation fail each time until
/// none fails any more. Before that it runs the action once undisturbed.
class Tries {
public:
    /// stride: the distance between the tried allocations; with CLB_ALLOCATION_ALL set, all are
    /// tried.
    Tries(BookFolder& books, Refusal refusal, std::int64_t stride, Counted counted = Counted::All);
    ~Tries();
    Tries(const Tries&) = delete;
    Tries& operator=(const Tries&) = delete;

    /// Returns true in the process of one try, which does the action and calls End; false in the
    /// test's own process after all tries.
    bool Next();
    /// In the process of a try: from now on allocations fail, as this try requires.
    void Begin() const { FailingAllocations::Begin(n_, refusal_, counted_); }
    /// In the process of a try: ends the try. wrong: what is wrong with its outcome; empty if
    /// nothing is.
    [[noreturn]] void End(const std::string& wrong) const;
    /// Whether this is the undisturbed try.
    [[nodiscard]] bool Undisturbed() const { return n_ == 0; }

    /// What is wrong with the book. It must be as before the action or as after it, with no other
    /// file left. succeeded: what the action reported, which decides between the two.
    [[nodiscard]] std::string WrongInBook(bool succeeded) const;
    /// Whether the undisturbed action has changed the tables.
    [[nodiscard]] bool Changes() const { return !(after_ == books_.KeptTables()); }
    /// Whether this try is one of those that check whether the program continues to work.
    [[nodiscard]] bool LooksFurther() const;
    /// Whether the tables are as they were before the action.
    [[nodiscard]] bool IsAsBefore() const;

    /// What was wrong, one line for each try; at most a few tries.
    [[nodiscard]] const std::vector<std::string>& Problems() const { return problems_; }
    /// How many allocations failed, each in its own try.
    [[nodiscard]] std::int64_t Failed() const { return n_ - 1; }

private:
    /// Returns false if no allocation failed any more.
    bool Evaluate(int status);
    [[nodiscard]] std::string WrongInHistory() const;

    struct Outcome;
    BookFolder& books_;
    Refusal refusal_;
    std::int64_t stride_;
    Counted counted_;
    std::int64_t n_ = -1;
    TableDump after_;
    std::map<std::string, std::string> afterFiles_;
    std::vector<std::string> problems_;
    Outcome* outcome_;  // shared by the processes
};

}  // namespace clb
