// Asks the user of the window what a statement file leaves open.
#pragma once
#include "intake/WideImport.h"

namespace clb {

class frmController;

/// Asks in the dialog "Import Statement". Accounts are asked for by the import's own dialog.
class StatementQuestions : public IStatementAsker {
public:
    /// Borrows the window, which outlives it.
    explicit StatementQuestions(frmController& window) : window_(window) {}

    // IStatementAsker
    std::optional<StatementAnswers> Ask(const std::string& source, const IStatementReader& reader,
                                        const std::vector<OpenQuestion>& questions,
                                        const StatementAnswers& given) override;
    void Choosing(const StatementAccount&, std::size_t) override {}

private:
    frmController& window_;
};

}  // namespace clb
