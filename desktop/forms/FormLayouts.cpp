#include "desktop/forms/FormLayouts.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QVBoxLayout>
#include <map>
#include <string>

#include "controls/ControlVisitor.h"
#include "desktop/forms/FormDialog.h"
#include "desktop/forms/RowListView.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

/// Width of an option's circle and gap. What belongs to the option is indented to its caption.
constexpr int kOptionIndent = 24;

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

QVBoxLayout* Frame(FormDialog& dialog)
{
    auto* all = new QVBoxLayout(&dialog);
    all->setContentsMargins(18, 16, 18, 14);
    all->setSpacing(14);
    return all;
}

/// Adds the buttons at the bottom, with the remaining room above them.
void Finish(FormDialog& dialog, QVBoxLayout& all)
{
    all.addStretch(0);
    all.addLayout(ButtonRow(dialog));
}

void AddPair(QGridLayout& grid, int row, FormDialog& dialog, const char* label, const char* field)
{
    dialog.Describe(label, field);
    grid.addWidget(dialog.WidgetOf(label), row, 1);
    grid.addWidget(dialog.WidgetOf(field), row, 2);
}

void ArrangeSelectAccount(FormDialog& dialog)
{
    auto* question = qobject_cast<QLabel*>(dialog.WidgetOf("Label1"));
    question->setWordWrap(true);
    question->setMinimumWidth(Characters(dialog, 66));
    auto* grid = new QGridLayout;
    grid->setColumnMinimumWidth(0, kOptionIndent);
    grid->setColumnStretch(2, 1);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(8);
    grid->addWidget(dialog.WidgetOf("optAccount(0)"), 0, 0, 1, 3);
    AddPair(*grid, 1, dialog, "Label4", "txtDescription");
    AddPair(*grid, 2, dialog, "Label2", "cmbAccountType");
    grid->setRowMinimumHeight(3, 6);
    grid->addWidget(dialog.WidgetOf("optAccount(1)"), 4, 0, 1, 3);
    AddPair(*grid, 5, dialog, "Label3", "cmbAccountID");
    QVBoxLayout* all = Frame(dialog);
    all->addWidget(question);
    all->addLayout(grid);
    Finish(dialog, *all);
}

void ArrangeSplit(FormDialog& dialog)
{
    QWidget* description = dialog.WidgetOf("txtDescription");
    description->setAccessibleName(QStringLiteral("Description"));
    description->setMinimumWidth(Characters(dialog, 44));
    auto* grid = new QGridLayout;
    grid->setColumnStretch(2, 1);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(8);
    AddPair(*grid, 0, dialog, "Label2", "txtOriginal");
    AddPair(*grid, 1, dialog, "Label4", "txtNew");
    grid->addWidget(dialog.WidgetOf("upDown"), 1, 3);
    AddPair(*grid, 2, dialog, "Label8", "txtTotal");
    for (const char* amount : {"txtOriginal", "txtNew", "txtTotal"})
        if (auto* box = qobject_cast<QLineEdit*>(dialog.WidgetOf(amount)))
            box->setAlignment(Qt::AlignRight);
    QVBoxLayout* all = Frame(dialog);
    all->addWidget(description);
    all->addLayout(grid);
    Finish(dialog, *all);
}

void ArrangeOptions(FormDialog& dialog)
{
    QWidget* accounts = dialog.WidgetOf("grdAccounts");
    accounts->setMinimumSize(Characters(dialog, 62), Characters(dialog, 26));
    dialog.Describe("lblBankUrl", "txtBankUrl");
    dialog.Describe("lblAccounts", "grdAccounts");
    QVBoxLayout* all = Frame(dialog);
    all->setSpacing(8);
    all->addWidget(dialog.WidgetOf("lblBankUrl"));
    all->addWidget(dialog.WidgetOf("txtBankUrl"));
    all->addSpacing(8);
    all->addWidget(dialog.WidgetOf("lblAccounts"));
    all->addWidget(accounts, 1);
    Finish(dialog, *all);
}

void ArrangeAbout(FormDialog& dialog)
{
    auto* name = qobject_cast<QLabel*>(dialog.WidgetOf("lblAppName"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setWeight(QFont::DemiBold);
    name->setFont(large);
    auto* legal = qobject_cast<QLabel*>(dialog.WidgetOf("lblLegal"));
    legal->setWordWrap(true);
    legal->setMinimumWidth(Characters(dialog, 60));
    auto* texts = new QVBoxLayout;
    texts->setSpacing(12);
    if (auto* schema = qobject_cast<QLabel*>(dialog.WidgetOf("lblSchema")))
        schema->setWordWrap(true);
    for (const char* text : {"lblAppName", "lblSchema", "lblLegal", "lblWebSite"})
        if (QWidget* label = dialog.WidgetOf(text))
            texts->addWidget(label);
    texts->addStretch(1);
    auto* content = new QHBoxLayout;
    content->setSpacing(18);
    content->addWidget(dialog.WidgetOf("picAppIcon"), 0, Qt::AlignTop);
    content->addLayout(texts, 1);
    QVBoxLayout* all = Frame(dialog);
    all->addLayout(content);
    Finish(dialog, *all);
}

/// A list with its caption above it.
QWidget* Captioned(FormDialog& dialog, const char* label, const char* list)
{
    dialog.Describe(label, list);
    auto* part = new QWidget(&dialog);
    auto* lines = new QVBoxLayout(part);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(4);
    lines->addWidget(dialog.WidgetOf(label));
    lines->addWidget(dialog.WidgetOf(list), 1);
    return part;
}

QLayout* HistoryButtons(FormDialog& dialog)
{
    auto* row = new QHBoxLayout;
    for (const char* button : {"btnBack", "btnForward", "btnClose"}) {
        dialog.WidgetOf(button)->setMinimumWidth(Characters(dialog, 14));
        row->addWidget(dialog.WidgetOf(button));
    }
    row->insertStretch(2, 1);
    return row;
}

QSize Bounded(const FormDialog& dialog, int width, int height)
{
    return QSize(Characters(dialog, width), Characters(dialog, height))
        .boundedTo(dialog.screen()->availableSize() * 0.92);
}

void ArrangeHistory(FormDialog& dialog)
{
    dialog.Describe("lblFilter", "txtFilter");
    auto* filter = new QHBoxLayout;
    filter->setSpacing(10);
    filter->addWidget(dialog.WidgetOf("lblFilter"));
    filter->addWidget(dialog.WidgetOf("txtFilter"), 1);
    auto* lists = new QSplitter(Qt::Horizontal, &dialog);
    lists->addWidget(Captioned(dialog, "lblSteps", "lstSteps"));
    lists->addWidget(Captioned(dialog, "lblChanges", "lstChanges"));
    lists->setChildrenCollapsible(false);
    lists->setHandleWidth(10);
    lists->setSizes({Characters(dialog, 58), Characters(dialog, 74)});
    for (int part : {0, 1})
        lists->setStretchFactor(part, 1);
    dynamic_cast<RowListView&>(*dialog.WidgetOf("lstSteps")).Stretch({1});
    dynamic_cast<RowListView&>(*dialog.WidgetOf("lstChanges")).Stretch({1, 2});
    for (const char* list : {"lstSteps", "lstChanges"})
        dialog.WidgetOf(list)->setMinimumSize(Characters(dialog, 36), Characters(dialog, 20));
    qobject_cast<QLabel*>(dialog.WidgetOf("lblTakes"))->setWordWrap(true);
    QVBoxLayout* all = Frame(dialog);
    all->addLayout(filter);
    all->addWidget(lists, 1);
    all->addWidget(dialog.WidgetOf("lblTakes"));
    all->addLayout(HistoryButtons(dialog));
    dialog.resize(Bounded(dialog, 138, 86));
}

/// The lists of the questions, one below the other. A list without items is not shown.
QLayout* Questions(FormDialog& dialog)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(1, 1);
    Control* before = nullptr;
    for (Control* control : dialog.Model().Controls()) {
        if (auto* list = As<ListBox>(control)) {
            QWidget* const label = dialog.WidgetOf(before->Name());
            auto* const drawn = qobject_cast<QComboBox*>(dialog.WidgetOf(list->Name()));
            dialog.Describe(before->Name(), list->Name());
            // Long names of columns are cut; the opened list shows them whole.
            drawn->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
            drawn->setMinimumContentsLength(26);
            grid->addWidget(label, grid->rowCount(), 0);
            grid->addWidget(drawn, grid->rowCount() - 1, 1);
            dialog.Follow(*list, [list, label, drawn] {
                label->setVisible(!list->Items().empty());
                drawn->setVisible(!list->Items().empty());
            });
        }
        before = control;
    }
    auto* all = new QVBoxLayout;
    all->addLayout(grid);
    all->addStretch(1);
    return all;
}

void ArrangeStatement(FormDialog& dialog)
{
    qobject_cast<QLabel*>(dialog.WidgetOf("lblFile"))->setWordWrap(true);
    auto& rows = dynamic_cast<RowListView&>(*dialog.WidgetOf("lstRows"));
    rows.Stretch({3, 4});
    rows.setAccessibleName(QStringLiteral("The first rows"));
    rows.setMinimumSize(Characters(dialog, 50), Characters(dialog, 24));
    auto* left = new QWidget(&dialog);
    left->setLayout(Questions(dialog));
    left->layout()->setContentsMargins(0, 0, 0, 0);
    QWidget* const right = Captioned(dialog, "lblRows", "lstRows");
    right->layout()->addWidget(dialog.WidgetOf("lblLeftOut"));
    auto* middle = new QHBoxLayout;
    middle->setSpacing(18);
    middle->addWidget(left);
    middle->addWidget(right, 1);
    QVBoxLayout* all = Frame(dialog);
    all->addWidget(dialog.WidgetOf("lblFile"));
    all->addLayout(middle, 1);
    Finish(dialog, *all);
    dialog.resize(Bounded(dialog, 160, 66));
}

void ArrangeImported(FormDialog& dialog)
{
    qobject_cast<QLabel*>(dialog.WidgetOf("lblResult"))->setWordWrap(true);
    auto& list = dynamic_cast<RowListView&>(*dialog.WidgetOf("lstLeftOut"));
    list.Stretch({2});
    list.setAccessibleName(QStringLiteral("Left out and refused"));
    list.setMinimumSize(Characters(dialog, 50), Characters(dialog, 20));
    dialog.Describe("lblResult", "lstLeftOut");
    QVBoxLayout* all = Frame(dialog);
    all->addWidget(dialog.WidgetOf("lblResult"));
    all->addWidget(&list, 1);
    Finish(dialog, *all);
    dialog.resize(Bounded(dialog, 120, 58));
}

void ArrangeInLines(FormDialog& dialog)
{
    auto* grid = new QGridLayout;
    int line = 0;
    const QLabel* before = nullptr;
    for (Control* control : dialog.Model().Controls()) {
        QWidget* widget = dialog.WidgetOf(control->Name());
        if (!widget || qobject_cast<QPushButton*>(widget))
            continue;
        const auto* label = qobject_cast<QLabel*>(widget);
        if (label || !before)
            ++line;
        else
            dialog.Describe(ToUtf8(before->objectName()), control->Name());
        grid->addWidget(widget, line, label ? 0 : 1);
        before = label;
    }
    QVBoxLayout* all = Frame(dialog);
    all->addLayout(grid);
    Finish(dialog, *all);
}

}  // namespace

void ArrangeForm(FormDialog& dialog)
{
    static const std::map<std::string, void (*)(FormDialog&)> known = {
        {"frmSelectAccount", ArrangeSelectAccount},
        {"frmSplit", ArrangeSplit},
        {"frmOptions", ArrangeOptions},
        {"frmHistory", ArrangeHistory},
        {"frmStatement", ArrangeStatement},
        {"frmImported", ArrangeImported},
        {"frmAbout", ArrangeAbout}};
    const auto found = known.find(dialog.Model().Name());
    if (found != known.end())
        found->second(dialog);
    else
        ArrangeInLines(dialog);
}

}  // namespace clb
