#include <algorithm>
#include <iostream>
#include <limits>
#include <map>
#include <memory>
#include <new>

#include "app/StatementImport.h"
#include "base/RuntimeError.h"
#include "cli/CapturedStream.h"
#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/ImportAnswers.h"
#include "cli/ImportFiles.h"
#include "cli/ImportReport.h"
#include "cli/Program.h"
#include "cli/Progress.h"
#include "data/AccountKind.h"
#include "data/ErrorText.h"
#include "intake/StatementJson.h"

namespace clb {
namespace {

struct ImportOptions : FolderOptions {
    std::vector<std::string> words;
    std::optional<std::string> create;
    std::optional<std::string> type;
    std::optional<std::string> map;
    std::optional<std::string> qifAccount;
    std::optional<std::string> dateOrder;
    std::optional<std::string> decimal;
    std::optional<std::string> sign;
    std::optional<std::string> delimiter;
    std::optional<std::string> encoding;
    std::optional<std::int32_t> skip;
    std::string columns;
    bool takeWholeRows = false;
    bool show = false;
    bool dryRun = false;
};

StatementOptions StatementOptionsOf(const ImportOptions& options)
{
    static const std::map<std::string, DateText::Order> orders = {
        {"mdy", DateText::Order::MonthDayYear},
        {"dmy", DateText::Order::DayMonthYear},
        {"ymd", DateText::Order::YearMonthDay}};
    StatementOptions said;
    said.encoding = options.encoding;
    StatementAnswers& answers = said.answers;
    if (options.dateOrder)
        answers.dateOrder = orders.at(*options.dateOrder);
    if (options.decimal)
        answers.decimal = options.decimal->front();
    if (options.sign)
        answers.inverted = *options.sign == "inverted";
    if (options.delimiter)
        answers.delimiter = *options.delimiter == "tab" ? '\t' : options.delimiter->front();
    if (options.skip)
        answers.skip = static_cast<std::size_t>(*options.skip);
    answers.columns = options.columns;
    answers.takeWholeRows = options.takeWholeRows;
    return said;
}

/// One run of the command over all of its files. The program is loaded anew for each file. The
/// files before it are then safely on the disk, and no file depends on the state that another one
/// left.
class ImportRun {
public:
    explicit ImportRun(const ImportOptions& options)
        : options_(options), said_(StatementOptionsOf(options))
    {
        if (options.dryRun)
            trial_.emplace(options.home);
        folder_ = trial_ ? trial_->Path() : OpenFolder(options.home);
        accounts_.create = options.create;
        accounts_.type = options.type.value_or("");
        FindAccounts();
    }

    /// One result for each statement in the file.
    std::vector<ImportedFile> Import(const std::string& file);

private:
    void FindAccounts();
    std::vector<ImportedFile> Load(const std::string& file);

    const ImportOptions& options_;
    StatementOptions said_;
    std::optional<TrialFolder> trial_;
    std::string folder_;
    AccountOptions accounts_;
};

/// An account that does not exist or is ambiguous ends the command before the first file.
void ImportRun::FindAccounts()
{
    if (!options_.map && !options_.qifAccount)
        return;
    NoForms forms;
    Program program(folder_, forms);
    clsDatabase& data = program.Window().Data();
    const auto find = [&](const std::string& account) {
        return OnlyAccountDescribedAs(data, FindAccount(data, account).description);
    };
    if (options_.map)
        accounts_.map = accounts_.unnamed = find(*options_.map);
    if (options_.qifAccount)
        accounts_.unnamed = find(*options_.qifAccount);
}

std::vector<ImportedFile> ImportRun::Load(const std::string& file)
{
    ImportAnswers answers(accounts_);
    Program program(folder_, answers, trial_.has_value());
    answers.Use(program.Window().Data());
    StatementImport command(program.Window(), answers, said_);
    std::map<std::string, std::vector<ShownRow>> rows;
    if (options_.show)
        command.Watch([&rows](const std::string& source, const StatementRow& row,
                              const std::string& identifier, RowState state) {
            rows[source].push_back({row, identifier, state});
        });
    bool failed = false;
    try {
        (void)command.Import(file);
    } catch (const RuntimeError& error) {
        failed = true;
        std::cerr << error.what() << '\n';
        // Then nothing of the file is kept.
        if (command.Imported().empty())
            return {};
    }
    std::vector<ImportedFile> results;
    for (const ImportedStatement& statement : command.Imported()) {
        std::vector<ShownRow>& shown = rows[statement.source];
        for (const StatementRow& row : answers.Proposed(statement.source))
            shown.push_back({row, row.identifier, RowState::Read});
        results.push_back({.statement = statement,
                           .failed = failed,
                           .refused = program.Messages().Refused(),
                           .accountMissing = statement.refused == kAccountMissing,
                           .rows = std::move(shown)});
    }
    modImport& import = program.Window().Import();
    results.back().balances = import.FormerBalances();
    results.back().backup = import.FormerFile();
    program.Finish();
    return results;
}

std::vector<ImportedFile> ImportRun::Import(const std::string& file)
{
    const CapturedStream captured(std::cerr);
    std::vector<ImportedFile> results;
    try {
        results = Load(file);
    } catch (const std::bad_alloc& error) {
        // Nothing of this file was kept. The next one may be smaller.
        std::cerr << ErrorText(error) << '\n';
    }
    if (results.empty())
        results.push_back({.failed = true});
    results.front().messages = captured.Text();
    // Statements in an archive are named after it, without its folder.
    const std::size_t folder = file.rfind('/') + 1;
    for (ImportedFile& result : results)
        result.statement.source =
            results.size() == 1 ? file : file.substr(0, folder) + result.statement.source;
    return results;
}

/// Whether the file is something else than a statement, such as a list of addresses.
bool IsOther(const ImportedFile& file)
{
    const bool noTable = file.rows.empty() &&
                         std::ranges::any_of(file.statement.asked, [](const OpenQuestion& open) {
                             return open.question == StatementQuestion::Columns;
                         });
    return file.statement.notAStatement || noTable;
}

/// Reports the statements of a file. What is none is only listed if nobody said that it is one, or
/// if there are statements beside it in an archive. Its name may say so, inside an archive too.
void Add(std::vector<ImportedFile> results, const FoundFile& file, ImportReport& report)
{
    const bool list =
        !file.isNamed || (results.size() > 1 && !std::ranges::all_of(results, IsOther));
    for (ImportedFile& imported : results)
        if (list && IsOther(imported) && !IsNamedStatement(imported.statement.source))
            report.AddOther({imported.statement.source, ReasonOf(imported.statement)});
        else
            report.Add(std::move(imported));
}

int Import(const ImportOptions& options)
{
    FoundFiles found = FindStatements(options.words);
    ImportReport report(options.dryRun, options.show);
    ImportRun run(options);
    {
        Progress progress(std::cerr, found.files.size());
        for (const FoundFile& file : found.files) {
            progress.Next(file.path);
            Add(run.Import(file.path), file, report);
        }
    }
    for (OtherFile& other : found.others)
        report.AddOther(std::move(other));
    if (report.Statements() == 1 && found.files.size() == 1 && options.words.size() == 1 &&
        found.files.front().path == options.words.front())
        report.PrintOne(options.json);
    else
        report.PrintAll(options.json);
    return report.AnyRefused() ? 1 : 0;
}

void AddFileOptions(Command& command, ImportOptions& options)
{
    command
        .Take("--columns", options.columns,
              "What the columns of a table hold, by number from 1 or by name: "
              "\"date=1,amount=4,text=3+5\"; amount- turns the sign, in= and out= name two columns")
        .Placeholder("SPEC");
    command.Take("--date-order", options.dateOrder, "Order of day, month and year in the file")
        .OneOf({"mdy", "dmy", "ymd"});
    command.Take("--decimal", options.decimal, "Decimal mark of the amounts").OneOf({".", ","});
    command
        .Take("--sign", options.sign,
              "Whether positive amounts of a table come in (normal) or go out (inverted)")
        .OneOf({"normal", "inverted"});
    command.Take("--skip", options.skip, "Lines of a table before its header or first row")
        .Between(0, std::numeric_limits<std::int32_t>::max());
    command
        .Take("--delimiter", options.delimiter,
              "What divides the columns of a table: a character, or tab")
        .Placeholder("CHAR");
    command.Take("--encoding", options.encoding, "Encoding of the texts, such as windows-1252")
        .Placeholder("NAME");
    command.Flag("--take-whole-rows", options.takeWholeRows,
                 "Of a file that breaks off, take the rows before the break");
}

}  // namespace

void AddImport(CLI::App& app, int& exitCode)
{
    auto options = std::make_shared<ImportOptions>();
    Command command(
        app, "import",
        "Read statement files of any kind (OFX, QFX, OFC, QIF, CSV, camt, MT940; also in zip or "
        "gzip) into their accounts; a folder names all statement files in it and its subfolders");
    command.Take("FILE", options->words, "Statement files, or folders of them")
        .Required()
        .Check(IsFileName());
    const Argument create =
        command
            .Take("--create", options->create,
                  "If a file's account is not known: make a new account of this name")
            .Placeholder("NAME");
    command
        .Take("--type", options->type,
              "Type of the new account (default: as the file says, else Bank)")
        .Needs(create)
        .OneOf(ImportableTypes());
    command
        .Take("--map", options->map,
              "If a file's account is not known: take this one, by number or description")
        .Placeholder("ACCOUNT")
        .Excludes(create);
    command
        .Take("--qif-account", options->qifAccount,
              "Of files that name no account: take this one, by number or description "
              "(default: as --map or --create says)")
        .Placeholder("ACCOUNT");
    AddFileOptions(command, *options);
    command.Flag("--show", options->show, "Print the rows as they are read");
    command.Flag("--dry-run", options->dryRun, "Try it on a copy of the data; nothing is changed");
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options, &exitCode] { exitCode = Import(*options); });
}

}  // namespace clb
