#include "automation/FormSteps.h"

#include "automation/Request.h"
#include "controls/CheckList.h"

#include <cstdlib>

namespace clb {
namespace {

using Kind = FormStep::Kind;

FormStep ReadCheck(const Request& step, const Json& json)
{
    const Json& place = step.At("check");
    if (!place.is_object())
        throw RequestError("Wrong argument: \"check\" must be an object");
    return {Kind::Check, "", "", 0, json, Request(place).Long("row"), step.Flag("to")};
}

FormStep ReadStep(const Json& json, bool screenshots)
{
    if (!json.is_object())
        throw RequestError("Wrong argument: a step must be an object");
    const Request step(json);
    if (step.Has("set"))
        return {Kind::Set, step.Text("set"), step.Text("to"), 0, json};
    if (step.Has("choose"))
        return {Kind::Choose, step.Text("choose"), step.Text("to"), 0, json};
    if (step.Has("option"))
        return {Kind::Option, step.Text("option"), "", 0, json};
    if (step.Has("check"))
        return ReadCheck(step, json);
    if (step.Has("step"))
        return {Kind::Spin, step.Text("step"), "", step.Long("by"), json};
    if (step.Has("click"))
        return {Kind::Click, step.Text("click"), "", 0, json};
    if (step.Has("press"))
        return {Kind::Press, step.Text("press"), "", 0, json};
    if (step.Has("read"))
        return {Kind::Read, "", "", 0, json};
    if (screenshots && step.Has("screenshot"))
        return {Kind::Screenshot, step.Text("screenshot"), "", 0, json};
    throw RequestError("Unknown step: " + ToLine(json));
}

std::int32_t ItemOf(const ListBox& list, const std::string& text)
{
    std::int32_t index = 0;
    for (const ListBox::Item& item : list.Items()) {
        if (item.text == text)
            return index;
        ++index;
    }
    return -1;
}

bool SetText(Form& form, TextBox* box, const std::string& text)
{
    if (!box || box->Locked() || !form.Focus(*box))
        return false;
    box->Text(text);
    return true;
}

bool ChooseItem(Form& form, ListBox* list, const std::string& text)
{
    const std::int32_t index = list ? ItemOf(*list, text) : -1;
    if (index < 0 || !form.Focus(*list))
        return false;
    list->Index(index);
    return true;
}

bool ChooseOption(Form& form, OptionButton* option)
{
    if (!option || !form.Focus(*option))
        return false;
    option->Choose();
    return true;
}

/// Ticks a row of the form's only list of checks.
bool TickRow(Form& form, std::int32_t row, bool ticked)
{
    for (Control* control : form.Controls()) {
        auto* list = dynamic_cast<CheckList*>(control);
        if (!list)
            continue;
        const auto rows = static_cast<std::int32_t>(list->Rows().size());
        if (!list->Enabled() || row < 1 || row > rows || !form.Focus(*list))
            return false;
        list->Check(static_cast<std::size_t>(row), ticked);
        return true;
    }
    return false;
}

/// A spinner takes no focus; it steps once for each press of an arrow.
bool Spin(Spinner* spinner, std::int32_t by)
{
    if (!spinner)
        return false;
    for (std::int32_t press = 0; press < std::abs(by); ++press)
        spinner->Step(by < 0 ? -1 : 1);
    return true;
}

bool ClickLabel(Label* label)
{
    if (!label)
        return false;
    label->PressClick();
    return true;
}

bool PressButton(Form& form, Button* button)
{
    if (!button || !form.Focus(*button))
        return false;
    button->Press();
    return true;
}

Json Describe(const CheckList& list)
{
    Json rows = Json::array();
    for (const std::vector<Value>& row : list.Rows()) {
        Json values = Json::array();
        for (const Value& value : row)
            values.push_back(ToJson(value));
        rows.push_back(std::move(values));
    }
    return {{"columns", list.Columns()}, {"rows", std::move(rows)}};
}

Json Describe(const Control& control)
{
    if (const auto* list = dynamic_cast<const CheckList*>(&control))
        return Describe(*list);
    if (const auto* box = dynamic_cast<const TextBox*>(&control))
        return {
            {"text", box->Text()}, {"enabled", box->Enabled()}, {"selected", box->SelectedText()}};
    if (const auto* list = dynamic_cast<const ListBox*>(&control)) {
        Json items = Json::array();
        for (const ListBox::Item& item : list->Items())
            items.push_back(item.text);
        return {{"items", items},
                {"index", list->Index()},
                {"text", list->Text()},
                {"enabled", list->Enabled()}};
    }
    if (const auto* option = dynamic_cast<const OptionButton*>(&control))
        return {{"caption", option->Caption()},
                {"value", option->Value()},
                {"enabled", option->Enabled()}};
    if (const auto* label = dynamic_cast<const Label*>(&control))
        return {{"caption", label->Caption()}, {"enabled", label->Enabled()}};
    if (const auto* button = dynamic_cast<const Button*>(&control))
        return {{"caption", button->Caption()}, {"enabled", button->Enabled()}};
    return {{"enabled", control.Enabled()}};
}

}  // namespace

std::vector<FormStep> ReadSteps(const Json& steps, bool screenshots)
{
    std::vector<FormStep> read;
    for (const Json& step : steps)
        read.push_back(ReadStep(step, screenshots));
    return read;
}

bool PerformStep(Form& form, const FormStep& step)
{
    if (step.kind == Kind::Check)
        return TickRow(form, step.row, step.ticked);
    Control* const control = form.Find(step.control);
    if (!control || !control->Enabled())
        return false;
    switch (step.kind) {
        case Kind::Set: return SetText(form, dynamic_cast<TextBox*>(control), step.to);
        case Kind::Choose: return ChooseItem(form, dynamic_cast<ListBox*>(control), step.to);
        case Kind::Option: return ChooseOption(form, dynamic_cast<OptionButton*>(control));
        case Kind::Spin: return Spin(dynamic_cast<Spinner*>(control), step.by);
        case Kind::Click: return ClickLabel(dynamic_cast<Label*>(control));
        case Kind::Press: return PressButton(form, dynamic_cast<Button*>(control));
        case Kind::Check:
        case Kind::Read:
        case Kind::Screenshot: break;
    }
    return false;
}

Json DescribeControls(const Form& form)
{
    Json controls = Json::object();
    for (const Control* control : form.Controls())
        controls[control->Name()] = Describe(*control);
    return controls;
}

}  // namespace clb
