#include <iostream>
#include <limits>
#include <memory>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/Program.h"
#include "cli/Table.h"
#include "engine/storage/Database.h"
#include "history/HistoryJson.h"
#include "platform/ProgramFolder.h"

namespace clb {
namespace {

struct HistoryOptions : FolderOptions {
    std::int64_t limit = std::numeric_limits<std::int64_t>::max();
    std::optional<std::int64_t> step;
};

struct UndoOptions : FolderOptions {
    std::int64_t steps = 1;
};

/// Cells whose content the step changed, or all that hold something of a row that came or went.
std::string TextOf(const RowStory& row)
{
    std::string text;
    const auto add = [&text](const std::string& part) {
        text += (text.empty() ? "" : ", ") + part;
    };
    const NamedValues& cells = row.is ? *row.is : *row.was;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const auto& [column, value] = cells[i];
        if (row.was && row.is) {
            const Value& was = (*row.was)[i].second;
            if (was != value)
                add(column + ": " + ToText(was) + " -> " + ToText(value));
        } else if (!IsEmpty(value)) {
            add(column + ": " + ToText(value));
        }
    }
    return text;
}

const char* KindOf(const RowStory& row)
{
    if (!row.was)
        return "added";
    return row.is ? "changed" : "deleted";
}

void PrintSteps(const std::vector<Step>& steps)
{
    Table table;
    table.AddColumn("Step", true);
    table.AddColumn("When", false);
    table.AddColumn("What", false);
    table.AddColumn("Rows", true);
    table.AddColumn("", false);
    for (const Step& step : steps)
        table.AddRow({std::to_string(step.number), step.at, step.what, std::to_string(step.rows),
                      step.undone ? "undone" : ""});
    table.Print(std::cout);
}

void PrintStep(HistoryReader& history, const Step& step)
{
    // A damaged record ends the command before it prints anything.
    const std::vector<RowStory> rows = history.Rows(step, std::numeric_limits<std::size_t>::max());
    PrintSteps({step});
    std::cout << '\n';
    Table table;
    for (const char* caption : {"Table", "Row", "", "Cells"})
        table.AddColumn(caption, false);
    for (const RowStory& row : rows)
        table.AddRow({row.table, std::to_string(row.row), KindOf(row), TextOf(row)});
    table.Print(std::cout);
}

void PrintHistory(const HistoryOptions& options)
{
    Database book;
    book.OpenToRead(DatabasePath(OpenFolder(options.home)));
    book.Run("BEGIN");  // all that is read is of one moment
    HistoryReader history(book);
    if (options.step) {
        const std::optional<Step> step = history.Find(*options.step);
        if (!step)
            throw RuntimeError(errors::ElementNotFound,
                               "The history has no step " + std::to_string(*options.step) + ".");
        if (!options.json)
            return PrintStep(history, *step);
        std::cout << ToLine(StepReply(history, *step)) << '\n';
        return;
    }
    const std::vector<Step> steps = NewestSteps(history, options.limit);
    if (options.json)
        std::cout << ToLine({{"steps", ToJson(steps)}}) << '\n';
    else
        PrintSteps(steps);
}

std::string NothingTo(bool undo, const std::string& ended)
{
    if (!undo)
        return "There is nothing to redo.";
    return ended.empty() ? "There is nothing to undo."
                         : "Tables were changed at " + ended +
                               ". What was done before that cannot be undone.";
}

/// What was undone or redone, in lines.
std::string ReportOf(const std::vector<Step>& steps, bool undo, bool json)
{
    if (json)
        return ToLine({{undo ? "undone" : "redone", ToJson(steps)}}) + '\n';
    std::string report;
    for (const Step& step : steps)
        report += (undo ? "Undone: " : "Redone: ") +
                  Replace(Printable(step.what + " of " + step.at), "\n", " ") + '\n';
    return report;
}

/// Undoes or redoes. Exit code 1 if nothing could be done.
int TakeSteps(const UndoOptions& options, bool undo)
{
    NoForms forms;
    Program program(OpenFolder(options.home), forms);
    History& history = program.Window().Steps();
    const HistoryOutcome outcome = undo ? history.Undo(options.steps) : history.Redo(options.steps);
    const std::string ended = undo && outcome.steps.empty() ? history.EndedAt() : std::string();
    // Once the steps are kept, nothing may fail for lack of memory.
    const std::string report = ReportOf(outcome.steps, undo, options.json);
    program.Finish();
    std::cout << report;
    if (outcome.steps.empty())
        std::cerr << NothingTo(undo, ended) << '\n';
    return outcome.steps.empty() ? 1 : 0;
}

void AddTakeSteps(CLI::App& app, int& exitCode, bool undo)
{
    auto options = std::make_shared<UndoOptions>();
    Command command(app, undo ? "undo" : "redo",
                    undo ? "Take back the last commands, whoever gave them"
                         : "Bring back what was undone last");
    command
        .Take("--steps", options->steps,
              undo ? "How many commands" : "How many of the commands that were undone")
        .Positive()
        .ShowDefault();
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options, undo, &exitCode] { exitCode = TakeSteps(*options, undo); });
}

}  // namespace

void AddHistory(CLI::App& app, int&)
{
    auto options = std::make_shared<HistoryOptions>();
    Command command(app, "history", "List what commands have changed, the newest first");
    command.Take("--limit", options->limit, "How many steps (default: all)").Positive();
    command.Take("--step", options->step, "Show what this step has changed").Positive();
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options] { PrintHistory(*options); });
}

void AddUndo(CLI::App& app, int& exitCode)
{
    AddTakeSteps(app, exitCode, true);
}

void AddRedo(CLI::App& app, int& exitCode)
{
    AddTakeSteps(app, exitCode, false);
}

}  // namespace clb
