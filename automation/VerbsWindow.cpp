#include "app/OtherPrograms.h"
#include "automation/StateReport.h"
#include "automation/VerbTable.h"

namespace clb {
namespace {

std::int32_t NodeWithText(const Tree& tree, const std::string& text)
{
    for (std::int32_t index = 1; index <= tree.Count(); ++index)
        if (tree.Node(index).text == text)
            return index;
    throw RequestError("No such node: " + text);
}

Json Click(Session& session, const Request& request)
{
    const Tree& tree = session.controller.TreeView;
    const std::int32_t node = request.Has("index")
                                  ? session.controller.Others().NodeNow(request.Long("index"))
                                  : NodeWithText(tree, request.Text("text"));
    if (node < 1 || node > tree.Count())
        throw RequestError("No such node: " + std::to_string(node));
    return {{"clicked", session.controller.PressNode(node)}};
}

Json Focus(Session& session, const Request& request)
{
    Form& window = session.controller.window;
    const std::string name = request.Text("control");
    Control* const control = window.Find(name);
    if (!control || !control->TakesFocus())
        throw RequestError("No control that takes the focus: " + name);
    window.Focus(*control);
    return {{"focus", window.Focus() ? Json(window.Focus()->Name()) : Json()}};
}

// A month or year is set as by hand: its control gets the focus first. If the grid keeps the focus,
// nothing is set.

Json SetMonth(frmController& controller, const Request& request)
{
    const std::int32_t month = request.Long("to");
    if (month < 1 || month > 12)
        throw RequestError("Wrong argument: \"to\" must be a month from 1 to 12");
    if (controller.window.Focus(controller.cmbPeriod))
        controller.ChooseMonth(month - 1);
    return Json::object();
}

Json SetYear(frmController& controller, const Request& request)
{
    const std::string text = request.Text("to");
    if (controller.window.Focus(controller.txtYear))
        controller.EnterYear(text);
    return Json::object();
}

Json Spin(frmController& controller, const Request& request)
{
    const std::int32_t direction = request.Long("to");
    if (direction != 1 && direction != -1)
        throw RequestError("Wrong argument: \"to\" must be 1 or -1");
    if (controller.window.Focus(controller.txtYear))
        controller.UpDown.Step(direction);
    return Json::object();
}

Json Set(Session& session, const Request& request)
{
    const std::string control = request.Text("control");
    if (control == "cmbPeriod")
        return SetMonth(session.controller, request);
    if (control == "txtYear")
        return SetYear(session.controller, request);
    if (control == "UpDown")
        return Spin(session.controller, request);
    throw RequestError("No control that can be set: " + control);
}

Json PressMenu(Session& session, const Request& request)
{
    const std::string name = request.Text("item");
    MenuItem* const item = session.controller.menus.Find(name);
    if (!item || item->Separator())
        throw RequestError("No such menu item: " + name);
    if (!item->Enabled())
        throw RequestError("The menu item is disabled: " + name);
    item->Press();
    return Json::object();
}

Json PressToolbar(Session& session, const Request& request)
{
    const std::string key = request.Text("button");
    const Toolbar::Button* const button = session.controller.toolbar.Find(key);
    if (!button)
        throw RequestError("No such button: " + key);
    if (!button->enabled)
        throw RequestError("The button is disabled: " + key);
    session.controller.toolbar.Press(key);
    return Json::object();
}

Json Resize(Session& session, const Request& request)
{
    constexpr std::int32_t kLargest = 32767;
    const std::int32_t width = request.Long("width");
    const std::int32_t height = request.Long("height");
    if (width < 0 || width > kLargest || height < 0 || height > kLargest)
        throw RequestError("Wrong argument: a size must be from 0 to 32767");
    if (session.presenter)
        session.presenter->Resize(width, height);
    session.controller.Resize(width, height);
    return DescribeLayout(session.controller);
}

Json Quit(Session& session, const Request&)
{
    session.controller.Unload();
    return Json::object();
}

}  // namespace

const VerbTable& WindowVerbs()
{
    static const VerbTable verbs = {
        {"click", {Click, true}},
        {"focus", {Focus, true}},
        {"set", {Set, true}},
        {"menu", {PressMenu, true, true}},
        {"toolbar", {PressToolbar, true, true}},
        {"resize", {Resize, false}},
        {"quit", {Quit, false}},
    };
    return verbs;
}

}  // namespace clb
