// The ways about the main window.
#pragma once
#include <QPoint>
#include <functional>

class QKeyEvent;
class QMainWindow;
class QMenu;

namespace clb {

class Control;
class FocusBinder;
class GridView;
class ListBinder;
class ResultBarView;
class TreeBinder;
class UserEvents;
class frmController;

/// The ways about the main window: from part to part, from an account's row to its rows, to a
/// month, to the changed prices, the menus of the places, and the keys that zoom the grid.
class WindowWays {
public:
    /// The parts of the window. They outlive the ways.
    struct Parts {
        QMainWindow& window;
        frmController& controller;
        UserEvents& events;
        FocusBinder& focus;
        TreeBinder& tree;
        GridView& grid;
        ListBinder& month;
        ResultBarView& result;
        /// Saves the row in edit. Returns false if it was refused.
        std::function<bool()> gridAgrees;
        std::function<void()> newRecord;
    };

    explicit WindowWays(Parts parts);

    /// Takes the key that opens an account. Returns false for any other key, and if the grid does
    /// not have the focus on a row that is an account.
    bool ByKey(const QKeyEvent& event);

private:
    void BindKeys();
    void GoTo(Control& control);
    void GoRound(int steps);
    /// The number of the part that has the focus.
    [[nodiscard]] int FocusedPart() const;
    bool OpenAccount();
    void AskMonth();
    void ShowRowMenu(const QPoint& place);
    void ShowNodeMenu(const QPoint& place);
    static void OpenMenu(QMenu& menu, const QPoint& place);

    Parts parts_;
};

}  // namespace clb
