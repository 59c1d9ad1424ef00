#include "automation/FormSteps.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/ImportReport.h"
#include "cli/Options.h"
#include "cli/Overheard.h"
#include "cli/Program.h"
#include "cli/Progress.h"
#include "cli/StatementFiles.h"
#include "data/AccountKind.h"
#include "data/Trouble.h"
#include "import/StatementFile.h"

#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <new>

namespace clb {
namespace {

namespace fs = std::filesystem;

struct ImportOptions : FolderOptions {
    std::vector<std::string> words;
    std::optional<std::string> create;
    std::string type = account_type::Bank;
    std::optional<std::string> map;
    std::optional<std::string> qifAccount;
    std::string dateOrder = "mdy";
    bool dryRun = false;
};

/// What to answer when the program asks for a file's account.
struct Answer {
    enum class Kind { None, Create, Map };
    Kind kind = Kind::None;
    std::string description;
    std::string type;
};

/// Works the dialog that asks for the account of a statement; without an answer, or when it does
/// not fit, the dialog is cancelled.
class AccountChoice : public IModalHost {
public:
    /// answer is asked when the dialog opens, with the book locked: what it finds in the book
    /// stays.
    void Give(std::function<Answer()> answer) { ask_ = std::move(answer); }
    const Answer& Given() const { return answer_; }
    bool Asked() const { return asked_; }
    /// The account was asked for and none was given.
    bool Missing() const { return missing_; }

    void Run(Form& form) override
    {
        asked_ = true;
        answer_ = ask_();
        for (const FormStep& step : Steps())
            if (!PerformStep(form, step))
                break;
        missing_ = form.Visible();
        if (missing_ && form.CancelButton())
            form.CancelButton()->Press();
    }

private:
    static FormStep Step(FormStep::Kind kind, const char* control, const std::string& to = "")
    {
        return {kind, control, to, 0, {}};
    }
    std::vector<FormStep> Steps() const
    {
        using Kind = FormStep::Kind;
        switch (answer_.kind) {
            case Answer::Kind::Create:
                return {Step(Kind::Option, "optAccount(0)"),
                        Step(Kind::Set, "txtDescription", answer_.description),
                        Step(Kind::Choose, "cmbAccountType", answer_.type),
                        Step(Kind::Press, "btnOK")};
            case Answer::Kind::Map:
                return {Step(Kind::Option, "optAccount(1)"),
                        Step(Kind::Choose, "cmbAccountID", answer_.description),
                        Step(Kind::Press, "btnOK")};
            default: return {};
        }
    }

    std::function<Answer()> ask_;
    Answer answer_;
    bool asked_ = false;
    bool missing_ = false;
};

/// One run of the command over all of its files. Each file has the program loaded for itself, so
/// what went before is safe on the disk and no file meets the state that another one left.
class ImportRun {
public:
    explicit ImportRun(const ImportOptions& options) : options_(options)
    {
        if (options.dryRun)
            trial_.emplace(options.home);
        folder_ = trial_ ? trial_->Path() : OpenFolder(options.home);
        FindAccounts();
    }

    ImportedFile Import(const std::string& file);

private:
    void FindAccounts();
    Answer AnswerFor(const std::string& file, clsDatabase& data) const;
    void Load(const std::string& file, const std::string& path, ImportedFile& result);
    static void CountLeft(const std::string& path, ImportedFile& result);
    void Remember(const std::string& file, const AccountChoice& choice);
    static std::int32_t CountDescribedAs(clsDatabase& data, const std::string& description);
    static std::string NewDescription(clsDatabase& data, const std::string& wanted);
    static std::string OnlyAccountDescribedAs(clsDatabase& data, const std::string& description);

    const ImportOptions& options_;
    std::optional<TrialFolder> trial_;
    std::string folder_;
    std::optional<std::string>
        mapTo_;  // descriptions: an account that is mapped changes its number
    std::optional<std::string> qifTo_;
};

/// Accounts that are not there, or that cannot be told apart, end the command before any file.
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
        mapTo_ = qifTo_ = find(*options_.map);
    if (options_.qifAccount)
        qifTo_ = find(*options_.qifAccount);
}

std::int32_t ImportRun::CountDescribedAs(clsDatabase& data, const std::string& description)
{
    Recordset found;
    data.Fill(found,
              "SELECT AccountID FROM Account WHERE Description = '" +
                  clsDatabase::ToSqlString(description) + "'",
              true);
    return found.RecordCount();
}

/// The program's list names accounts by description: two of one description cannot be told apart.
std::string ImportRun::OnlyAccountDescribedAs(clsDatabase& data, const std::string& description)
{
    if (CountDescribedAs(data, description) > 1)
        throw RuntimeError(errors::InvalidCall,
                           "More than one account is described as " + description);
    return description;
}

/// A name that no account has: numbered from the second on.
std::string ImportRun::NewDescription(clsDatabase& data, const std::string& wanted)
{
    std::string description = wanted;
    for (int n = 2; CountDescribedAs(data, description) > 0; ++n)
        description = wanted + " (" + std::to_string(n) + ")";
    return description;
}

Answer ImportRun::AnswerFor(const std::string& file, clsDatabase& data) const
{
    const std::optional<std::string>& to = IsQif(file) ? qifTo_ : mapTo_;
    if (to)
        return {Answer::Kind::Map, *to, ""};
    if (options_.create)
        return {Answer::Kind::Create, NewDescription(data, *options_.create), options_.type};
    return {};
}

/// QIF files that follow go into the account made for the first one. A mapped account has got the
/// number of its file: the next unknown number is another account's, which must not take it.
void ImportRun::Remember(const std::string& file, const AccountChoice& choice)
{
    if (!choice.Asked() || choice.Missing())
        return;
    if (!IsQif(file))
        mapTo_.reset();
    else if (!qifTo_)
        qifTo_ = choice.Given().description;
}

/// Told from the file as it stands. The lines that an earlier run's repair dropped are left out
/// still.
void ImportRun::CountLeft(const std::string& path, ImportedFile& result)
{
    const std::string text = ReadStatement(path);
    result.leftOut = CountLeftOut(text, !IsQif(result.file));
    const std::string original = KeptStatement(result.file);
    std::error_code ignored;
    if (result.leftOut.linesBehindRepair > 0 || !fs::is_regular_file(original, ignored))
        return;
    try {
        result.leftOut.linesBehindRepair = LinesRepairedAway(text, ReadStatement(original));
    } catch (const RuntimeError&) {
        return;  // a kept file that cannot be read hinders no import
    }
    if (result.leftOut.linesBehindRepair > 0)
        result.whole = original;
}

void ImportRun::Load(const std::string& file, const std::string& path, ImportedFile& result)
{
    AccountChoice choice;
    Program program(folder_, choice, trial_.has_value());
    choice.Give([&] {
        program.Window().Data().Lock();
        return AnswerFor(file, program.Window().Data());
    });
    const std::map<std::string, DateText::Order> orders = {{"mdy", DateText::Order::MonthDayYear},
                                                           {"dmy", DateText::Order::DayMonthYear},
                                                           {"ymd", DateText::Order::YearMonthDay}};
    modImport& import = program.Window().Import();
    import.QifDateOrder(orders.at(options_.dateOrder));
    try {
        CountLeft(path, result);
        program.Files().Choose(path);
        program.Press("mnuF_Import");
    } catch (const RuntimeError& error) {
        result.failed = true;
        std::cerr << error.what() << '\n';
    }
    result.added = import.Counts().added;
    result.skipped = import.Counts().duplicates;
    result.balances = import.FormerBalances();
    result.backup = import.FormerFile();
    result.accountMissing = choice.Missing();
    result.refused = result.failed || choice.Missing() || program.Messages().Refused();
    program.Finish();
    Remember(file, choice);
}

ImportedFile ImportRun::Import(const std::string& file)
{
    ImportedFile result;
    result.file = file;
    const std::string path = trial_ ? trial_->CopyStatement(file) : file;
    std::error_code ignored;
    const bool kept = fs::exists(KeptStatement(path), ignored);
    const Overheard overheard(std::cerr);
    try {
        Load(file, path, result);
    } catch (const std::bad_alloc& error) {
        // Nothing of this file was kept; the next one may be smaller.
        result = ImportedFile();
        result.file = file;
        result.failed = result.refused = true;
        std::cerr << TroubleText(error) << '\n';
    }
    // A trial tells of the file, not of its copy.
    result.told = Replace(overheard.Text(), path, file);
    const bool repaired = !kept && fs::exists(KeptStatement(path), ignored);
    if (repaired && !trial_)
        result.whole = KeptStatement(path);
    // Of a file that was not read nothing is left out but what its repair has dropped.
    if (result.added + result.skipped == 0 && result.refused)
        result.leftOut = {.linesBehindRepair = repaired || !result.whole.empty()
                                                   ? result.leftOut.linesBehindRepair
                                                   : 0};
    return result;
}

int Import(const ImportOptions& options)
{
    const std::vector<std::string> files = FindStatements(options.words);
    const bool one = files.size() == 1 && files == options.words;
    ImportReport report(options.dryRun);
    ImportRun run(options);
    {
        Progress progress(std::cerr, files.size());
        for (const std::string& file : files) {
            progress.Next(file);
            report.Add(run.Import(file));
        }
    }
    if (one)
        report.PrintOne(options.json);
    else
        report.PrintAll(options.json);
    return report.AnyRefused() ? 1 : 0;
}

}  // namespace

void AddImport(CLI::App& app, int& exitCode)
{
    auto options = std::make_shared<ImportOptions>();
    Command command(
        app, "import",
        "Read statement files (OFX, QFX, OFC or QIF) into their accounts; a folder stands for all "
        "statement files in it and its subfolders");
    command.Take("FILE", options->words, "Statement files, or folders of them")
        .Required()
        .Check(IsFileName());
    const Argument create =
        command
            .Take("--create", options->create,
                  "If a file's account is not known: make a new account of this name")
            .Placeholder("NAME");
    command.Take("--type", options->type, "Type of the new account")
        .ShowDefault()
        .Needs(create)
        .OneOf(ImportableTypes());
    command
        .Take("--map", options->map,
              "If a file's account is not known: take this one, by number or description")
        .Placeholder("ACCOUNT")
        .Excludes(create);
    command
        .Take("--qif-account", options->qifAccount,
              "QIF files name no account: take this one for them, by number or description "
              "(default: as --map or --create says)")
        .Placeholder("ACCOUNT");
    command.Take("--date-order", options->dateOrder, "Order of day, month and year in QIF files")
        .ShowDefault()
        .OneOf({"mdy", "dmy", "ymd"});
    command.Flag("--dry-run", options->dryRun,
                 "Try it on a copy of the data and of the files; nothing is changed");
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options, &exitCode] { exitCode = Import(*options); });
}

}  // namespace clb
