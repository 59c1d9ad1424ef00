#include "automation/FormSteps.h"
#include "cli/Commands.h"
#include "cli/Options.h"
#include "cli/Program.h"

#include <iostream>
#include <memory>

namespace clb {
namespace {

struct ImportOptions : FolderOptions {
    std::string file;
    std::optional<std::string> create;
    std::string type = "Bank";
    std::optional<std::string> map;
};

/// Works the dialog that asks for the account of a statement as the options say; without them, or
/// when they do not fit, the dialog is cancelled.
class AccountChoice : public IModalHost {
public:
    explicit AccountChoice(const ImportOptions& options) : options_(options) {}
    /// Description of the account to map to.
    void MapTo(const std::string& description) { description_ = description; }
    /// The account was asked for and none was given.
    bool Missing() const { return missing_; }

    void Run(Form& form) override
    {
        missing_ = true;
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
        if (options_.create)
            return {Step(Kind::Option, "optAccount(0)"),
                    Step(Kind::Set, "txtDescription", *options_.create),
                    Step(Kind::Choose, "cmbAccountType", options_.type),
                    Step(Kind::Press, "btnOK")};
        if (options_.map)
            return {Step(Kind::Option, "optAccount(1)"),
                    Step(Kind::Choose, "cmbAccountID", description_), Step(Kind::Press, "btnOK")};
        return {};
    }

    const ImportOptions& options_;
    std::string description_;
    bool missing_ = false;
};

std::int32_t CountTransactions(clsDatabase& data)
{
    Recordset rows;
    data.Fill(rows, "SELECT COUNT( 1 ) AS [Count] FROM Trans", true);
    return ToLong(rows.Get("Count"));
}

void PrintResult(const ImportOptions& options, std::int32_t imported)
{
    if (options.json)
        std::cout << ToLine({{"file", options.file}, {"imported", imported}}) << '\n';
    else
        std::cout << "Imported " << imported
                  << (imported == 1 ? " transaction\n" : " transactions\n");
}

int ImportFile(const ImportOptions& options)
{
    AccountChoice choice(options);
    Program program(OpenFolder(options.home), choice);
    clsDatabase& data = program.Window().Data();
    if (options.map)
        choice.MapTo(FindAccount(data, *options.map).description);
    const std::int32_t before = CountTransactions(data);
    program.Files().Choose(options.file);
    program.Window().menus.Find("mnuF_Import")->Press();
    const std::int32_t imported = CountTransactions(data) - before;
    program.Finish();

    if (choice.Missing()) {
        std::cerr << "The file's account is not known. Say which it is:\n"
                     "  --create NAME --type TYPE   makes a new account\n"
                     "  --map ACCOUNT               takes an existing one\n";
        return 1;
    }
    PrintResult(options, imported);
    return program.Messages().Refused() ? 1 : 0;
}

}  // namespace

void AddImport(CLI::App& app, int& exitCode)
{
    auto options = std::make_shared<ImportOptions>();
    CLI::App* command = app.add_subcommand(
        "import", "Read a statement file (OFX, QFX, OFC or QIF) into its account");
    command->add_option("FILE", options->file, "Statement file")->required();
    CLI::Option* create =
        command
            ->add_option("--create", options->create,
                         "If the file's account is not known: make a new account of this name")
            ->type_name("NAME");
    command->add_option("--type", options->type, "Type of the new account")
        ->capture_default_str()
        ->needs(create)
        ->check(CLI::IsMember({"Bank", "Cash", "Credit Card", "Investment"}));
    command
        ->add_option("--map", options->map,
                     "If the file's account is not known: take this one, by number or description")
        ->type_name("ACCOUNT")
        ->excludes(create);
    AddHome(*command, *options);
    AddJson(*command, *options);
    command->callback([options, &exitCode] { exitCode = ImportFile(*options); });
}

}  // namespace clb
