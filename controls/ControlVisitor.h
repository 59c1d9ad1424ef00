// Tells the kinds of controls apart without casts.
#pragma once
#include "controls/Control.h"

namespace clb {

class Button;
class CheckList;
class Label;
class ListBox;
class OptionButton;
class RowList;
class Spinner;
class TextBox;

/// Receives a control as the kind that it is (Control::Accept). A visitor overrides Visit for the
/// kinds it handles; every other control arrives at Other, which does nothing by default.
class ControlVisitor {
public:
    virtual ~ControlVisitor() = default;
    virtual void Visit(Button& button);
    virtual void Visit(CheckList& list);
    virtual void Visit(Label& label);
    virtual void Visit(ListBox& list);
    virtual void Visit(OptionButton& option);
    virtual void Visit(RowList& list);
    virtual void Visit(Spinner& spinner);
    virtual void Visit(TextBox& box);
    virtual void Other(Control&) {}
};

/// The control as a Kind. Returns nullptr if it is of another kind, or if control is nullptr.
template <class Kind>
Kind* As(Control* control)
{
    class OneKind : public ControlVisitor {
    public:
        using ControlVisitor::Visit;
        void Visit(Kind& kind) override { found = &kind; }
        Kind* found = nullptr;
    };
    OneKind visitor;
    if (control)
        control->Accept(visitor);
    return visitor.found;
}

}  // namespace clb
