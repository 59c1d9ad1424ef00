// The menus that open on a place of the window.
#pragma once
#include <QMenu>
#include <functional>

class QMenuBar;

namespace clb {

class frmController;

/// Builds the menus that the right button opens: the commands of the menu bar that make sense in
/// the place, and what only the place has.
class PlaceMenus {
public:
    /// A line of a menu that is no command of the menu bar.
    struct Line {
        QString caption;
        QKeySequence key;
        std::function<void()> run;
        bool enabled = true;
    };

    /// Both are borrowed and outlive this.
    PlaceMenus(frmController& controller, QMenuBar& bar) : controller_(controller), bar_(bar) {}

    /// The menu for the grid's current row, with these lines at its top.
    void FillForRow(QMenu& menu, const std::vector<Line>& first) const;
    /// The menu for the tree's selected node, with these lines at its top.
    void FillForNode(QMenu& menu, const std::vector<Line>& first) const;

private:
    void Add(QMenu& menu, std::initializer_list<const char*> commands) const;

    frmController& controller_;
    QMenuBar& bar_;
};

}  // namespace clb
