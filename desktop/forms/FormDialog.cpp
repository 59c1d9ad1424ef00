#include "desktop/forms/FormDialog.h"

#include <QAbstractScrollArea>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "controls/ControlVisitor.h"
#include "desktop/forms/CheckListView.h"
#include "desktop/forms/FormLayouts.h"
#include "desktop/forms/ListBinder.h"
#include "desktop/forms/RowListView.h"
#include "desktop/forms/StepArrows.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"
#include "desktop/look/TitleRoom.h"

namespace clb {

/// Draws one control with the widget of its kind.
class FormDialog::Drawing : public ControlVisitor {
public:
    /// The dialog is borrowed; it owns the widget.
    explicit Drawing(FormDialog& dialog) : dialog_(dialog) {}

    void Visit(Button& button) override { drawn = dialog_.DrawButton(button); }
    void Visit(CheckList& list) override
    {
        drawn = new CheckListView(list, dialog_.events_, &dialog_);
    }
    void Visit(Label& label) override { drawn = dialog_.DrawLabel(label); }
    void Visit(ListBox& list) override { drawn = new ListBinder(list, dialog_.events_, &dialog_); }
    void Visit(OptionButton& option) override { drawn = dialog_.DrawOption(option); }
    void Visit(RowList& list) override { drawn = new RowListView(list, dialog_.events_, &dialog_); }
    void Visit(Spinner& spinner) override
    {
        drawn = new StepArrows(spinner, dialog_.events_, &dialog_);
    }
    void Visit(TextBox& box) override { drawn = dialog_.DrawText(box); }
    void Other(Control& control) override
    {
        if (control.Name() == "picAppIcon")
            drawn = dialog_.DrawPicture();
    }

    QWidget* drawn = nullptr;  ///< nullptr for a control that is not drawn

private:
    FormDialog& dialog_;
};

FormDialog::FormDialog(Form& form, UserEvents& events, QWidget* parent)
    : QDialog(parent),
      form_(form),
      events_(events),
      focus_(std::make_unique<FocusBinder>(form, events))
{
    BuildWidgets();
    ArrangeForm(*this);
    ShowTitle();
    form_.Hidden().connect(sigc::track_obj([this] { done(QDialog::Accepted); }, *this));
    form_.Changed().connect(sigc::track_obj([this] { ShowTitle(); }, *this));
}

FormDialog::~FormDialog() = default;

void FormDialog::ShowTitle()
{
    const QString title = ToQString(form_.Caption());
    if (title == windowTitle())
        return;
    setWindowTitle(title);
    MakeRoomForTitle(*this);
}

QWidget* FormDialog::WidgetOf(const std::string& control) const
{
    const auto found = widgets_.find(control);
    return found == widgets_.end() ? nullptr : found->second;
}

void FormDialog::Describe(const std::string& label, const std::string& control)
{
    auto* caption = qobject_cast<QLabel*>(WidgetOf(label));
    caption->setBuddy(WidgetOf(control));
    caption->setText(keys_.Mark(label, caption->text()));
}

void FormDialog::BuildWidgets()
{
    for (Control* control : form_.Controls()) {
        Drawing drawing(*this);
        control->Accept(drawing);
        QWidget* widget = drawing.drawn;
        if (!widget)
            continue;
        widget->setObjectName(ToQString(control->Name()));
        widgets_[control->Name()] = widget;
        // A click on the contents of a list reaches its viewport only.
        const auto* const list = qobject_cast<QAbstractScrollArea*>(widget);
        focus_->Add(*control, *widget,
                    list ? std::vector<QWidget*>{list->viewport()} : std::vector<QWidget*>());
    }
}

void FormDialog::Follow(Control& control, const std::function<void()>& sync)
{
    sync();
    control.Changed().connect(sigc::track_obj(sync, *this));
}

QWidget* FormDialog::DrawLabel(Label& label)
{
    auto* drawn = new QLabel(this);
    drawn->setTextFormat(Qt::PlainText);
    if (!label.Click().empty())
        return DrawLink(label, drawn);
    Follow(label, [this, drawn, &label] {
        const QString caption = ToQString(label.Caption());
        drawn->setText(drawn->buddy() ? keys_.Mark(label.Name(), caption) : caption);
        drawn->setEnabled(label.Enabled());
    });
    return drawn;
}

QWidget* FormDialog::DrawLink(Label& label, QLabel* drawn)
{
    drawn->setTextFormat(Qt::RichText);
    drawn->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(drawn, &QLabel::linkActivated, this,
            [this, &label] { events_.Run([&] { label.PressClick(); }); });
    Follow(label, [drawn, &label] {
        drawn->setText(
            QStringLiteral("<a href=\"#\">%1</a>").arg(ToQString(label.Caption()).toHtmlEscaped()));
    });
    return drawn;
}

QWidget* FormDialog::DrawPicture()
{
    auto* drawn = new QLabel(this);
    drawn->setPixmap(icons::Application().pixmap(QSize(72, 72), devicePixelRatioF()));
    return drawn;
}

QWidget* FormDialog::DrawText(TextBox& box)
{
    auto* drawn = new QLineEdit(this);
    connect(drawn, &QLineEdit::textEdited, this,
            [this, &box](const QString& text) { events_.Run([&] { box.Text(ToUtf8(text)); }); });
    Follow(box, [drawn, &box] {
        const QString text = ToQString(box.Text());
        if (drawn->text() != text)
            drawn->setText(text);
        drawn->setReadOnly(box.Locked());
        drawn->setEnabled(box.Enabled());
        if (box.SelectionLength() != 0)
            drawn->setSelection(static_cast<int>(box.SelectionStart()),
                                static_cast<int>(box.SelectionLength()));
    });
    return drawn;
}

QWidget* FormDialog::DrawButton(Button& button)
{
    auto* drawn = new QPushButton(keys_.Mark(button.Name(), ToQString(button.Caption())), this);
    drawn->setDefault(form_.DefaultButton() == &button);
    drawn->setAutoDefault(form_.DefaultButton() == &button);
    connect(drawn, &QPushButton::clicked, this,
            [this, &button] { events_.Run([&] { button.Press(); }); });
    Follow(button, [drawn, &button] { drawn->setEnabled(button.Enabled()); });
    return drawn;
}

QWidget* FormDialog::DrawOption(OptionButton& option)
{
    auto* drawn = new QRadioButton(keys_.Mark(option.Name(), ToQString(option.Caption())), this);
    connect(drawn, &QRadioButton::clicked, this,
            [this, &option] { events_.Run([&] { option.Choose(); }); });
    Follow(option, [drawn, &option] {
        // The toolkit clears the other options of the group.
        if (option.Value())
            drawn->setChecked(true);
        drawn->setEnabled(option.Enabled());
    });
    return drawn;
}

void FormDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    focus_->Sync();
}

void FormDialog::reject()
{
    if (Button* cancel = form_.CancelButton())
        events_.Run([cancel] { cancel->Press(); });
    else
        form_.Hide();
    if (!form_.Visible())
        QDialog::reject();
}

}  // namespace clb
