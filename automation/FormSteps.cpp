#include "automation/FormSteps.h"

#include "automation/Request.h"
#include "controls/CheckList.h"
#include "controls/ControlVisitor.h"
#include "controls/RowList.h"
#include "user/FormUser.h"

namespace clb {
namespace {

using Kind = FormStep::Kind;
using Work = std::function<bool(FormUser&)>;

/// A step with two texts: which control, and what goes to it.
Work WithText(bool (FormUser::*work)(const std::string&, const std::string&), std::string control,
              std::string to)
{
    return [work, control = std::move(control), to = std::move(to)](FormUser& user) {
        return (user.*work)(control, to);
    };
}

/// A step that needs a control only.
Work OnControl(bool (FormUser::*work)(const std::string&), std::string control)
{
    return [work, control = std::move(control)](FormUser& user) { return (user.*work)(control); };
}

Work Spin(std::string spinner, std::int32_t by)
{
    return [spinner = std::move(spinner), by](FormUser& user) { return user.Step(spinner, by); };
}

Work ReadCheck(const Request& step)
{
    const Json& place = step.At("check");
    if (!place.is_object())
        throw RequestError("Wrong argument: \"check\" must be an object");
    const std::int32_t row = Request(place).Long("row");
    const bool ticked = step.Flag("to");
    return [row, ticked](FormUser& user) { return user.Check(row, ticked); };
}

Work ChooseLine(std::string list, std::int32_t line)
{
    return [list = std::move(list), line](FormUser& user) { return user.Line(list, line); };
}

/// Returns an empty function if the step is not something that a user does.
Work ReadWork(const Request& step)
{
    if (step.Has("set"))
        return WithText(&FormUser::Set, step.Text("set"), step.Text("to"));
    if (step.Has("choose"))
        return WithText(&FormUser::Choose, step.Text("choose"), step.Text("to"));
    if (step.Has("line"))
        return ChooseLine(step.Text("line"), step.Long("to"));
    if (step.Has("option"))
        return OnControl(&FormUser::Option, step.Text("option"));
    if (step.Has("check"))
        return ReadCheck(step);
    if (step.Has("step"))
        return Spin(step.Text("step"), step.Long("by"));
    if (step.Has("click"))
        return OnControl(&FormUser::Click, step.Text("click"));
    if (step.Has("press"))
        return OnControl(&FormUser::Press, step.Text("press"));
    return {};
}

FormStep ReadStep(const Json& json, bool screenshots)
{
    if (!json.is_object())
        throw RequestError("Wrong argument: a step must be an object");
    const Request step(json);
    if (Work work = ReadWork(step))
        return {Kind::Work, json, std::move(work)};
    if (step.Has("read"))
        return {Kind::Read, json, {}};
    if (screenshots && step.Has("screenshot"))
        return {Kind::Screenshot, json, {}, step.Text("screenshot")};
    throw RequestError("Unknown step: " + ToLine(json));
}

/// Describes a control by its kind.
class ControlDescription : public ControlVisitor {
public:
    using ControlVisitor::Visit;
    void Visit(Button& button) override
    {
        json = {{"caption", button.Caption()}, {"enabled", button.Enabled()}};
    }
    void Visit(CheckList& list) override;
    void Visit(Label& label) override
    {
        json = {{"caption", label.Caption()}, {"enabled", label.Enabled()}};
    }
    void Visit(ListBox& list) override;
    void Visit(OptionButton& option) override
    {
        json = {{"caption", option.Caption()},
                {"value", option.Value()},
                {"enabled", option.Enabled()}};
    }
    void Visit(RowList& list) override;
    void Visit(TextBox& box) override
    {
        json = {{"text", box.Text()}, {"enabled", box.Enabled()}, {"selected", box.SelectedText()}};
    }
    void Other(Control& control) override { json = {{"enabled", control.Enabled()}}; }

    Json json;
};

void ControlDescription::Visit(CheckList& list)
{
    Json rows = Json::array();
    for (const std::vector<Value>& row : list.Rows()) {
        Json values = Json::array();
        for (const Value& value : row)
            values.push_back(ToJson(value));
        rows.push_back(std::move(values));
    }
    json = {{"columns", list.Columns()}, {"rows", std::move(rows)}};
}

void ControlDescription::Visit(RowList& list)
{
    Json lines = Json::array();
    for (const RowList::Line& line : list.Lines())
        lines.push_back(line.IsHeading() ? Json(line.heading) : Json(line.row.cells));
    json = {{"columns", list.Columns()},
            {"lines", std::move(lines)},
            {"chosen", list.Chosen()},
            {"enabled", list.Enabled()}};
}

void ControlDescription::Visit(ListBox& list)
{
    Json items = Json::array();
    for (const ListBox::Item& item : list.Items())
        items.push_back(item.text);
    json = {{"items", items},
            {"index", list.Index()},
            {"text", list.Text()},
            {"enabled", list.Enabled()}};
}

}  // namespace

std::vector<FormStep> ReadSteps(const Json& steps, bool screenshots)
{
    std::vector<FormStep> read;
    for (const Json& step : steps)
        read.push_back(ReadStep(step, screenshots));
    return read;
}

Json DescribeControls(const Form& form)
{
    Json controls = Json::object();
    for (Control* control : form.Controls()) {
        ControlDescription description;
        control->Accept(description);
        controls[control->Name()] = std::move(description.json);
    }
    return controls;
}

}  // namespace clb
