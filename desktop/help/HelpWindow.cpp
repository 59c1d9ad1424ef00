#include "desktop/help/HelpWindow.h"

#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

#include "base/Product.h"
#include "desktop/grid/GridZoom.h"
#include "desktop/help/FindBar.h"
#include "desktop/help/HelpContents.h"
#include "desktop/help/HelpPage.h"
#include "desktop/look/Icons.h"

namespace clb {

namespace {

constexpr double kPartOfScreen = 0.9;
constexpr QSize kLeastSize(320, 240);

QSize FirstSize(const QWidget& window)
{
    const int character = window.fontMetrics().averageCharWidth();
    return {character * 135, window.fontMetrics().height() * 42};
}

}  // namespace

HelpWindow::HelpWindow(HelpLook& look, const OpenAddress& open)
    : QWidget(nullptr, Qt::Window),
      look_(look),
      bar_(new QToolBar(this)),
      parts_(new QSplitter(this)),
      contents_(new HelpContents(
          [this](const QString& page) { page_->Show(page_->source().resolved(QUrl(page))); },
          parts_)),
      page_(new HelpPage([this, open](const QString& address) { open(*this, address); }, parts_)),
      find_(new FindBar(
          {[this](const QString& text) { return page_->FindTyped(text); },
           [this](const QString& text, bool backward) { return page_->FindText(text, backward); },
           [this] { page_->setFocus(); }},
          this)),
      zoom_(new GridZoom(*page_, *page_->viewport()))
{
    zoom_->setParent(this);
    setObjectName(QStringLiteral("HelpWindow"));
    setWindowTitle(QStringLiteral("Help - ") + QLatin1String(product::kTitle));
    setAttribute(Qt::WA_QuitOnClose, false);
    BuildBar();
    BuildParts();
    const QSize size = look_.size.isValid() ? look_.size : FirstSize(*this);
    resize(size.expandedTo(kLeastSize).boundedTo(screen()->availableSize() * kPartOfScreen));
    zoom_->Percent(look_.zoom);
    contentsShown_->setChecked(look_.contents);
    contents_->setVisible(look_.contents);
    ZoomChanged();
}

QAction* HelpWindow::Add(const char* icon, const QString& caption, const QString& tip,
                         const QList<QKeySequence>& keys, const std::function<void()>& run)
{
    QAction* action = bar_->addAction(icon ? icons::Command(icon) : QIcon(), caption);
    action->setShortcuts(keys);
    action->setToolTip(
        QStringLiteral("%1 (%2)").arg(tip, keys.first().toString(QKeySequence::NativeText)));
    if (QWidget* button = bar_->widgetForAction(action))
        button->setFocusPolicy(Qt::TabFocus);
    connect(action, &QAction::triggered, this, run);
    return action;
}

void HelpWindow::BuildBar()
{
    bar_->setMovable(false);
    bar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const int side = fontMetrics().height() + 4;
    bar_->setIconSize(QSize(side, side));
    back_ = Add("back", QStringLiteral("Back"), QStringLiteral("The page before"),
                {Qt::ALT | Qt::Key_Left, Qt::Key_Back}, [this] { page_->backward(); });
    forward_ = Add("forward", QStringLiteral("Forward"), QStringLiteral("The page after it"),
                   {Qt::ALT | Qt::Key_Right, Qt::Key_Forward}, [this] { page_->forward(); });
    contentsShown_ = Add("tree", QStringLiteral("Contents"), QStringLiteral("List of all pages"),
                         {Qt::Key_F9}, [this] { ShowContents(contentsShown_->isChecked()); });
    contentsShown_->setCheckable(true);
    bar_->addSeparator();
    Add("find", QStringLiteral("Find"), QStringLiteral("Find in this page"), {Qt::CTRL | Qt::Key_F},
        [this] { find_->Open(); });
    bar_->addSeparator();
    Add("smaller", QStringLiteral("Smaller"), QStringLiteral("Smaller text"),
        {Qt::CTRL | Qt::Key_Minus}, [this] { zoom_->Step(-1); });
    ordinary_ = Add(nullptr, QString(), QStringLiteral("Ordinary size"), {Qt::CTRL | Qt::Key_0},
                    [this] { zoom_->Percent(GridZoom::kOrdinary); });
    Add("larger", QStringLiteral("Larger"), QStringLiteral("Larger text"),
        {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal}, [this] { zoom_->Step(1); });
    const auto find = [this](const QKeySequence& key, bool backward) {
        connect(new QShortcut(key, this), &QShortcut::activated, this,
                [this, backward] { find_->Next(backward); });
    };
    find(Qt::Key_F3, false);
    find(Qt::SHIFT | Qt::Key_F3, true);
}

void HelpWindow::BuildParts()
{
    parts_->setChildrenCollapsible(false);
    parts_->setStretchFactor(1, 1);
    const int list = fontMetrics().averageCharWidth() * 32;
    parts_->setSizes({list, FirstSize(*this).width() - list});
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(bar_);
    all->addWidget(parts_, 1);
    all->addWidget(find_);
    back_->setEnabled(false);
    forward_->setEnabled(false);
    connect(page_, &QTextBrowser::backwardAvailable, back_, &QAction::setEnabled);
    connect(page_, &QTextBrowser::forwardAvailable, forward_, &QAction::setEnabled);
    connect(page_, &QTextBrowser::sourceChanged, this,
            [this](const QUrl& page) { contents_->Follow(page); });
    page_->installEventFilter(this);
}

void HelpWindow::ShowContents(bool on)
{
    look_.contents = on;
    contents_->setVisible(on);
    on ? contents_->setFocus() : page_->setFocus();
}

/// The wheel zooms as well as the keys do.
void HelpWindow::ZoomChanged()
{
    look_.zoom = zoom_->Percent();
    ordinary_->setText(QStringLiteral("%1 %").arg(look_.zoom));
}

void HelpWindow::Open(const QUrl& page)
{
    if (!isVisible()) {
        contents_->Read(page);
        page_->Show(page);
        page_->setFocus();
    }
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

bool HelpWindow::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        ZoomChanged();
    return false;
}

void HelpWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void HelpWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (!isMaximized() && !isFullScreen())
        look_.size = size();
}

}  // namespace clb
