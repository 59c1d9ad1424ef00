#include "desktop/window/TreeBinder.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <algorithm>

#include "desktop/input/UserEvents.h"
#include "desktop/look/GridColors.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"
#include "desktop/window/TreeLines.h"
#include "views/NodeTag.h"

namespace clb {

namespace {

/// The picture of a node: that of the account's type, else that of the tree's list.
QIcon PictureOf(const Tree& tree, std::int32_t node, bool selected)
{
    const TreeNode& model = tree.Node(node);
    const std::string& type = node_tag::IsAccount(model.tag) && model.parent != 0
                                  ? tree.Node(model.parent).text
                                  : model.key;
    const QIcon picture = icons::Account(type);
    return picture.isNull() ? icons::TreeImage(selected ? model.selectedImage : model.image)
                            : picture;
}

/// What a screen reader reads: the name, the type of an account, and the balance.
QString WordsOf(const Tree& tree, std::int32_t node)
{
    const TreeNode& model = tree.Node(node);
    QString words = ToQString(model.text);
    if (node_tag::IsAccount(model.tag) && model.parent != 0)
        words += QStringLiteral(", ") + ToQString(tree.Node(model.parent).text);
    return model.figure.empty() ? words : words + QStringLiteral(", ") + ToQString(model.figure);
}

}  // namespace

TreeBinder::TreeBinder(Tree& tree, UserEvents& events, PressNode press, QWidget* parent)
    : QTreeWidget(parent), tree_(tree), events_(events), press_(std::move(press))
{
    setHeaderHidden(true);
    setFrameShape(QFrame::NoFrame);
    setUniformRowHeights(true);
    setAnimated(false);
    setItemDelegate(new TreeLines(this));
    MeasureFonts();
    setFocusPolicy(Qt::TabFocus);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    connect(this, &QTreeWidget::itemExpanded, this,
            [this](QTreeWidgetItem* item) { UserExpanded(item, true); });
    connect(this, &QTreeWidget::itemCollapsed, this,
            [this](QTreeWidgetItem* item) { UserExpanded(item, false); });
    tree_.Changed().connect(sigc::track_obj([this] { SyncLater(); }, *this));
    Sync();
}

void TreeBinder::MeasureFonts()
{
    const int side = fontMetrics().height() + 2;
    setIndentation(side);
    setIconSize(QSize(side, side));
}

void TreeBinder::changeEvent(QEvent* event)
{
    QTreeWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        MeasureFonts();
}

void TreeBinder::initViewItemOption(QStyleOptionViewItem* option) const
{
    QTreeWidget::initViewItemOption(option);
    if (hasFocus()) {
        // Not every desktop's selection is dark enough for its text.
        option->palette.setColor(QPalette::Highlight,
                                 Readable(option->palette.color(QPalette::Highlight),
                                          option->palette.color(QPalette::HighlightedText)));
        return;
    }
    const GridColors colors(palette());
    option->palette.setColor(QPalette::Highlight, colors.currentCell);
    option->palette.setColor(QPalette::HighlightedText, colors.text);
}

void TreeBinder::SyncLater()
{
    if (std::exchange(syncPending_, true))
        return;
    // A node may change while the toolkit still uses its item, and many nodes may change one after
    // the other.
    QMetaObject::invokeMethod(
        this, [this] { Sync(); }, Qt::QueuedConnection);
}

void TreeBinder::Sync()
{
    syncPending_ = false;
    const QScopedValueRollback guard(syncing_, true);
    if (!SameNodes())
        Rebuild();
    for (std::int32_t node = 1; node <= tree_.Count(); ++node)
        if (ItemOf(node)->isExpanded() != tree_.Node(node).expanded)
            ItemOf(node)->setExpanded(tree_.Node(node).expanded);
    FollowSelection();
}

bool TreeBinder::SameNodes() const
{
    if (static_cast<std::int32_t>(items_.size()) != tree_.Count())
        return false;
    for (std::int32_t node = 1; node <= tree_.Count(); ++node)
        if (parents_[static_cast<std::size_t>(node - 1)] != tree_.Node(node).parent ||
            ItemOf(node)->text(0) != ToQString(tree_.Node(node).text))
            return false;
    return true;
}

void TreeBinder::Rebuild()
{
    clear();
    items_.clear();
    parents_.clear();
    for (std::int32_t node = 1; node <= tree_.Count(); ++node) {
        const TreeNode& model = tree_.Node(node);
        auto* item = model.parent == 0 ? new QTreeWidgetItem(this)
                                       : new QTreeWidgetItem(ItemOf(model.parent));
        item->setText(0, ToQString(model.text));
        item->setIcon(0, PictureOf(tree_, node, false));
        items_.push_back(item);
        parents_.push_back(model.parent);
    }
}

void TreeBinder::FollowSelection()
{
    const std::int32_t selected = tree_.Selected();
    for (std::int32_t node = 1; node <= tree_.Count(); ++node) {
        ItemOf(node)->setIcon(0, PictureOf(tree_, node, node == selected));
        const QString words = WordsOf(tree_, node);
        if (ItemOf(node)->data(0, Qt::AccessibleTextRole).toString() != words)
            ItemOf(node)->setData(0, Qt::AccessibleTextRole, words);
        const QString figure = ToQString(tree_.Node(node).figure);
        if (ItemOf(node)->data(0, TreeLines::kFigure).toString() == figure)
            continue;
        ItemOf(node)->setData(0, TreeLines::kFigure, figure);
    }
    // A key that is not yet handed to the model has already moved the selection. The model answers
    // later.
    if (pressesPending_ == 0)
        setCurrentItem(selected == 0 ? nullptr : ItemOf(selected));
}

std::int32_t TreeBinder::NodeOf(const QTreeWidgetItem* item) const
{
    const auto found = std::find(items_.begin(), items_.end(), item);
    return found == items_.end() ? 0 : static_cast<std::int32_t>(found - items_.begin()) + 1;
}

void TreeBinder::Press(std::int32_t node)
{
    if (node != 0)
        events_.Run([&] { press_(node); });
    SyncLater();
}

void TreeBinder::PressLater(std::int32_t node)
{
    ++pressesPending_;
    QMetaObject::invokeMethod(
        this,
        [this, node] {
            --pressesPending_;
            Press(node);
        },
        Qt::QueuedConnection);
}

void TreeBinder::resizeEvent(QResizeEvent* event)
{
    QTreeWidget::resizeEvent(event);
    // The column is as wide as the longest name, but never narrower than the tree.
    header()->setMinimumSectionSize(viewport()->width());
}

void TreeBinder::mousePressEvent(QMouseEvent* event)
{
    const QTreeWidgetItem* item = itemAt(event->position().toPoint());
    const bool onText =
        item != nullptr && visualItemRect(item).contains(event->position().toPoint());
    if (event->button() == Qt::RightButton ? !onText : event->button() != Qt::LeftButton || !onText)
        return QTreeWidget::mousePressEvent(event);
    // The right button's menu is about the node, so that is shown first.
    Press(NodeOf(item));
}

void TreeBinder::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return QTreeWidget::keyPressEvent(event);
    // The keys before it may still be waiting to be handed to the model.
    QMetaObject::invokeMethod(
        this, [this] { Enter(); }, Qt::QueuedConnection);
}

void TreeBinder::Enter()
{
    const std::int32_t node = NodeOf(currentItem());
    if (node == 0)
        return;
    if (node != tree_.Selected())
        Press(node);
    if (entered_)
        entered_();
}

void TreeBinder::contextMenuEvent(QContextMenuEvent* event)
{
    if (menu_)
        menu_(event->globalPos());
}

void TreeBinder::mouseMoveEvent(QMouseEvent* event)
{
    // Dragging must not select anything.
    event->accept();
}

void TreeBinder::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTreeWidgetItem* item = itemAt(event->position().toPoint());
    if (item && event->button() == Qt::LeftButton)
        item->setExpanded(!item->isExpanded());
}

void TreeBinder::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeWidget::currentChanged(current, previous);
    if (syncing_ || !current.isValid())
        return;
    // The toolkit is still handling the key that moved the selection.
    PressLater(NodeOf(itemFromIndex(current)));
}

void TreeBinder::UserExpanded(QTreeWidgetItem* item, bool expanded)
{
    if (syncing_)
        return;
    if (const std::int32_t node = NodeOf(item))
        events_.Run([&] { tree_.Expand(node, expanded); });
}

}  // namespace clb
