#include "tests/model/Replay.h"

#include <algorithm>
#include <exception>

#include "tests/model/ModelWindow.h"
#include "tests/model/Program.h"
#include "tests/model/Shrink.h"

namespace clb::model {
namespace {

constexpr std::size_t kActionsOfAWalk = 10;
constexpr std::size_t kEverything = 1'000'000;

/// Lines that only one side has, in order. If there are none, the first place where the order
/// differs.
std::string Compare(const std::vector<std::string>& program, const std::vector<std::string>& model)
{
    if (program == model)
        return "";
    std::string lines;
    const auto only = [&lines](const char* who, std::vector<std::string> mine,
                               const std::vector<std::string>& other) {
        for (const std::string& line : other)
            if (const auto found = std::find(mine.begin(), mine.end(), line); found != mine.end())
                mine.erase(found);
        for (const std::string& line : mine)
            lines += std::string(who) + line + "\n";
    };
    only("  program: ", program, model);
    only("  model:   ", model, program);
    if (lines.empty()) {
        const auto parted = std::mismatch(program.begin(), program.end(), model.begin());
        lines = "  in another order, from\n  program: " + *parted.first +
                "\n  model:   " + *parted.second + "\n";
    }
    return lines;
}

class Comparison {
public:
    Comparison(Flaw flaw, Tally* tally)
        : model_(flaw), tally_(tally), stored_(model_.Stored()), shown_(model_.Shown())
    {
    }

    /// Performs the action. Returns what differs afterwards; empty if nothing does.
    std::string Do(const Action& action)
    {
        const std::string lines =
            action.deed == Deed::Look ? Look() : Step(program_, model_, action);
        std::vector<std::string> stored = model_.Stored();
        std::vector<std::string> shown = model_.Shown();
        if (tally_) {
            Tally::Deeds& deeds = tally_->deeds.at(static_cast<std::size_t>(action.deed));
            ++deeds.done;
            if (stored != stored_ || shown != shown_)
                ++deeds.telling;
        }
        shown_ = std::move(shown);
        stored_ = std::move(stored);
        return lines.empty() ? Compare(program_.Stored(), stored_) : lines;
    }

    /// All views, as a second program shows them with a copy of the file.
    std::string Walk()
    {
        if (tally_)
            ++tally_->walks;
        Program program(program_);
        ModelWindow model = model_;
        model.OpenAt(model_.Month());
        return PressAll(program, model);
    }

    /// Undoes everything in a copy, and redoes it.
    std::string GoBackAndForth()
    {
        static const std::vector<std::string> start = Program().Dump();
        Program program(program_);
        const std::vector<std::string> now = program.Dump();
        const ModelHistory& history = model_.History();
        if (program.Take(true, kEverything) != history.Done())
            return "  another number of steps was undone\n";
        if (const std::string lines = Compare(program.Dump(), start); !lines.empty())
            return "  everything undone:\n" + lines;
        if (program.Take(false, history.Done()) != history.Done())
            return "  another number of steps was redone\n";
        if (const std::string lines = Compare(program.Dump(), now); !lines.empty())
            return "  everything redone:\n" + lines;
        if (program.Take(false, kEverything) != history.Undone())
            return "  another number of undone steps was redone\n";
        return Compare(program.Stored(), history.Newest().Lines());
    }

private:
    std::string Step(Program& program, ModelWindow& model, const Action& action)
    {
        program.Do(action);
        model.Do(action);
        if (action.deed == Deed::Undo || action.deed == Deed::Redo || action.deed == Deed::GoBackTo)
            model.StandAt(program.Stands());
        if (tally_)
            ++tally_->comparisons;
        return Compare(program.Shown(), model.Shown());
    }

    std::string PressAll(Program& program, ModelWindow& model)
    {
        std::string lines;
        for (std::size_t node = 0; node < model.Nodes() && lines.empty(); ++node)
            lines = Step(program, model, {Deed::Press, static_cast<int>(node), 0, 0});
        return lines;
    }

    std::string Look()
    {
        std::string lines;
        for (const Deed deed : {Deed::Save, Deed::Escape, Deed::Escape})
            if (lines = Step(program_, model_, {deed, 0, 0, 0}); !lines.empty())
                return lines;
        const int back = model_.SelectedNode() - 1;
        lines = PressAll(program_, model_);
        return lines.empty() ? Step(program_, model_, {Deed::Press, back, 0, 0}) : lines;
    }

    Program program_;
    ModelWindow model_;
    Tally* tally_;
    std::vector<std::string> stored_;
    std::vector<std::string> shown_;
};

/// Looks through all views as the comparison does, without a program.
void Look(ModelWindow& model)
{
    for (const Deed deed : {Deed::Save, Deed::Escape, Deed::Escape})
        model.Do({deed, 0, 0, 0});
    const int back = model.SelectedNode() - 1;
    for (std::size_t node = 0; node < model.Nodes(); ++node)
        model.Do({Deed::Press, static_cast<int>(node), 0, 0});
    model.Do({Deed::Press, back, 0, 0});
}

std::string InWords(const std::vector<Action>& actions, Flaw flaw)
{
    ModelWindow model(flaw);
    std::string text;
    for (const Action& action : actions) {
        text += "  " + model.Describe(action) + "\n";
        if (action.deed != Deed::Look)
            model.Do(action);
        else
            Look(model);
    }
    return text;
}

}  // namespace

std::optional<Difference> Replay(const std::vector<Action>& actions, Flaw flaw, Tally* tally)
{
    Comparison comparison(flaw, tally);
    for (std::size_t at = 0; at < actions.size(); ++at) {
        const bool walks = (at + 1) % kActionsOfAWalk == 0 || at + 1 == actions.size();
        std::string lines;
        try {
            lines = comparison.Do(actions[at]);
            if (lines.empty() && walks)
                lines = comparison.Walk();
            if (lines.empty() && at + 1 == actions.size())
                lines = comparison.GoBackAndForth();
        } catch (const std::exception& error) {
            lines = std::string("  threw: ") + error.what() + "\n";
        }
        if (!lines.empty())
            return Difference{at, lines};
    }
    return std::nullopt;
}

std::optional<std::string> RunSeed(std::uint64_t seed, std::size_t count, Flaw flaw, Tally* tally)
{
    std::vector<Action> actions = RandomActions(seed, count);
    const auto difference = Replay(actions, flaw, tally);
    if (!difference)
        return std::nullopt;
    actions.resize(std::min(difference->action + 1, actions.size()));
    const auto fails = [flaw](const std::vector<Action>& some) {
        return Replay(some, flaw).has_value();
    };
    const std::vector<Action> shortest = Shrink(actions, fails);
    return "seed " + std::to_string(seed) + ", action " + std::to_string(difference->action + 1) +
           ", shrunk to " + std::to_string(shortest.size()) + ":\n" + InWords(shortest, flaw) +
           Replay(shortest, flaw)->lines;
}

}  // namespace clb::model
