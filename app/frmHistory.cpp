#include "app/frmHistory.h"

#include <algorithm>
#include <optional>

#include "app/RowWords.h"
#include "base/Text.h"

namespace clb {
namespace {

/// A step may be an import of a hundred thousand rows.
constexpr std::size_t kMostRows = 500;

std::string Day(const Step& step)
{
    return step.at.substr(0, 10);
}

std::string Time(const Step& step)
{
    return step.at.size() > 11 ? step.at.substr(11, 5) : std::string();
}

std::string Count(std::int64_t steps)
{
    return steps == 1 ? "1 step" : std::to_string(steps) + " steps";
}

}  // namespace

frmHistory::frmHistory(History& history, IModalHost& host, const IDateForm& dates,
                       const Date& today, Take take)
    : history_(history),
      host_(host),
      dates_(dates),
      today_(today),
      take_(std::move(take)),
      form_("frmHistory", "History"),
      lblFilter("lblFilter", "Show only:"),
      txtFilter("txtFilter"),
      lblSteps("lblSteps", "Steps:"),
      lstSteps("lstSteps", {"Time", "What", "Rows", "State"}, {2}),
      lblChanges("lblChanges", "Changes:"),
      lstChanges("lstChanges", {"Field", "Was", "Became"}),
      lblTakes("lblTakes", ""),
      btnBack("btnBack", "Go back to before this"),
      btnForward("btnForward", "Go forward to after this"),
      btnClose("btnClose", "Close")
{
    for (Control* control :
         std::initializer_list<Control*>{&lblFilter, &txtFilter, &lblSteps, &lstSteps, &lblChanges,
                                         &lstChanges, &lblTakes, &btnBack, &btnForward, &btnClose})
        form_.Add(*control);
    form_.CancelButton(btnClose);
    txtFilter.TextChanged().connect([this] { List(); });
    lstSteps.Choice().connect([this] { ShowStep(); });
    btnBack.Click().connect([this] { Go(true); });
    btnForward.Click().connect([this] { Go(false); });
    btnClose.Click().connect([this] { form_.Hide(); });
}

void frmHistory::ShowDialog()
{
    Load();
    form_.Focus(lstSteps);
    form_.ShowModal(host_);
}

void frmHistory::Load()
{
    steps_.clear();
    history_.Visit([this](const Step& step) {
        steps_.push_back(step);
        return true;
    });
    endedAt_ = history_.EndedAt();
    List();
}

bool frmHistory::Matches(const Step& step) const
{
    const std::string wanted = ToUpperAscii(txtFilter.Text());
    const std::string text = ToUpperAscii(DayHeading(Day(step)) + " " + step.at + " " + step.what);
    return text.find(wanted) != std::string::npos;
}

std::string frmHistory::DayHeading(const std::string& day) const
{
    const std::optional<Date> date = Date::FromIso(day);
    const std::int32_t ago = date ? today_.Days() - date->Days() : -1;
    const char* const near = ago == 0 ? "Today, " : ago == 1 ? "Yesterday, " : "";
    return near + ShownDay(day);
}

/// The day as the grid shows dates.
std::string frmHistory::ShownDay(const std::string& day) const
{
    const std::optional<Date> date = Date::FromIso(day);
    return date ? dates_.Format(*date) : day;
}

/// Lists the steps that match; the one that was chosen stays chosen if it is among them.
void frmHistory::List()
{
    lstSteps.Fill(StepLines());
    ChooseStep(shown_);
}

std::vector<RowList::Line> frmHistory::StepLines()
{
    std::vector<RowList::Line> lines;
    places_.clear();
    std::string day;
    for (std::size_t place = 0; place < steps_.size(); ++place) {
        const Step& step = steps_[place];
        if (!Matches(step))
            continue;
        if (Day(step) != day) {
            day = Day(step);
            lines.push_back({DayHeading(day)});
        }
        lines.push_back(
            {"",
             {{Time(step), step.what, std::to_string(step.rows), step.undone ? "undone" : ""},
              step.undone}});
        places_[lines.size()] = place;
    }
    if (!endedAt_.empty()) {
        // Two lines, because the list is too narrow for both sentences.
        lines.push_back({"Tables were changed on " + ShownDay(endedAt_.substr(0, 10)) + "."});
        lines.push_back({"Earlier steps cannot be undone."});
    }
    return lines;
}

/// Chooses the step with this number; without it the newest that is not undone, else the first.
void frmHistory::ChooseStep(std::int64_t number)
{
    std::size_t line = 0;
    for (const auto& [at, place] : places_) {
        const Step& step = steps_[place];
        if (step.number == number) {
            line = at;
            break;
        }
        if (line == 0 && !step.undone)
            line = at;
    }
    if (line == 0 && !places_.empty())
        line = places_.begin()->first;
    if (line != 0)
        lstSteps.Choose(line);
    else
        ShowStep();
}

const Step* frmHistory::Chosen() const
{
    const auto place = places_.find(lstSteps.Chosen());
    return place == places_.end() ? nullptr : &steps_[place->second];
}

/// How many steps lead there, the step itself included.
std::int64_t frmHistory::StepsTo(const Step& step) const
{
    return std::count_if(steps_.begin(), steps_.end(), [&step](const Step& other) {
        return other.undone == step.undone &&
               (step.undone ? other.number <= step.number : other.number >= step.number);
    });
}

void frmHistory::ShowStep()
{
    const Step* const step = Chosen();
    shown_ = step != nullptr ? step->number : shown_;
    btnBack.Enabled(step != nullptr && !step->undone);
    btnForward.Enabled(step != nullptr && step->undone);
    lblTakes.Caption(WhatItTakes());
    try {
        lstChanges.Fill(step != nullptr ? ChangesOf(*step) : std::vector<RowList::Line>());
    } catch (const HistoryRefusal& refusal) {
        lstChanges.Fill({});
        lblTakes.Caption(refusal.what());
    }
}

std::string frmHistory::WhatItTakes() const
{
    const Step* const step = Chosen();
    if (step == nullptr && !steps_.empty())
        return "No step matches.";
    if (step == nullptr)
        return endedAt_.empty() ? "There is nothing to undo."
                                : "There is nothing to undo since tables were changed.";
    return step->undone ? "Going forward to after this brings back " + Count(StepsTo(*step)) + "."
                        : "Going back to before this takes back " + Count(StepsTo(*step)) + ".";
}

std::vector<RowList::Line> frmHistory::ChangesOf(const Step& step) const
{
    std::vector<RowList::Line> lines;
    for (const RowStory& row : history_.Rows(step, kMostRows))
        for (RowList::Line& line : LinesOf(row))
            lines.push_back(std::move(line));
    const std::int64_t more = step.rows - static_cast<std::int64_t>(kMostRows);
    if (more > 0)
        lines.push_back({"and " + std::to_string(more) + (more == 1 ? " more row" : " more rows")});
    return lines;
}

std::vector<RowList::Line> frmHistory::LinesOf(const RowStory& row) const
{
    const NamedValues none;
    const NamedValues& cells = row.is ? *row.is : row.was ? *row.was : none;
    const char* const what = !row.was ? "Added: " : !row.is ? "Deleted: " : "Changed: ";
    std::vector<RowList::Line> lines{
        {what + RowName(row.table, row.row, cells,
                        [this](const std::string& day) { return ShownDay(day); })}};
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::string was =
            row.was && i < row.was->size() ? ShownCell((*row.was)[i].second, dates_) : "";
        const std::string is = row.is ? ShownCell(cells[i].second, dates_) : "";
        if (was != is)
            lines.push_back({"", {{FieldWord(row.table, cells[i].first), was, is}, false}});
    }
    return lines;
}

void frmHistory::Go(bool back)
{
    const Step* step = Chosen();
    if (step == nullptr)
        return;
    const std::int64_t number = step->number;
    const std::int64_t steps = StepsTo(*step);
    // From here on no other program can add steps to those that were announced.
    history_.Lock();
    Load();
    step = Chosen();
    if (step == nullptr || step->number != number || step->undone == back ||
        StepsTo(*step) != steps) {
        lblTakes.Caption("Another program has changed the book meanwhile. " + WhatItTakes());
        return;
    }
    take_(back, steps);
    Load();
    form_.Focus(lstSteps);
}

}  // namespace clb
