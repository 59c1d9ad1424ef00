// Rows as a statement that the import of OFX files reads.
#pragma once
#include <cstddef>
#include <string>

#include "statements/form/Statement.h"

namespace clb {

/// Writes the rows of one account as an OFX 1.02 file. A text that such a file cannot carry is
/// written as far as it can, see CanCarry.
class OfxText {
public:
    OfxText(const std::string& accountID, const StatementAccount& account);

    void Add(const StatementRow& row, const std::string& identifier);
    [[nodiscard]] std::size_t Rows() const { return rows_; }
    /// The whole file. Begins anew.
    std::string Take();

    /// Whether the import stores everything that the row has.
    static bool CanCarry(const StatementRow& row);

private:
    std::string head_;
    std::string text_;
    std::size_t rows_ = 0;
};

/// What the import stores as the row's description and notes.
[[nodiscard]] std::string DescriptionOf(const StatementRow& row);
[[nodiscard]] std::string NotesOf(const StatementRow& row);

}  // namespace clb
