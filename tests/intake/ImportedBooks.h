// Books into which tests import statements.
#pragma once
#include <string>
#include <vector>

#include "intake/WideImport.h"
#include "tests/support/Books.h"

namespace clb {

/// Gives the same answers whatever is asked.
class FixedAnswers : public IStatementAsker {
public:
    StatementAnswers answers;

    std::optional<StatementAnswers> Ask(const std::string&, const IStatementReader&,
                                        const std::vector<OpenQuestion>&,
                                        const StatementAnswers&) override
    {
        return answers;
    }
    void Choosing(const StatementAccount&, std::size_t, const AccountCheck&) override {}
};

/// Imports texts into accounts that are there.
class ImportedBooks : public Books {
public:
    FixedAnswers asker;

    std::vector<ImportedStatement> Import(const std::string& text)
    {
        const std::string path = folder.Write("statement", text);
        WideImport wide(window.Data(), window.Import(), asker, window.GivenPorts().clock);
        window.Import().BeginTexts();
        return wide.Import(path);
    }
    /// How many rows an import adds; -1 if the statement is refused.
    std::int64_t Added(const std::string& text)
    {
        std::int64_t added = 0;
        for (const ImportedStatement& statement : Import(text)) {
            if (!statement.refused.empty() || !statement.asked.empty())
                return -1;
            for (const ImportedAccount& account : statement.accounts)
                added += account.added;
        }
        return added;
    }
    /// The account's rows in the order of their content.
    std::vector<std::string> RowsOf(const std::string& account)
    {
        return Rows(
            "SELECT PostDate, Amount, Description, PayeeName FROM Trans WHERE AccountID = '" +
            account + "' ORDER BY PostDate, Amount, Description, PayeeName");
    }
};

}  // namespace clb
