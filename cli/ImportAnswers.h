// Answers what an import asks, from the options of the command line.
#pragma once
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "controls/Form.h"
#include "intake/WideImport.h"

namespace clb {

class clsDatabase;

/// What the options say about the accounts of the files.
struct AccountOptions {
    std::optional<std::string> create;   ///< description of the new account
    std::string type;                    ///< of the new account; empty: as the file says
    std::optional<std::string> map;      ///< description of an account that is there
    std::optional<std::string> unnamed;  ///< the same for files that name no account
    bool mapped = false;                 ///< map has been given the number of a file
};

/// Works the dialog that asks for a statement's account, and leaves the questions about a file
/// open. Cancels the dialog if the options name no account or the dialog does not take it.
class ImportAnswers : public IModalHost, public IStatementAsker {
public:
    explicit ImportAnswers(AccountOptions& options) : options_(options) {}

    /// The book in which accounts are looked up; borrowed until the next call.
    void Use(clsDatabase& data) { data_ = &data; }
    /// The first rows of a statement that leaves questions open, as they would be read with the
    /// answers that are proposed. Empty for other statements.
    [[nodiscard]] const std::vector<StatementRow>& Proposed(const std::string& source);

    // IModalHost
    void Run(Form& form) override;
    // IStatementAsker
    std::optional<StatementAnswers> Ask(const std::string& source, const IStatementReader& reader,
                                        const std::vector<OpenQuestion>& questions,
                                        const StatementAnswers& given) override;
    void Begin(const std::string& source, const IStatementReader& reader) override;
    void Unknown(std::size_t accounts) override { unknown_ = accounts; }
    void Choosing(const StatementAccount& account, std::size_t place,
                  const AccountCheck& check) override;
    [[nodiscard]] std::string WhyNoAccount() const override;

private:
    bool Answer(Form& form);
    bool Create(Form& form, const std::string& description) const;
    bool Map(Form& form, const std::string& description);
    [[nodiscard]] std::int32_t CountDescribedAs(const std::string& description) const;
    [[nodiscard]] std::string NewDescription(const std::string& wanted) const;

    AccountOptions& options_;
    clsDatabase* data_ = nullptr;
    StatementAccount account_;
    AccountCheck check_;
    std::size_t unknown_ = 0;  ///< accounts of the file
    std::string refusal_;      ///< why no account was chosen, if there is more to say
    bool first_ = true;        ///< of its file
    std::map<std::string, std::vector<StatementRow>> proposed_;  ///< by source
};

/// The only account of this description. Throws RuntimeError (InvalidCall) if there are several:
/// the dialog lists accounts by description.
[[nodiscard]] std::string OnlyAccountDescribedAs(clsDatabase& data, const std::string& description);

}  // namespace clb
