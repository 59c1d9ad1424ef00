#include "desktop/forms/CheckListView.h"

#include <QHeaderView>
#include <QScopedValueRollback>

#include "desktop/input/UserEvents.h"
#include "desktop/look/PaddedItemDelegate.h"
#include "desktop/look/TextConvert.h"

namespace clb {

CheckListView::CheckListView(CheckList& list, UserEvents& events, QWidget* parent)
    : QTreeWidget(parent), list_(list), events_(events)
{
    setRootIsDecorated(false);
    setAlternatingRowColors(true);
    setUniformRowHeights(true);
    setItemDelegate(new PaddedItemDelegate(this));
    QStringList captions;
    for (const std::string& caption : list_.Columns())
        captions << ToQString(caption);
    setHeaderLabels(captions);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) { Ticked(item); });
    list_.Changed().connect(sigc::track_obj([this] { Sync(); }, *this));
    Sync();
}

void CheckListView::Sync()
{
    const QScopedValueRollback guard(syncing_, true);
    while (topLevelItemCount() > static_cast<int>(list_.Rows().size()))
        delete takeTopLevelItem(topLevelItemCount() - 1);
    for (std::size_t row = 0; row < list_.Rows().size(); ++row) {
        QTreeWidgetItem* item = topLevelItem(static_cast<int>(row));
        if (!item)
            item = new QTreeWidgetItem(this);
        const std::vector<Value>& values = list_.Rows()[row];
        const bool* ticked = values.empty() ? nullptr : std::get_if<bool>(&values.front());
        item->setCheckState(0, ticked && *ticked ? Qt::Checked : Qt::Unchecked);
        for (std::size_t column = 1; column < values.size(); ++column)
            item->setText(static_cast<int>(column), ToQString(ToText(values[column])));
    }
    setEnabled(list_.Enabled());
}

void CheckListView::Ticked(QTreeWidgetItem* item)
{
    if (syncing_)
        return;
    const auto row = static_cast<std::size_t>(indexOfTopLevelItem(item)) + 1;
    events_.Run([&] { list_.Check(row, item->checkState(0) == Qt::Checked); });
}

}  // namespace clb
