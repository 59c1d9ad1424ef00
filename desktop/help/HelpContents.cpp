#include "desktop/help/HelpContents.h"

#include <QFile>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QTextDocumentFragment>
#include <QTreeWidgetItemIterator>
#include <QUrl>
#include <utility>

#include "desktop/look/PaddedItemDelegate.h"

namespace clb {

namespace {

constexpr int kPage = Qt::UserRole;

QString PlainText(const QString& html)
{
    return QTextDocumentFragment::fromHtml(html).toPlainText();
}

}  // namespace

HelpContents::HelpContents(std::function<void(const QString& page)> choose, QWidget* parent)
    : QTreeWidget(parent), choose_(std::move(choose))
{
    setObjectName(QStringLiteral("HelpContents"));
    setAccessibleName(QStringLiteral("Contents"));
    setHeaderHidden(true);
    setFrameShape(QFrame::NoFrame);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setIndentation(fontMetrics().averageCharWidth() * 2);
    setItemDelegate(new PaddedItemDelegate(this));
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        const QString page = item ? item->data(0, kPage).toString() : QString();
        if (!following_ && !page.isEmpty())
            choose_(page);
    });
}

void HelpContents::Read(const QUrl& page)
{
    static const QRegularExpression nav(QStringLiteral("<nav\\b.*?</nav>"),
                                        QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression line(
        QStringLiteral("<h2>(.*?)</h2>|<li><a href=\"([^\"]+)\"[^>]*>(.*?)</a>"),
        QRegularExpression::DotMatchesEverythingOption);
    const QScopedValueRollback guard(following_, true);
    clear();
    QFile file(page.toLocalFile());
    if (!file.open(QIODevice::ReadOnly))
        return;
    auto lines = line.globalMatch(nav.match(QString::fromUtf8(file.readAll())).captured());
    while (lines.hasNext()) {
        const QRegularExpressionMatch next = lines.next();
        Add(PlainText(next.captured(1)), next.captured(2), PlainText(next.captured(3)));
    }
    expandAll();
}

void HelpContents::Add(const QString& heading, const QString& page, const QString& title)
{
    QTreeWidgetItem* const last = topLevelItem(topLevelItemCount() - 1);
    auto* item = last && heading.isEmpty() ? new QTreeWidgetItem(last) : new QTreeWidgetItem(this);
    item->setText(0, heading.isEmpty() ? title : heading);
    item->setData(0, kPage, page);
    if (heading.isEmpty())
        return;
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    item->setFont(0, bold);
    item->setFlags(Qt::ItemIsEnabled);
}

void HelpContents::Follow(const QUrl& page)
{
    const QScopedValueRollback guard(following_, true);
    for (QTreeWidgetItemIterator at(this); *at; ++at)
        if ((*at)->data(0, kPage).toString() == page.fileName())
            return setCurrentItem(*at);
    setCurrentItem(nullptr);
    clearSelection();
}

/// Keys pass the headings.
QModelIndex HelpContents::moveCursor(CursorAction action, Qt::KeyboardModifiers held)
{
    const bool up = action == MoveUp || action == MovePrevious || action == MovePageUp;
    QModelIndex place = QTreeWidget::moveCursor(action, held);
    while (place.isValid() && !place.flags().testFlag(Qt::ItemIsSelectable))
        place = up ? indexAbove(place) : indexBelow(place);
    return place.isValid() ? place : currentIndex();
}

void HelpContents::keyPressEvent(QKeyEvent* event)
{
    // The toolkit's tree would keep the key of the window.
    if (event->key() == Qt::Key_Escape)
        event->ignore();
    else
        QTreeWidget::keyPressEvent(event);
}

}  // namespace clb
