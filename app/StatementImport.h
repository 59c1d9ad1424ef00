// The command that imports statements of every kind.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "intake/WideImport.h"

namespace clb {

class frmController;

/// What the user has said about the files beforehand.
struct StatementOptions {
    StatementAnswers answers;
    std::optional<std::string> encoding;  ///< nothing: the likeliest
};

/// Imports a file of any kind of statement, or the files inside an archive, as one command and one
/// step of the history. The window takes no input meanwhile and shows the result afterwards. The
/// file is only read.
class StatementImport {
public:
    /// All borrowed.
    StatementImport(frmController& window, IStatementAsker& asker, StatementOptions options = {});

    /// See WideImport::Watch.
    void Watch(RowWatch watch) { watch_ = std::move(watch); }
    /// Throws RuntimeError if the file cannot be read, and EngineError.
    const std::vector<ImportedStatement>& Import(const std::string& path);

    /// What the last import has stored, also if an error in other rows kept it from recomputing the
    /// balances.
    [[nodiscard]] const std::vector<ImportedStatement>& Imported() const { return imported_; }

private:
    frmController& window_;
    IStatementAsker& asker_;
    StatementOptions options_;
    RowWatch watch_;
    std::vector<ImportedStatement> imported_;
};

}  // namespace clb
