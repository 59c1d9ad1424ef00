// The import of statements of every kind.
#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "intake/AccountFeed.h"
#include "intake/StatementSurvey.h"
#include "ports/IClock.h"
#include "statements/form/StatementReader.h"

namespace clb {

class clsDatabase;
class KeptRows;
class modImport;

/// Why a statement was refused whose account the user did not choose.
inline constexpr const char* kAccountMissing = "The file's account is not known.";

/// One account's part of what was imported.
struct ImportedAccount {
    std::string accountID;  ///< in the book
    std::string name;       ///< its description in the book
    std::string currency;
    std::int64_t read = 0;
    std::int64_t added = 0;
    std::int64_t known = 0;
    std::optional<Money> opening{};
    std::optional<Money> closing{};
    std::optional<bool> balanced{};
};

/// What came of one statement: a file, or one of the files inside an archive.
struct ImportedStatement {
    std::string source;  ///< name of the file, "archive.zip/name" for one inside
    std::string kind{};  ///< see IStatementReader::Kind; empty if it is none
    std::vector<ImportedAccount> accounts{};
    std::vector<LeftOutPart> leftOut{};
    std::vector<std::string> notes{};   ///< sentences for the user
    std::vector<OpenQuestion> asked{};  ///< left without an answer: nothing was added
    std::string refused{};              ///< why, a sentence; empty: it was not
    bool notAStatement = false;         ///< refused because it is something else
    bool unknownFormat = false;         ///< and is in no format of statements
};

/// Takes a row that was read from a statement, the identifier under which it is or would be stored,
/// and what came of it. source: see ImportedStatement.
using RowWatch = std::function<void(const std::string& source, const StatementRow& row,
                                    const std::string& identifier, RowState state)>;

/// Why the account of this description in the book cannot take the rows of a statement, a sentence;
/// empty if it can.
using AccountCheck = std::function<std::string(const std::string& description)>;

/// Who answers what a file leaves open.
class IStatementAsker {
public:
    virtual ~IStatementAsker() = default;
    /// The answers to all questions, beside those given; nothing: the file is not imported.
    virtual std::optional<StatementAnswers> Ask(const std::string& source,
                                                const IStatementReader& reader,
                                                const std::vector<OpenQuestion>& questions,
                                                const StatementAnswers& given) = 0;
    /// The statement of this name begins. The reader lives until its accounts are chosen.
    virtual void Begin(const std::string& /*source*/, const IStatementReader& /*reader*/) {}
    /// How many accounts of the statement have a number that the book does not have. Called before
    /// any account is chosen.
    virtual void Unknown(std::size_t /*accounts*/) {}
    /// The account of the book for this one of the file is about to be found; the user may be asked
    /// for it. place: among the accounts of the file, from 0.
    virtual void Choosing(const StatementAccount& account, std::size_t place,
                          const AccountCheck& check) = 0;
    /// Why no account was chosen, a sentence. Called if the user has chosen none.
    [[nodiscard]] virtual std::string WhyNoAccount() const { return kAccountMissing; }
    /// The statement was stored, read under these answers. What is written now belongs to the same
    /// command.
    virtual void Stored(const ImportedStatement& /*statement*/, const StatementAnswers& /*answers*/)
    {
    }
};

/// Imports statements of every kind. Each account's rows go through the specified import of OFX
/// files. The user's file is only read.
class WideImport {
public:
    /// All borrowed.
    WideImport(clsDatabase& database, modImport& import, IStatementAsker& asker,
               const IClock& clock);

    /// Encoding of the next files instead of the likeliest, such as "windows-1252".
    void Encoding(std::optional<std::string> encoding) { encoding_ = std::move(encoding); }
    void Answers(StatementAnswers answers) { given_ = std::move(answers); }
    /// Called for each row that is read.
    void Watch(RowWatch watch) { watch_ = std::move(watch); }

    /// Imports a file, or the files inside an archive. A statement that is refused adds nothing.
    /// Throws RuntimeError if the file cannot be read, and EngineError.
    std::vector<ImportedStatement> Import(const std::string& path);

private:
    struct Source;

    /// inside: of an archive
    void Import(Source& source, bool inside);
    bool Settle(Source& source);
    bool PassWhole(const KeptRows& rows, std::string text, AccountFeed& feed) const;
    void Store(Source& source, KeptRows& rows);
    void StoreNone(const StatementSurvey& survey, const std::vector<std::string>& found,
                   ImportedStatement& result);
    void RequireAccounts(const std::vector<std::string>& found);
    void Report(const SurveyedAccount& account, const std::string& accountID,
                const AccountFeed& feed, ImportedStatement& result);
    void Record(const Source& source);
    void ShowRows(const Source& source) const;
    [[nodiscard]] FeedWatch WatchOf(const Source& source) const;

    clsDatabase& database_;
    modImport& import_;
    IStatementAsker& asker_;
    const IClock& clock_;
    std::optional<std::string> encoding_;
    StatementAnswers given_;
    RowWatch watch_;
};

}  // namespace clb
