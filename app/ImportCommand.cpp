#include "app/ImportCommand.h"

#include <filesystem>
#include <memory>

#include "app/HistoryCommands.h"
#include "app/ImportSummary.h"
#include "app/NewRows.h"
#include "app/StatementImport.h"
#include "app/StatementQuestions.h"
#include "app/StepPlaces.h"
#include "app/frmController.h"
#include "app/frmImported.h"
#include "base/Product.h"
#include "base/RuntimeError.h"
#include "views/NodeTag.h"

namespace clb {
namespace {

constexpr const char* kFilter =
    "All statements|*.ofx;*.qfx;*.ofc;*.qif;*.csv;*.tsv;*.tab;*.txt;*.xml;*.camt;*.sta;*.mt9;"
    "*.mt940;*.mt942;*.940;*.942;*.swi;*.zip;*.gz|"
    "OFX, QFX|*.ofx;*.qfx;*.ofc|"
    "QIF|*.qif|"
    "CSV|*.csv;*.tsv;*.tab;*.txt|"
    "camt|*.xml;*.camt;*.zip|"
    "MT940/942|*.sta;*.mt9;*.mt940;*.mt942;*.940;*.942;*.swi;*.txt|"
    "All files|*|";

/// The import selects the node of an account that it has made, while a register may still show
/// another account. Shows the selected account, so that no new row goes into the wrong one.
void ShowImportedAccount(frmController& window)
{
    const clsView& view = window.View();
    if (!view.Definition().ofAccount)
        return;
    const std::string& tag = window.TreeView.Node(window.TreeView.Selected()).tag;
    if (node_tag::IsAccount(tag) && tag != node_tag::OfAccount(view.View(), view.AccountID()))
        window.ShowSelected();
}

void ShowLatest(frmController& window, const NewRows& rows)
{
    if (const auto latest = rows.Latest(window.Data()))
        ShowTouched(window, {*latest});
}

void ImportOneStatement(frmController& window)
{
    const WorkProgress::Work work(window.progress);
    window.Import().ImportFile();
    ShowImportedAccount(window);
    window.ShowBalanceNotice();
}

/// Imports the files of one command and says what came of them.
class ImportRun {
public:
    explicit ImportRun(frmController& window)
        : window_(window),
          questions_(window),
          summary_(std::make_shared<ImportSummary>()),
          newest_(NewestStep())
    {
    }

    void Import(const std::string& path)
    {
        window_.progress.Step(0, 0, "Reading " + NameOf(path));
        const std::int64_t before = NewestStep();
        bool kept = false;
        NewRows added;
        try {
            StatementImport import(window_, questions_);
            for (const ImportedStatement& statement : import.Import(path)) {
                summary_->Add(statement);
                kept = kept || !statement.accounts.empty();
            }
            added = import.Added();
        } catch (const RuntimeError& error) {
            if (error.Number() != errors::FileNotFound && error.Number() != errors::PathAccess)
                throw;
            summary_->Add({.source = NameOf(path), .refused = error.what()});
        }
        window_.Settle();
        // The dialogs for the first accounts of a file may have made them before it was cancelled.
        if (!kept && NewestStep() != before)
            TakeBackSteps(window_, 1);
        added_.Add(added);
        if (added.Any() && window_.GivenPorts().showsResults)
            window_.Unseen().Add(added, NewestStep());
    }

    /// Shows the account and the month of the latest new row to a person.
    void Show() const
    {
        if (!added_.Any() || !window_.GivenPorts().showsResults)
            return ShowImportedAccount(window_);
        ShowLatest(window_, added_);
    }

    void Tell() const
    {
        if (summary_->AnyImported())
            ShowResult();
        else if (const std::string refusals = summary_->Refusals(); !refusals.empty())
            window_.GivenPorts().messages.Show(refusals, box_style::Exclamation, product::kTitle);
    }

private:
    static std::string NameOf(const std::string& path)
    {
        return std::filesystem::path(path).filename().string();
    }
    [[nodiscard]] std::int64_t NewestStep() const
    {
        const auto step = window_.Steps().NextToUndo();
        return step ? step->number : 0;
    }
    [[nodiscard]] std::int64_t StepsMade() const
    {
        std::int64_t steps = 0;
        window_.Steps().Visit([this, &steps](const Step& step) {
            steps += step.number > newest_ ? 1 : 0;
            return step.number > newest_;
        });
        return steps;
    }
    void ShowResult() const
    {
        frmController* const window = &window_;
        std::vector<ResultBar::Action> actions;
        if (added_.Any())
            actions.push_back({"Show", [window, added = added_] { ShowLatest(*window, added); }});
        if (summary_->HasDetails())
            actions.push_back({"What was left out", [window, summary = summary_] {
                                   frmImported(*summary).ShowDialog(window->GivenPorts().modal);
                               }});
        if (const std::int64_t steps = StepsMade(); steps > 0)
            actions.push_back({"Undo", [window, steps] { UndoSteps(*window, steps); }});
        const std::string months = added_.Months(window_.Data());
        const std::string sentence =
            summary_->Sentence() + (months.empty() ? "" : " \u2013 " + months);
        window_.Results().Say(sentence, std::move(actions));
        window_.Results().Note(sentence);
    }

    frmController& window_;
    StatementQuestions questions_;
    std::shared_ptr<ImportSummary> summary_;  // the result bar's button outlives the run
    std::int64_t newest_;
    NewRows added_;
};

void AskForStatements(frmController& window)
{
    FileQuestion question;
    question.title = "Import";
    question.filter = kFilter;
    question.flags = file_flags::FileMustExist | file_flags::HideReadOnly;
    question.several = true;
    const auto chosen = window.GivenPorts().files.Ask(question);
    if (!chosen)
        return;
    std::vector<std::string> paths{chosen->path};
    paths.insert(paths.end(), chosen->further.begin(), chosen->further.end());
    ImportStatements(window, paths);
}

}  // namespace

void ImportCommand(frmController& window)
{
    if (window.GivenPorts().importsEveryKind)
        AskForStatements(window);
    else
        ImportOneStatement(window);
}

void ImportStatements(frmController& window, const std::vector<std::string>& paths)
{
    const WorkProgress::Work work(window.progress);
    ImportRun run(window);
    try {
        for (const std::string& path : paths)
            run.Import(path);
    } catch (const RuntimeError&) {
        run.Tell();
        throw;
    }
    run.Show();
    window.ShowBalanceNotice();
    run.Tell();
}

}  // namespace clb
