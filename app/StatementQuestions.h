// Asks the user of the window what a statement file leaves open.
#pragma once
#include <string>

#include "intake/FormatMemory.h"
#include "intake/WideImport.h"

namespace clb {

class frmController;

/// Asks in the dialog of frmStatement, and remembers the answers for the next file of the same
/// layout. For accounts that the book does not know it lets the import's own dialog say which file
/// and account it asks for.
class StatementQuestions : public IStatementAsker {
public:
    /// Borrows the window, which outlives it.
    explicit StatementQuestions(frmController& window);

    // IStatementAsker
    void Begin(const std::string& source, const IStatementReader& reader) override;
    std::optional<StatementAnswers> Ask(const std::string& source, const IStatementReader& reader,
                                        const std::vector<OpenQuestion>& questions,
                                        const StatementAnswers& given) override;
    void Choosing(const StatementAccount& account, std::size_t place,
                  const AccountCheck& check) override;
    void Stored(const ImportedStatement& statement, const StatementAnswers& answers) override;

private:
    [[nodiscard]] std::optional<StatementAnswers> RememberedFor(const IStatementReader& reader,
                                                                const StatementAnswers& given);
    [[nodiscard]] std::string QuestionFor(const StatementAccount& account) const;
    [[nodiscard]] std::string ExistingFor(const StatementAccount& account, std::size_t place);

    frmController& window_;
    FormatMemory memory_;
    std::string source_;
    std::string shape_;
    bool asked_ = false;
    bool unnamed_ = false;  ///< the file names no account
};

}  // namespace clb
