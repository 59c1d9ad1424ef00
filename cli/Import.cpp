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
    std::vector<ShownRow> rows;
    if (options_.show)
        command.Watch(
            [&rows](const StatementRow& row, const std::string& identifier, RowState state) {
                rows.push_back({row, identifier, state == RowState::Added ? "added" : "known"});
            });
    std::vector<ImportedFile> results;
    for (ImportedStatement& statement : command.Import(file))
        results.push_back({.statement = std::move(statement)});
    modImport& import = program.Window().Import();
    if (!results.empty()) {
        results.front().rows = std::move(rows);
        results.back().balances = import.FormerBalances();
        results.back().backup = import.FormerFile();
    }
    const bool refused = program.Messages().Refused();
    for (ImportedFile& result : results)
        result.accountMissing = result.statement.refused == kAccountMissing;
    if (refused)
        for (ImportedFile& result : results)
            result.failed = true;
    program.Finish();
    return results;
}

std::vector<ImportedFile> ImportRun::Import(const std::string& file)
{
    const CapturedStream captured(std::cerr);
    std::vector<ImportedFile> results;
    try {
        results = Load(file);
    } catch (const RuntimeError& error) {
        std::cerr << error.what() << '\n';
    } catch (const std::bad_alloc& error) {
        // Nothing of this file was kept. The next one may be smaller.
        std::cerr << ErrorText(error) << '\n';
    }
    if (results.empty()) {
        results.emplace_back();
        results.front().failed = true;
    }
    results.front().messages = captured.Text();
    if (results.size() == 1)
        results.front().statement.source = file;
    return results;
}

int Import(const ImportOptions& options)
{
    const std::vector<std::string> files = FindStatements(options.words);
    ImportReport report(options.dryRun, options.show);
    ImportRun run(options);
    std::size_t statements = 0;
    {
        Progress progress(std::cerr, files.size());
        for (const std::string& file : files) {
            progress.Next(file);
            for (ImportedFile& imported : run.Import(file)) {
                report.Add(std::move(imported));
                ++statements;
            }
        }
    }
    if (statements == 1 && files == options.words)
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
    command.Flag("--dry-run", options->dryRun,
                 "Try it on a copy of the data and of the files; nothing is changed");
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options, &exitCode] { exitCode = Import(*options); });
}

}  // namespace clb
