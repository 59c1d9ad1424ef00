#include "app/frmHistory.h"

#include <algorithm>

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

frmHistory::frmHistory(History& history, IModalHost& host, Take take)
    : history_(history),
      host_(host),
      take_(std::move(take)),
      form_("frmHistory", "History"),
      lblFilter("lblFilter", "Show only:"),
      txtFilter("txtFilter"),
      lblSteps("lblSteps", "Steps:"),
      lstSteps("lstSteps", {"Time", "What", "Rows", ""}, {2}),
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
    List();
}

bool frmHistory::Matches(const Step& step) const
{
    const std::string wanted = ToUpperAscii(txtFilter.Text());
    const std::string text = ToUpperAscii(step.at + " " + step.what);
    return text.find(wanted) != std::string::npos;
}

void frmHistory::List()
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
            lines.push_back({day});
        }
        lines.push_back(
            {"",
             {{Time(step), step.what, std::to_string(step.rows), step.undone ? "undone" : ""},
              step.undone}});
        places_[lines.size()] = place;
    }
    lstSteps.Fill(std::move(lines));
    if (!places_.empty())
        lstSteps.Choose(places_.begin()->first);
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
    std::vector<RowList::Line> lines;
    const Step* const step = Chosen();
    if (step != nullptr)
        for (const RowStory& row : history_.Rows(*step, kMostRows))
            for (RowList::Line& line : LinesOf(row))
                lines.push_back(std::move(line));
    if (step != nullptr && step->rows > static_cast<std::int64_t>(kMostRows))
        lines.push_back({"and " +
                         std::to_string(step->rows - static_cast<std::int64_t>(kMostRows)) +
                         " more rows"});
    lstChanges.Fill(std::move(lines));
    btnBack.Enabled(step != nullptr && !step->undone);
    btnForward.Enabled(step != nullptr && step->undone);
    if (step == nullptr)
        lblTakes.Caption(steps_.empty() ? "Nothing has been changed yet." : "No step matches.");
    else
        lblTakes.Caption(
            step->undone ? "Going forward to after this brings back " + Count(StepsTo(*step)) + "."
                         : "Going back to before this takes back " + Count(StepsTo(*step)) + ".");
}

std::vector<RowList::Line> frmHistory::LinesOf(const RowStory& row)
{
    const std::string name = RowName(row.table, row.row, row.is ? *row.is : *row.was);
    const char* const what = !row.was ? "Added: " : !row.is ? "Deleted: " : "Changed: ";
    std::vector<RowList::Line> lines{{what + name}};
    const NamedValues& cells = row.is ? *row.is : *row.was;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const Value was = row.was ? (*row.was)[i].second : Value();
        const Value is = row.is ? (*row.is)[i].second : Value();
        if (was != is)
            lines.push_back({"", {{cells[i].first, ToText(was), ToText(is)}, false}});
    }
    return lines;
}

void frmHistory::Go(bool back)
{
    const Step* const step = Chosen();
    if (step == nullptr)
        return;
    take_(back, StepsTo(*step));
    Load();
}

}  // namespace clb
