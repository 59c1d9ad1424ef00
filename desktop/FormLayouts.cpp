#include "desktop/FormLayouts.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <map>
#include <string>

#include "desktop/FormDialog.h"

namespace clb {

namespace {

/// Width of an option's circle and gap: what belongs to the option stands below its caption.
constexpr int OptionIndent = 24;

int Characters(const QWidget& widget, int count)
{
    return widget.fontMetrics().averageCharWidth() * count;
}

QLayout* ButtonRow(FormDialog& dialog)
{
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    for (Control* control : dialog.Model().Controls())
        if (auto* button = qobject_cast<QPushButton*>(dialog.WidgetOf(control->Name()))) {
            button->setMinimumWidth(Characters(dialog, 14));
            row->addWidget(button);
        }
    return row;
}

void AddPair(QGridLayout& grid, int row, FormDialog& dialog, const char* label, const char* field)
{
    auto* caption = qobject_cast<QLabel*>(dialog.WidgetOf(label));
    QWidget* input = dialog.WidgetOf(field);
    caption->setBuddy(input);
    grid.addWidget(caption, row, 1);
    grid.addWidget(input, row, 2);
}

void ArrangeSelectAccount(FormDialog& dialog)
{
    auto* question = qobject_cast<QLabel*>(dialog.WidgetOf("Label1"));
    question->setWordWrap(true);
    question->setMinimumWidth(Characters(dialog, 66));
    auto* grid = new QGridLayout;
    grid->setColumnMinimumWidth(0, OptionIndent);
    grid->setColumnStretch(2, 1);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(8);
    grid->addWidget(dialog.WidgetOf("optAccount(0)"), 0, 0, 1, 3);
    AddPair(*grid, 1, dialog, "Label4", "txtDescription");
    AddPair(*grid, 2, dialog, "Label2", "cmbAccountType");
    grid->setRowMinimumHeight(3, 6);
    grid->addWidget(dialog.WidgetOf("optAccount(1)"), 4, 0, 1, 3);
    AddPair(*grid, 5, dialog, "Label3", "cmbAccountID");
    auto* all = new QVBoxLayout(&dialog);
    all->setContentsMargins(18, 16, 18, 14);
    all->setSpacing(14);
    all->addWidget(question);
    all->addLayout(grid);
    all->addStretch(1);
    all->addLayout(ButtonRow(dialog));
}

void ArrangeInLines(FormDialog& dialog)
{
    auto* grid = new QGridLayout;
    int line = 0;
    bool behindLabel = false;
    for (Control* control : dialog.Model().Controls()) {
        QWidget* widget = dialog.WidgetOf(control->Name());
        if (!widget || qobject_cast<QPushButton*>(widget))
            continue;
        const bool label = qobject_cast<QLabel*>(widget) != nullptr;
        if (label || !behindLabel)
            ++line;
        grid->addWidget(widget, line, label ? 0 : 1);
        behindLabel = label;
    }
    auto* all = new QVBoxLayout(&dialog);
    all->setContentsMargins(18, 16, 18, 14);
    all->setSpacing(14);
    all->addLayout(grid);
    all->addStretch(1);
    all->addLayout(ButtonRow(dialog));
}

}  // namespace

void ArrangeForm(FormDialog& dialog)
{
    static const std::map<std::string, void (*)(FormDialog&)> known = {
        {"frmSelectAccount", ArrangeSelectAccount}};
    const auto found = known.find(dialog.Model().Name());
    if (found != known.end())
        found->second(dialog);
    else
        ArrangeInLines(dialog);
}

}  // namespace clb
