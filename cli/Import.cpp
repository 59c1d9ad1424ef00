#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <new>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "cli/CapturedStream.h"
#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/ImportFiles.h"
#include "cli/ImportReport.h"
#include "cli/Program.h"
#include "cli/Progress.h"
#include "data/AccountKind.h"
#include "data/ErrorText.h"
#include "import/StatementFile.h"
#include "user/FormUser.h"
#include "views/MenuNames.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

struct ImportOptions : FolderOptions {
    std::vector<std::string> words;
    std::optional<std::string> create;
    std::string type = account_type::kBank;
    std::optional<std::string> map;
    std::optional<std::string> qifAccount;
    std::string dateOrder = "mdy";
    bool dryRun = false;
};

/// The answer to the dialog that asks for a file's account.
struct Answer {
    enum class Kind { None, Create, Map };
    Kind kind = Kind::None;
    std::string description;
    std::string type;
};

/// Works the dialog that asks for a statement's account. Cancels it if there is no answer or the
/// answer does not fit.
class AccountChoice : public IModalHost {
public:
    /// answer is called when the dialog opens. The book is locked then, so what answer finds in the
    /// book stays true.
    void AnswerWith(std::function<Answer()> answer) { ask_ = std::move(answer); }
    [[nodiscard]] const Answer& Given() const { return answer_; }
    [[nodiscard]] bool Asked() const { return asked_; }
    /// Whether the dialog opened and no account was given.
    [[nodiscard]] bool Missing() const { return missing_; }

    void Run(Form& form) override
    {
        asked_ = true;
        answer_ = ask_();
        FormUser user(form);
        Fill(user);
        missing_ = form.Visible();
        if (missing_)
            user.Cancel();
    }

private:
    /// Stops at the first control that refuses.
    bool Fill(FormUser& user) const
    {
        switch (answer_.kind) {
            case Answer::Kind::Create:
                return user.Option("optAccount(0)") &&
                       user.Set("txtDescription", answer_.description) &&
                       user.Choose("cmbAccountType", answer_.type) && user.Press("btnOK");
            case Answer::Kind::Map:
                return user.Option("optAccount(1)") &&
                       user.Choose("cmbAccountID", answer_.description) && user.Press("btnOK");
            case Answer::Kind::None: break;
        }
        return false;
    }

    std::function<Answer()> ask_;
    Answer answer_;
    bool asked_ = false;
    bool missing_ = false;
};

/// One run of the command over all of its files. The program is loaded anew for each file. The
/// files before it are then safely on the disk, and no file depends on the state that another one
/// left.
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
    // Accounts by description: mapping changes an account's number.
    std::optional<std::string> mapTo_;
    std::optional<std::string> qifTo_;
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

/// The dialog lists accounts by description, so two accounts of one description are ambiguous.
std::string ImportRun::OnlyAccountDescribedAs(clsDatabase& data, const std::string& description)
{
    if (CountDescribedAs(data, description) > 1)
        throw RuntimeError(errors::InvalidCall,
                           "More than one account is described as " + description);
    return description;
}

/// A description that no account has. Adds a number if the wanted one is taken.
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

/// Later QIF files go into the account that was made for the first one. A mapped account now has
/// the number from its file. The next unknown number belongs to another account, so it is not
/// mapped too.
void ImportRun::Remember(const std::string& file, const AccountChoice& choice)
{
    if (!choice.Asked() || choice.Missing())
        return;
    if (!IsQif(file))
        mapTo_.reset();
    else if (!qifTo_)
        qifTo_ = choice.Given().description;
}

/// Counts what the import leaves out of the file. Lines that the repair of an earlier run dropped
/// still count.
void ImportRun::CountLeft(const std::string& path, ImportedFile& result)
{
    const std::string text = ReadStatement(path);
    result.leftOut = CountOmissions(text, !IsQif(result.file));
    const std::string original = BackupOfStatement(result.file);
    std::error_code ignored;
    if (result.leftOut.linesAfterRepair > 0 || !fs::is_regular_file(original, ignored))
        return;
    try {
        result.leftOut.linesAfterRepair = LinesDroppedByRepair(text, ReadStatement(original));
    } catch (const RuntimeError&) {
        return;  // The import does not need the kept file.
    }
    if (result.leftOut.linesAfterRepair > 0)
        result.original = original;
}

void ImportRun::Load(const std::string& file, const std::string& path, ImportedFile& result)
{
    AccountChoice choice;
    Program program(folder_, choice, trial_.has_value());
    choice.AnswerWith([&] {
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
        program.Press(command_name::kImport);
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
    const bool kept = fs::exists(BackupOfStatement(path), ignored);
    const CapturedStream captured(std::cerr);
    try {
        Load(file, path, result);
    } catch (const std::bad_alloc& error) {
        // Nothing of this file was kept. The next one may be smaller.
        result = ImportedFile();
        result.file = file;
        result.failed = result.refused = true;
        std::cerr << ErrorText(error) << '\n';
    }
    // Messages of a trial name the file, not its copy.
    result.messages = Replace(captured.Text(), path, file);
    const bool repaired = !kept && fs::exists(BackupOfStatement(path), ignored);
    if (repaired && !trial_)
        result.original = BackupOfStatement(path);
    // If the file was not read, the only loss is what the line-ending repair dropped.
    if (result.added + result.skipped == 0 && result.refused)
        result.leftOut = {.linesAfterRepair = repaired || !result.original.empty()
                                                  ? result.leftOut.linesAfterRepair
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
        "Read statement files (OFX, QFX, OFC or QIF) into their accounts; a folder names all "
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
