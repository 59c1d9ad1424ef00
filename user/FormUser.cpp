#include "user/FormUser.h"

#include <cstdlib>

#include "controls/CheckList.h"
#include "controls/ControlVisitor.h"
#include "controls/RowList.h"

namespace clb {
namespace {

/// Returns -1 if the list has no such item.
std::int32_t IndexOf(const ListBox& list, const std::string& text)
{
    std::int32_t index = 0;
    for (const ListBox::Item& item : list.Items()) {
        if (item.text == text)
            return index;
        ++index;
    }
    return -1;
}

CheckList* FindCheckList(const Form& form)
{
    for (Control* control : form.Controls())
        if (auto* list = As<CheckList>(control))
            return list;
    return nullptr;
}

}  // namespace

/// Finds an enabled control of the kind.
template <class Kind>
Kind* FormUser::Find(const std::string& name) const
{
    Kind* const control = As<Kind>(form_.Find(name));
    return control && control->Enabled() ? control : nullptr;
}

bool FormUser::Set(const std::string& textBox, const std::string& text)
{
    auto* const box = Find<TextBox>(textBox);
    if (!box || box->Locked() || !form_.Focus(*box))
        return false;
    box->Text(text);
    return true;
}

bool FormUser::Choose(const std::string& list, const std::string& item)
{
    auto* const found = Find<ListBox>(list);
    const std::int32_t index = found ? IndexOf(*found, item) : -1;
    if (index < 0 || !form_.Focus(*found))
        return false;
    found->Index(index);
    return true;
}

bool FormUser::Option(const std::string& option)
{
    auto* const found = Find<OptionButton>(option);
    if (!found || !form_.Focus(*found))
        return false;
    found->Choose();
    return true;
}

bool FormUser::Line(const std::string& list, std::int32_t line)
{
    auto* const rows = Find<RowList>(list);
    if (!rows || line < 1)
        return false;
    const auto place = static_cast<std::size_t>(line);
    if (place > rows->Lines().size() || rows->Lines()[place - 1].IsHeading() || !form_.Focus(*rows))
        return false;
    rows->Choose(place);
    return true;
}

bool FormUser::Check(std::int32_t row, bool ticked)
{
    CheckList* const list = FindCheckList(form_);
    if (!list || !list->Enabled() || row < 1 ||
        row > static_cast<std::int32_t>(list->Rows().size()) || !form_.Focus(*list))
        return false;
    list->Check(static_cast<std::size_t>(row), ticked);
    return true;
}

bool FormUser::Step(const std::string& spinner, std::int32_t by)
{
    auto* const found = Find<Spinner>(spinner);
    if (!found)
        return false;
    // A spinner takes no focus.
    for (std::int32_t press = 0; press < std::abs(by); ++press)
        found->Step(by < 0 ? -1 : 1);
    return true;
}

bool FormUser::Click(const std::string& label)
{
    auto* const found = Find<Label>(label);
    if (!found)
        return false;
    found->PressClick();
    return true;
}

bool FormUser::Press(const std::string& button)
{
    auto* const found = Find<Button>(button);
    if (!found || !form_.Focus(*found))
        return false;
    found->Press();
    return true;
}

void FormUser::Cancel()
{
    if (form_.CancelButton())
        form_.CancelButton()->Press();
}

}  // namespace clb
