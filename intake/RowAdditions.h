// What an OFX file cannot carry, written to the rows after their import.
#pragma once
#include <string>
#include <vector>

#include "statements/form/Statement.h"

namespace clb {

class clsDatabase;

/// Completes rows that an import has just added: whole texts, cheque numbers, the category with its
/// budget line, the pieces of a split.
class RowAdditions {
public:
    /// Borrows the database.
    RowAdditions(clsDatabase& database, std::string accountID)
        : database_(database), accountID_(std::move(accountID))
    {
    }

    /// To be called for a row that OfxText cannot carry whole.
    void Remember(const StatementRow& row, const std::string& identifier);
    /// Writes what was remembered to the rows, which are in the account now. Throws EngineError.
    void Write();

private:
    struct Addition {
        StatementRow row;
        std::string identifier;
    };

    void Write(const Addition& addition);
    void WritePieces(const Addition& addition, const std::string& where);
    std::string ProvideCategory(const std::string& category, const Date& date);

    clsDatabase& database_;
    std::string accountID_;
    std::vector<Addition> additions_;
};

}  // namespace clb
