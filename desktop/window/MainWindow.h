// The main window.
#pragma once
#include <sigc++/trackable.h>

#include <QMainWindow>
#include <functional>
#include <memory>

#include "app/frmController.h"
#include "desktop/input/FocusBinder.h"
#include "desktop/window/MenuBinder.h"
#include "desktop/window/TotalsLine.h"

class QLabel;
class QStatusBar;

namespace clb {

class GridView;
class ListBinder;
class ResultBarView;
class SplitHandle;
class ToolbarBinder;
class TreeBinder;
class TreeFold;
class UserEvents;
class WindowWays;
class WorkDisplay;
class YearBox;

/// The window of the controller. It draws each control and hands the user's actions to it. The
/// model decides everything, including the place of each control.
class MainWindow : public QMainWindow, public sigc::trackable {
public:
    /// The sizes that depend on the fonts and the toolkit's style.
    static WindowMetrics Metrics();

    /// Both are borrowed and outlive the window. The controller need not be loaded yet.
    MainWindow(frmController& controller, UserEvents& events);
    ~MainWindow() override;

    /// Sets the size of the inner area, below the menus, in pixels.
    void InnerSize(int width, int height);
    /// Sets the distance of the border between tree and grid from the left, in pixels. Tree and
    /// grid each keep some room.
    void TreeWidth(int pixels);
    /// The size at which the grid's text is drawn, in percent of the ordinary one.
    [[nodiscard]] int GridZoomPercent() const;
    void GridZoomPercent(int percent);
    /// Draws the present state of the models.
    void Sync();

    WorkDisplay& Work() { return *work_; }

    /// Saves the grid's row in edit, as leaving the row does. Returns false if the row was refused;
    /// the user has then been shown why.
    bool GridAgrees();
    /// Runs the command of a menu item. A command that needs the rows first saves the row in edit,
    /// and does not run if that was refused.
    void Choose(MenuItem& item);
    /// Sets what is called with the paths of files that are dropped on the window.
    void OnDrop(std::function<void(const QStringList&)> taken);
    /// Sets what opens the demonstration.
    void OnDemo(std::function<void()> opened) { demo_ = std::move(opened); }
    /// Marks the window as the one of the demonstration: in its title, and by a bar at the top.
    void ShowAsDemo();
    /// Shows the window above the others, also if it was minimised.
    void ComeToFront();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void BuildParts();
    void BuildToolbarSide();
    void BuildStatusBar();
    void BuildResultBar();
    /// Follows one of the ways of the hint in the empty grid.
    void TakeWay(const std::string& item);
    void BindFocus();
    void BindKeys();
    void BindWays();
    void FollowModels();
    void PlaceParts();
    void ResultChanged();
    void TreeChanged();
    void InnerResized();
    /// Begins a new row, also while the grid is on its empty line, where the command is disabled.
    void NewRecord();
    void RepaintNow();
    void OrderTabs();

    frmController& controller_;
    UserEvents& events_;
    std::function<void(const QStringList&)> dropped_;
    std::function<void()> demo_ = [] {};
    QString titleEnd_;
    QWidget* inner_ = nullptr;
    TreeBinder* tree_ = nullptr;
    GridView* grid_ = nullptr;
    TreeFold* fold_ = nullptr;
    SplitHandle* border_ = nullptr;
    ResultBarView* result_ = nullptr;
    ListBinder* month_ = nullptr;
    YearBox* year_ = nullptr;
    ToolbarBinder* toolbar_ = nullptr;
    QStatusBar* status_ = nullptr;
    QLabel* statusText_ = nullptr;
    std::unique_ptr<TotalsLine> totals_;
    std::unique_ptr<MenuBinder> menus_;
    std::unique_ptr<FocusBinder> focus_;
    std::unique_ptr<WindowWays> ways_;
    std::unique_ptr<WorkDisplay> work_;
};

}  // namespace clb
