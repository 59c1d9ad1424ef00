// What an import of one or several statement files has brought in.
#pragma once
#include <string>
#include <vector>

#include "controls/RowList.h"
#include "intake/WideImport.h"

namespace clb {

/// Collects what came of the statements of one command, and puts it into words.
class ImportSummary {
public:
    void Add(ImportedStatement statement);

    /// Whether the rows of any statement were taken, even if the book had all of them already.
    [[nodiscard]] bool AnyImported() const;
    /// Whether the user is to be told more than the sentence says: something was left out or
    /// refused, or balances do not fit.
    [[nodiscard]] bool HasDetails() const;
    /// One line: "Checking: 12 added, 3 known; 2 left out".
    [[nodiscard]] std::string Sentence() const;
    /// Why each refused statement was refused, with its name; empty if none was. What the user has
    /// cancelled is not among them.
    [[nodiscard]] std::string Refusals() const;
    /// Everything that was left out or refused, below a heading for each statement.
    [[nodiscard]] std::vector<RowList::Line> Details() const;
    /// Captions of the columns of Details, and those that are aligned right.
    static std::vector<std::string> DetailColumns();

private:
    std::vector<ImportedStatement> statements_;
};

}  // namespace clb
