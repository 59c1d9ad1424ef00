#include "controls/ControlVisitor.h"

#include "controls/CheckList.h"
#include "controls/Inputs.h"
#include "controls/RowList.h"

namespace clb {

void ControlVisitor::Visit(Button& button)
{
    Other(button);
}

void ControlVisitor::Visit(CheckList& list)
{
    Other(list);
}

void ControlVisitor::Visit(Label& label)
{
    Other(label);
}

void ControlVisitor::Visit(ListBox& list)
{
    Other(list);
}

void ControlVisitor::Visit(OptionButton& option)
{
    Other(option);
}

void ControlVisitor::Visit(RowList& list)
{
    Other(list);
}

void ControlVisitor::Visit(Spinner& spinner)
{
    Other(spinner);
}

void ControlVisitor::Visit(TextBox& box)
{
    Other(box);
}

}  // namespace clb
