// Statements of made-up rows, written by the definitions of their formats.
#pragma once
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "statements/form/StatementReader.h"

namespace clb {

struct WrittenRow {
    Date date;
    Money amount;
    std::string name;
    std::string text;          ///< never equal to the name
    std::string identifier{};  ///< the bank's own, in formats that have one
};

/// A way to write a statement of one account.
struct Dialect {
    friend std::ostream& operator<<(std::ostream& out, const Dialect& dialect)
    {
        return out << dialect.name;
    }

    const char* name;
    std::string (*write)(const std::string& account, const std::vector<WrittenRow>& rows);
    bool identified = false;     ///< it writes identifiers
    StatementAnswers answers{};  ///< that are right if the file leaves questions open
};

/// All that there are.
const std::vector<Dialect>& Dialects();

/// Makes rows in order of date. The same seed makes the same rows.
class WrittenRows {
public:
    explicit WrittenRows(unsigned seed) : random_(seed) {}

    /// Rows of two months. Some are equal to one before. If they are identified, some identifiers
    /// are given to several rows of different amounts.
    std::vector<WrittenRow> Make(bool identified);
    int Number(int least, int most)
    {
        return std::uniform_int_distribution<int>(least, most)(random_);
    }

private:
    std::string Words();
    void Identify(std::vector<WrittenRow>& rows);

    std::mt19937 random_;
};

}  // namespace clb
