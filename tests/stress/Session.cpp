#include "tests/stress/Session.h"

#include <stdexcept>

#include "base/Money.h"
#include "ports/IMessageBox.h"

namespace clb {
namespace {

constexpr const char* kProgram = "session";
constexpr std::int32_t kQuestion = box_style::YesNo + box_style::Question;
constexpr std::int32_t kDate = 1;
constexpr std::int32_t kDescription = 2;
constexpr std::int32_t kAmount = 3;

std::int32_t ColumnOf(Cell cell)
{
    switch (cell) {
        case Cell::Amount: return kAmount;
        case Cell::Category: return 5;
        default: return 6;
    }
}

/// The cells of a data row that say which piece it shows.
bool Shows(const Json& row, std::int32_t number, std::int32_t piece)
{
    return row["kind"] == "data" && row["values"][10] == number && row["values"][11] == piece;
}

}  // namespace

std::string AmountText(std::int64_t amount)
{
    return Money::FromScaled(amount).ToText();
}

Session::Session(const std::string& folder, std::function<void()> pause)
    : program_({"--home", folder, "--now", "2006-01-15T10:00:00"}), pause_(std::move(pause))
{
}

Json Session::Ask(const Json& request)
{
    const std::string line = ToLine(request);
    Json reply = program_.AskLine(line);
    const std::string answer = ToLine(reply);
    if (reply["ok"] == false)
        Hear(answer);
    story_ += line + " -> " + answer.substr(0, 300) + "\n";
    return reply;
}

void Session::Hear(const std::string& text)
{
    said_ += text + "\n";
    locked_ = locked_ || text.find("is locked by") != std::string::npos;
}

Json Session::Log()
{
    Json events = program_.Ask({{"do", "log"}})["events"];
    for (const Json& event : events) {
        if (event["event"] != "box")
            continue;
        story_ += ToLine(event) + "\n";
        Hear(event["text"]);
        yesWaits_ = yesWaits_ && event["answer"] != "Yes";
    }
    return events;
}

void Session::Show(const std::string& account, Month month)
{
    for (const Json& request :
         {Json{{"do", "click"}, {"text", account}},
          Json{{"do", "set"}, {"control", "txtYear"}, {"to", std::to_string(month.year)}},
          Json{{"do", "set"}, {"control", "cmbPeriod"}, {"to", month.period}},
          Json{{"do", "click"}, {"text", account}}})
        if (Ask(request)["ok"] != true)
            throw std::runtime_error("The register cannot be shown:\n" + story_);
    shown_ = month;
    Log();
}

std::vector<std::string> Session::ShownRows()
{
    std::vector<std::string> shown;
    const Json grid = program_.Ask({{"do", "grid"}});
    for (const Json& row : grid["rows"])
        if (row["kind"] == "data")
            shown.push_back(row["values"][10].dump() + "/" + row["values"][11].dump() + ": " +
                            row["values"][2].get<std::string>());
    return shown;
}

std::int32_t Session::RowOf(std::int32_t number, std::int32_t piece)
{
    const Json grid = program_.Ask({{"do", "grid"}});
    for (const Json& row : grid["rows"])
        if (Shows(row, number, piece))
            return row["row"];
    return 0;
}

bool Session::GoTo(std::int32_t row)
{
    const Json reply = Ask({{"do", "move"}, {"row", row}, {"col", 1}});
    return reply["ok"] == true && reply["moved"] == true;
}

ReportedStep& Session::Record(std::int32_t number, std::int32_t piece, ReportedStep::Kind kind)
{
    return steps_[number].emplace_back(
        ReportedStep{.kind = kind, .program = kProgram, .piece = piece});
}

void Session::RecordRefusal(std::int32_t number, std::int32_t piece)
{
    const bool changed = said_.find("has changed") != std::string::npos;
    Record(number, piece, changed ? ReportedStep::Kind::Refused : ReportedStep::Kind::Missing)
        .shown = shown_;
}

void Session::Escape()
{
    Ask({{"do", "escape"}});
    Ask({{"do", "escape"}});
}

bool Session::Type(const Json& row, std::int32_t column, const std::string& text)
{
    const Json reply = Ask({{"do", "edit"}, {"row", row}, {"col", column}, {"text", text}});
    return reply["ok"] == true && reply["edited"] == true;
}

void Session::Edit(std::int32_t number, std::int32_t piece, Cell cell, const std::string& text)
{
    said_.clear();
    const std::int32_t row = RowOf(number, piece);
    if (row == 0)
        return;
    pause_();
    const bool amount = cell == Cell::Amount;
    if (!Type(row, ColumnOf(cell), amount ? AmountText(std::stoll(text)) : text)) {
        RecordRefusal(number, piece);
        return Escape();
    }
    Record(number, piece, ReportedStep::Kind::Type).cell = cell;
    pause_();
    const Json reply = Ask({{"do", "save"}});
    std::optional<bool> mine;
    for (const Json& event : Log())
        if (event["event"] == "box" && event["style"] == kQuestion)
            mine = event["answer"] == "Yes";
    if (reply["ok"] != true || (reply["saved"] != true && !mine)) {
        RecordRefusal(number, piece);
        return Escape();
    }
    ReportedStep& step = Record(number, piece, ReportedStep::Kind::Save);
    step.cell = cell;
    step.text = text;
    step.mine = mine;
    if (reply["saved"] != true)
        Escape();
}

void Session::Move(std::int32_t number, std::int32_t piece, std::int32_t direction)
{
    said_.clear();
    const std::int32_t row = RowOf(number, piece);
    if (row == 0)
        return;
    pause_();
    bool done = GoTo(row);
    pause_();
    const char* const item = direction > 0 ? "mnuE_MoveNext" : "mnuE_MovePrev";
    done = done && Ask({{"do", "menu"}, {"item", item}})["ok"] == true;
    for (const Json& event : Log())
        done = done && event["event"] != "box";
    if (done)
        Record(number, piece, ReportedStep::Kind::Move).direction = direction;
    else
        RecordRefusal(number, piece);
}

void Session::Split(std::int32_t number, std::int32_t piece, std::int64_t amount)
{
    said_.clear();
    const std::int32_t row = RowOf(number, piece);
    if (row == 0 || yesWaits_)
        return;
    pause_();
    bool done = GoTo(row);
    pause_();
    amount = splitWaits_.value_or(amount);
    const Json steps = {{{"set", "txtNew"}, {"to", AmountText(amount)}}, {{"press", "btnOK"}}};
    if (done && !splitWaits_)
        Ask({{"do", "answer"}, {"form", "frmSplit"}, {"steps", steps}});
    if (done)
        splitWaits_ = amount;
    done = done && Ask({{"do", "menu"}, {"item", "mnuE_Split"}})["ok"] == true;
    bool asked = false;
    for (const Json& event : Log()) {
        done = done && event["event"] != "box";
        asked = asked || event["event"] == "form";
    }
    if (asked)
        splitWaits_.reset();
    if (done && asked)
        Record(number, piece, ReportedStep::Kind::Split).amount = amount;
    else
        RecordRefusal(number, piece);
}

void Session::Delete(std::int32_t number, std::int32_t piece)
{
    said_.clear();
    const std::int32_t row = RowOf(number, piece);
    if (row == 0 || splitWaits_)
        return;
    pause_();
    bool done = GoTo(row);
    pause_();
    if (done && !yesWaits_)
        Ask({{"do", "answer"}, {"box", "Yes"}});
    yesWaits_ = yesWaits_ || done;
    done = done && Ask({{"do", "menu"}, {"item", "mnuE_Delete"}})["ok"] == true;
    std::size_t boxes = 0;
    for (const Json& event : Log())
        boxes += event["event"] == "box" ? 1U : 0U;
    if (done && boxes == 1)
        Record(number, piece, ReportedStep::Kind::Delete);
    else
        RecordRefusal(number, piece);
}

void Session::TakeStep(bool undo)
{
    Ask({{"do", "menu"}, {"item", undo ? "mnuY_Undo" : "mnuY_Redo"}});
    Log();
}

void Session::Add(const std::string& description, std::int64_t amount)
{
    bool done = Type("new", kDate, "2006-01-15") && Type("new", kDescription, description);
    pause_();
    done = done && Type("new", kAmount, AmountText(amount));
    pause_();
    const Json reply = Ask({{"do", "save"}});
    Log();
    if (done && reply["ok"] == true && reply["saved"] == true)
        added_[description] = amount;
    else
        trouble_ += "The new row " + description + " was not saved.\n";
    if (!added_.contains(description))
        Escape();
}

}  // namespace clb
