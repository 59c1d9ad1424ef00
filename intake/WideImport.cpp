#include "intake/WideImport.h"

#include <algorithm>
#include <filesystem>

#include "data/clsDatabase.h"
#include "import/StatementFile.h"
#include "import/modImport.h"
#include "intake/AccountFeed.h"
#include "intake/AccountFinder.h"
#include "intake/Digest.h"
#include "intake/ImportRecords.h"
#include "intake/KeptRows.h"
#include "intake/SpecifiedText.h"
#include "statements/kinds/StatementReaders.h"
#include "statements/source/Archive.h"
#include "statements/source/SourceFile.h"

namespace clb {
namespace {

/// Hands the rows of a statement to a function.
class EachRow : public IStatementSink {
public:
    explicit EachRow(std::function<void(const StatementRow&)> take) : take_(std::move(take)) {}
    void BeginAccount(const StatementAccount&) override {}
    void EndAccount(const StatementBalances&) override {}
    void Row(const StatementRow& row) override { take_(row); }
    void LeftOut(const LeftOutPart&) override {}

private:
    std::function<void(const StatementRow&)> take_;
};

/// Refuses a file of an archive that is one itself and may hold statements. A document of an office
/// program is not a statement.
void RequireNoArchive(const std::string& bytes)
{
    if (IsZip(bytes))
        (void)FilesInArchive(bytes);
    if (IsZip(bytes) || IsGzip(bytes))
        throw StatementRefused("An archive inside an archive is not unpacked. Unpack it first.");
}

bool HasRows(const StatementSurvey& survey)
{
    return std::ranges::any_of(survey.Accounts(),
                               [](const SurveyedAccount& account) { return account.rows > 0; });
}

std::string DescriptionOf(clsDatabase& database, const std::string& accountID)
{
    Recordset found;
    database.Fill(found,
                  "SELECT Description FROM Account WHERE AccountID = '" +
                      clsDatabase::ToSqlString(accountID) + "'",
                  true);
    return found.Empty() ? std::string() : ToText(found.Get(0));
}

}  // namespace

struct WideImport::Source {
    SourceFile file;
    std::string sha256;  ///< of the delivered file
    std::string text;
    std::unique_ptr<IStatementReader> reader;
    StatementAnswers answers;
    ImportedStatement result;

    /// Frees what is needed for reading only.
    void Forget()
    {
        reader.reset();
        std::string().swap(text);
        std::string().swap(file.bytes);
    }
};

WideImport::WideImport(clsDatabase& database, modImport& import, IStatementAsker& asker,
                       const IClock& clock)
    : database_(database), import_(import), asker_(asker), clock_(clock)
{
}

std::vector<ImportedStatement> WideImport::Import(const std::string& path)
{
    const std::string name = std::filesystem::path(path).filename().string();
    std::string bytes = ReadBytes(path);
    const std::string sha256 = Sha256(bytes);
    std::vector<ImportedStatement> results;
    try {
        for (SourceFile& file : Unpack(name, std::move(bytes))) {
            const bool inside = file.name != name;
            Source source{std::move(file), sha256, {}, {}, given_, {}};
            Import(source, inside);
            results.push_back(std::move(source.result));
        }
        if (results.empty())
            throw NotAStatement("There is no file in it.");
    } catch (const NotAStatement& error) {
        results.push_back({.source = name, .refused = error.what(), .notAStatement = true});
    }
    return results;
}

void WideImport::Import(Source& source, bool inside)
{
    source.result.source = source.file.name;
    try {
        if (inside)
            RequireNoArchive(source.file.bytes);
        source.text = MayBeSpecified(source.file)
                          ? DecodeStatement(source.file.bytes, encoding_)
                          : DecodeStatement(std::move(source.file.bytes), encoding_);
        source.reader = OpenStatement(source.text);
        source.result.kind = source.reader->Kind();
        asker_.Begin(source.result.source, *source.reader);
        if (!Settle(source))
            return;
        KeptRows rows;
        source.reader->Read(source.answers, rows);
        source.result.leftOut = rows.Survey().LeftOut();
        Store(source, rows);
        Record(source);
        asker_.Stored(source.result, source.answers);
    } catch (const NotAStatement& error) {
        source.result.refused = error.what();
        source.result.notAStatement = true;
        source.result.unknownFormat = dynamic_cast<const UnknownFormat*>(&error) != nullptr;
    } catch (const StatementRefused& error) {
        source.result.refused = error.what();
        ShowRows(source);
    }
}

/// Whether nothing is open any more.
bool WideImport::Settle(Source& source)
{
    std::vector<OpenQuestion> questions = source.reader->Open(source.answers);
    if (questions.empty())
        return true;
    const auto answers =
        asker_.Ask(source.result.source, *source.reader, questions, source.answers);
    if (answers) {
        source.answers = *answers;
        questions = source.reader->Open(source.answers);
    }
    source.result.asked = questions;
    return questions.empty();
}

/// Shows the rows of a statement that is not stored.
void WideImport::ShowRows(const Source& source) const
{
    if (!watch_ || !source.reader)
        return;
    const FeedWatch watch = WatchOf(source);
    EachRow shown(
        [&watch](const StatementRow& row) { watch(row, row.identifier, RowState::Read); });
    source.reader->Read(source.answers, shown);
}

/// The book was not locked while the user chose.
void WideImport::RequireAccounts(const std::vector<std::string>& found)
{
    database_.Lock();
    for (const std::string& accountID : found)
        if (!database_.RowExists("Account",
                                 "AccountID = '" + clsDatabase::ToSqlString(accountID) + "'"))
            throw StatementRefused(
                "Another program has deleted an account of the statement meanwhile. "
                "Nothing was imported.");
}

/// Passes on a file that the import of OFX files takes as it is. Returns false, and does nothing,
/// if the import would take a row for another one of the account.
bool WideImport::PassWhole(const KeptRows& rows, std::string text, AccountFeed& feed) const
{
    bool agrees = true;
    rows.ForEach(
        [&](std::size_t, const StatementRow& row) { agrees = agrees && feed.ImportAgrees(row); });
    if (!agrees)
        return false;
    if (watch_)
        rows.ForEach([&feed](std::size_t, const StatementRow& row) { feed.Show(row); });
    feed.PassWhole(std::move(text));
    return true;
}

void WideImport::Store(Source& source, KeptRows& rows)
{
    const StatementSurvey& survey = rows.Survey();
    AccountFinder finder(database_, import_, asker_, survey);
    if (!HasRows(survey)) {
        StoreNone(survey, finder.FindKnown(), source.result);
        return;
    }
    const std::vector<std::string> found = finder.Find();
    RequireAccounts(found);
    std::string text = SpecifiedText(source.file, source.reader->Kind(), rows);
    source.Forget();
    std::vector<std::unique_ptr<AccountFeed>> feeds;
    for (std::size_t place = 0; place < found.size(); ++place)
        feeds.push_back(std::make_unique<AccountFeed>(
            database_, import_, found[place], survey.Accounts()[place].account, WatchOf(source)));
    if (text.empty() || !PassWhole(rows, std::move(text), *feeds.front()))
        rows.HandOver(
            [&feeds](std::size_t place, const StatementRow& row) { feeds[place]->Add(row); });
    for (std::size_t place = 0; place < found.size(); ++place) {
        feeds[place]->Finish();
        Report(survey.Accounts()[place], found[place], *feeds[place], source.result);
    }
}

/// Balances without rows make no account, but are reported for one that is there.
void WideImport::StoreNone(const StatementSurvey& survey, const std::vector<std::string>& found,
                           ImportedStatement& result)
{
    for (std::size_t place = 0; place < found.size(); ++place) {
        const SurveyedAccount& account = survey.Accounts()[place];
        if (!found[place].empty())
            Report(account, found[place],
                   AccountFeed(database_, import_, found[place], account.account), result);
    }
    if (result.accounts.empty() && result.leftOut.empty())
        result.notes.emplace_back("The file has no transactions. No account was made for it.");
}

FeedWatch WideImport::WatchOf(const Source& source) const
{
    if (!watch_)
        return {};
    return [this, &source](const StatementRow& row, const std::string& identifier, RowState state) {
        watch_(source.result.source, row, identifier, state);
    };
}

void WideImport::Report(const SurveyedAccount& account, const std::string& accountID,
                        const AccountFeed& feed, ImportedStatement& result)
{
    result.accounts.push_back({.accountID = accountID,
                               .name = DescriptionOf(database_, accountID),
                               .currency = account.account.currency,
                               .read = account.rows,
                               .added = feed.Added(),
                               .known = feed.Known(),
                               .opening = account.balances.opening,
                               .closing = account.balances.closing,
                               .balanced = StatementSurvey::Balanced(account)});
    const ImportedAccount& imported = result.accounts.back();
    for (const BalanceBreak& at : account.balances.breaks)
        result.notes.push_back("Line " + std::to_string(at.line) +
                               " does not fit the balances beside the rows of '" + imported.name +
                               "': from " + at.before.ToText() + " its amount " +
                               at.amount.ToText() + " does not lead to " + at.after.ToText() +
                               ". Its amount may be wrong, or a row may be missing.");
    if (imported.balanced == false && imported.opening && imported.closing)
        result.notes.push_back("The rows of '" + imported.name + "' do not add up: from " +
                               imported.opening->ToText() + " they do not lead to " +
                               imported.closing->ToText() + ", as the file says.");
    for (const LeftOutPart& reused : feed.Reused())
        result.notes.push_back("Line " + std::to_string(reused.line) + " was added (" +
                               reused.text +
                               "): the bank has used its identifier before for another row.");
}

void WideImport::Record(const Source& source)
{
    ImportRecords records(database_);
    for (const ImportedAccount& account : source.result.accounts)
        records.Add({.file = source.result.source,
                     .sha256 = source.sha256,
                     .at = clock_.Now(),
                     .accountID = account.accountID,
                     .currency = account.currency,
                     .read = account.read,
                     .added = account.added,
                     .known = account.known,
                     .refused = account.read - account.added - account.known,
                     .opening = account.opening,
                     .closing = account.closing});
}

}  // namespace clb
