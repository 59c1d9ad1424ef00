// Reads a book with the storage library alone, past the program.
#pragma once
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/stress/Transactions.h"

struct sqlite3;

namespace clb {

/// A separate connection to the file of a book.
class RawBook {
public:
    /// Opens DIR/db/clb.mdb. Throws std::runtime_error if that fails.
    explicit RawBook(const std::string& folder);

    /// Runs one statement. Returns its rows, values as text with "|" between them, NULL as "".
    /// Throws std::runtime_error with the storage's message.
    std::vector<std::string> Rows(const std::string& sql);
    void Run(const std::string& sql) { Rows(sql); }
    /// The only value of the only row.
    std::string One(const std::string& sql);

    /// The transactions by their number.
    std::map<std::int32_t, Transaction> Transactions();
    /// Describes everything that no order of commands can lead to: numbers and identifiers that
    /// occur twice, balances that are not the sums of their rows, categories without a budget line.
    std::vector<std::string> Faults();

private:
    struct Close {
        void operator()(sqlite3* file) const;
    };
    std::unique_ptr<sqlite3, Close> file_;
};

}  // namespace clb
