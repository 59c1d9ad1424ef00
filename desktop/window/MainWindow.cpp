#include "desktop/window/MainWindow.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QStatusBar>
#include <QWindow>

#include "app/OtherPrograms.h"
#include "desktop/forms/ListBinder.h"
#include "desktop/grid/GridView.h"
#include "desktop/input/InputEvents.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/Announcement.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"
#include "desktop/window/DemoBar.h"
#include "desktop/window/MonthWheel.h"
#include "desktop/window/NoticeLabel.h"
#include "desktop/window/ResultBarView.h"
#include "desktop/window/SplitHandle.h"
#include "desktop/window/ToolbarBinder.h"
#include "desktop/window/TreeBinder.h"
#include "desktop/window/TreeFold.h"
#include "desktop/window/WindowWays.h"
#include "desktop/window/WorkDisplay.h"
#include "desktop/window/YearBox.h"
#include "views/MenuNames.h"

namespace clb {

namespace {

constexpr int kFirstWidth = 1160;
constexpr int kFirstHeight = 700;

}  // namespace

WindowMetrics MainWindow::Metrics()
{
    const QLineEdit line;
    const QComboBox list;
    const QFontMetrics font = line.fontMetrics();
    WindowMetrics metrics;
    metrics.toolbarHeight = std::max(font.height() + 22, list.sizeHint().height() + 10);
    metrics.statusBarHeight = font.height() + 10;
    metrics.treeWidth = font.averageCharWidth() * 36;
    metrics.totalsHeight = line.sizeHint().height();
    metrics.resultHeight = font.height() + 16;
    return metrics;
}

MainWindow::MainWindow(frmController& controller, UserEvents& events)
    : controller_(controller), events_(events), inner_(new QWidget(this))
{
    setWindowIcon(icons::Application());
    setCentralWidget(inner_);
    BuildParts();
    BuildToolbarSide();
    BuildStatusBar();
    BuildResultBar();
    menus_ = std::make_unique<MenuBinder>(controller_.menus, *menuBar(), events_,
                                          [this](MenuItem& item) { Choose(item); });
    BindKeys();
    BindFocus();
    BindWays();
    FollowModels();
    inner_->installEventFilter(this);
    InnerSize(kFirstWidth, kFirstHeight);
    Sync();
}

MainWindow::~MainWindow() = default;

void MainWindow::BuildParts()
{
    toolbar_ = new ToolbarBinder(controller_.toolbar, events_, inner_);
    toolbar_->setObjectName(ToQString(controller_.toolbar.Name()));
    tree_ = new TreeBinder(
        controller_.TreeView, events_,
        [this](std::int32_t shown) {
            if (const std::int32_t node = controller_.Others().NodeNow(shown); node != 0)
                controller_.PressNode(node);
        },
        inner_);
    grid_ = new GridView(
        controller_.Grid, events_,
        [this] {
            const bool focused = controller_.window.Focus(controller_.Grid);
            // The menu bar may have the toolkit's focus while the form's has not moved.
            if (focus_)
                focus_->Sync();
            return focused;
        },
        inner_);
    tree_->setObjectName(ToQString(controller_.TreeView.Name()));
    tree_->setAccessibleName(QStringLiteral("Views and accounts"));
    grid_->setObjectName(ToQString(controller_.Grid.Name()));
    grid_->WhenEmpty([this] { return HintFor(controller_); },
                     [this](const std::string& item) { TakeWay(item); });
    border_ = new SplitHandle(
        {[this] { return controller_.TreeWidth(); }, [this](int place) { TreeWidth(place); }},
        inner_);
    totals_ = std::make_unique<TotalsLine>(controller_, *grid_, inner_);
}

void MainWindow::TakeWay(const std::string& item)
{
    if (item == command_name::kNew)
        NewRecord();
    else if (item == kLatestMonth)
        events_.Run([this] { ShowLatestMonth(controller_); });
    else if (item == kDemo)
        events_.Run(demo_);
    else
        events_.Run([&] { Choose(*controller_.menus.Find(item)); });
}

void MainWindow::ShowAsDemo()
{
    addToolBar(new DemoBar([this] { close(); }, this));
    titleEnd_ = QStringLiteral(" (demo)");
    Sync();
}

void MainWindow::BuildToolbarSide()
{
    month_ = new ListBinder(controller_.cmbPeriod, events_);
    month_->setObjectName(ToQString(controller_.cmbPeriod.Name()));
    month_->setMaxVisibleItems(12);
    month_->setToolTip(QStringLiteral("Month shown"));
    year_ = new YearBox(controller_.txtYear, controller_.UpDown, events_);
    year_->setObjectName(ToQString(controller_.txtYear.Name()));
    year_->setToolTip(QStringLiteral("Year shown"));
    new MonthWheel(*month_, *year_,
                   {[this] { return GridAgrees(); },
                    [this](int months) { events_.Run([&] { controller_.StepMonth(months); }); }});
    fold_ = new TreeFold(controller_, events_, *tree_, toolbar_);
    toolbar_->AddAtLeft(fold_);
    toolbar_->AddAtRight(QStringLiteral("&Month:"), month_);
    toolbar_->AddAtRight(QStringLiteral("Ye&ar:"), year_);
}

void MainWindow::BuildStatusBar()
{
    status_ = new QStatusBar(inner_);
    statusText_ = new QLabel(status_);
    statusText_->setTextFormat(Qt::PlainText);
    statusText_->setContentsMargins(4, 0, 0, 0);
    status_->setAccessibleName(QStringLiteral("Status"));
    status_->addWidget(statusText_, 1);
    status_->addPermanentWidget(
        new NoticeLabel(controller_.notices, controller_.progress, status_));
    work_ = std::make_unique<WorkDisplay>(controller_.progress, *status_);
}

void MainWindow::BuildResultBar()
{
    result_ = new ResultBarView(
        controller_.result,
        [this](std::size_t button) {
            if (GridAgrees())
                events_.Run([this, button] { controller_.result.Press(button); });
        },
        [this] { events_.Run([this] { controller_.result.Close(); }); }, inner_);
}

void MainWindow::FollowModels()
{
    const auto follow = [this](Event<void()> signal, void (MainWindow::*handler)()) {
        signal.connect(sigc::track_obj([this, handler] { (this->*handler)(); }, *this));
    };
    follow(controller_.window.Changed(), &MainWindow::Sync);
    follow(controller_.statusBar.Changed(), &MainWindow::Sync);
    follow(controller_.window.Repaint(), &MainWindow::RepaintNow);
    follow(controller_.result.Changed(), &MainWindow::ResultChanged);
    follow(controller_.TreeView.Changed(), &MainWindow::TreeChanged);
    controller_.Unloading().connect(sigc::track_obj([this] { hide(); }, *this));
}

void MainWindow::Sync()
{
    setWindowTitle(ToQString(controller_.window.Caption()) + titleEnd_);
    statusText_->setText(ToQString(controller_.statusBar.Panel(1)));
    const std::int32_t shown = controller_.TreeView.Selected();
    NamePart(*grid_, shown == 0 ? QString() : ToQString(controller_.TreeView.Node(shown).text));
    totals_->Describe();
    // The commands that the hint links to may have been enabled or disabled.
    grid_->FollowHint();
}

int MainWindow::GridZoomPercent() const
{
    return grid_->Zoom().Percent();
}

void MainWindow::GridZoomPercent(int percent)
{
    grid_->Zoom().Percent(percent);
}

void MainWindow::RepaintNow()
{
    Sync();
    tree_->Sync();
    repaint();
}

void MainWindow::InnerSize(int width, int height)
{
    resize(width, height + menuBar()->heightForWidth(width));
    layout()->activate();
    // If the style puts more around the inner area, the window grows by that much.
    resize(size() + QSize(width, height) - inner_->size());
    layout()->activate();
    InnerResized();
}

void MainWindow::InnerResized()
{
    events_.Run([this] { controller_.Resize(inner_->width(), inner_->height()); });
    PlaceParts();
}

void MainWindow::PlaceParts()
{
    ApplyPlace(controller_.toolbar, *toolbar_);
    ApplyPlace(controller_.statusBar, *status_);
    ApplyPlace(controller_.TreeView, *tree_);
    ApplyPlace(controller_.Grid, *grid_);
    ApplyPlace(controller_.result, *result_);
    border_->Place(tree_->geometry());
    border_->setHidden(controller_.TreeFolded());
    fold_->Follow();
}

void MainWindow::ResultChanged()
{
    const bool focused = result_->isAncestorOf(focusWidget());
    PlaceParts();
    if (focused && !controller_.result.Shown())
        focus_->Sync();
}

/// In a narrow window the tree comes when it gets the focus.
void MainWindow::TreeChanged()
{
    const bool comes = controller_.TreeView.Place().width > 0;
    if (comes == tree_->isVisibleTo(inner_))
        return;
    ApplyPlace(controller_.TreeView, *tree_);
    fold_->Follow();
    if (comes)
        focus_->Sync();
}

void MainWindow::TreeWidth(int pixels)
{
    const int character = fontMetrics().averageCharWidth();
    const int least = character * 10;
    const int most = std::max(least, width() - character * 40);
    events_.Run([&] { controller_.TreeWidth(std::clamp(pixels, least, most)); });
    PlaceParts();
}

void MainWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (event->spontaneous())
        return;
    windowHandle()->installEventFilter(this);
    focus_->Sync();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == inner_ && event->type() == QEvent::Resize)
        InnerResized();
    // A disabled window takes no input, but does not look disabled. If a command has left it
    // disabled, it can still be closed.
    if (watched == windowHandle() && IsInput(*event))
        return !controller_.window.Enabled() &&
               (events_.Running() || event->type() != QEvent::Close);
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (controller_.Loaded())
        events_.Run([this] {
            // The grid of a disabled window is not asked, because the user could not correct what
            // it refuses.
            if (controller_.window.Enabled())
                controller_.Close();
            else
                controller_.Unload();
        });
    event->setAccepted(!controller_.Loaded());
}

}  // namespace clb
