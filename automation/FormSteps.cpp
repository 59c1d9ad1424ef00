#include "automation/FormSteps.h"

#include "automation/Request.h"

#include <cstdlib>

namespace clb
{
namespace
{

using Kind = FormStep::Kind;

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

Json Describe(const Control& control)
{
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
    Control* const control = form.Find(step.control);
    if (!control || !control->Enabled())
        return false;
    switch (step.kind) {
        case Kind::Set:
            return SetText(form, dynamic_cast<TextBox*>(control), step.to);
        case Kind::Choose:
            return ChooseItem(form, dynamic_cast<ListBox*>(control), step.to);
        case Kind::Option:
            return ChooseOption(form, dynamic_cast<OptionButton*>(control));
        case Kind::Spin:
            return Spin(dynamic_cast<Spinner*>(control), step.by);
        case Kind::Click:
            return ClickLabel(dynamic_cast<Label*>(control));
        case Kind::Press:
            return PressButton(form, dynamic_cast<Button*>(control));
        case Kind::Read:
        case Kind::Screenshot:
            break;
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
