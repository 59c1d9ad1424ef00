// Draws the toolbar.
#pragma once
#include <sigc++/trackable.h>

#include <QWidget>
#include <map>
#include <string>
#include <vector>

#include "controls/Menus.h"

class QAction;
class QHBoxLayout;
class QLabel;
class QToolBar;
class QToolButton;

namespace clb {

class UserEvents;

/// Draws the toolbar, with its buttons on the left and other widgets on the right. If there is no
/// room for the buttons' texts, only their pictures are shown, and if that is not enough, the other
/// widgets have no captions. Those widgets are never narrower than their contents.
class ToolbarBinder : public QWidget, public sigc::trackable {
public:
    /// Draws the buttons that WindowButtons() lists. toolbar and events are borrowed and outlive
    /// the binder.
    ToolbarBinder(Toolbar& toolbar, UserEvents& events, QWidget* parent = nullptr);

    /// Adds a button before the others.
    void AddAtLeft(QToolButton* button);
    /// Adds a widget with a caption before it. The caption's letter leads to the widget.
    void AddAtRight(const QString& caption, QWidget* widget);
    /// The button of a key.
    [[nodiscard]] QWidget* ButtonOf(const std::string& key) const;
    [[nodiscard]] QAction* Action(const std::string& key) const { return actions_.at(key); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Measure();
    void Fit();
    void AddButton(const Toolbar::Button& button);
    void Sync();

    Toolbar& toolbar_;
    UserEvents& events_;
    QToolBar* bar_;
    QHBoxLayout* row_;
    std::vector<QLabel*> captions_;
    int fullWidth_ = 0;  // with the buttons' texts
    int bareWidth_ = 0;  // with their pictures only
    std::map<std::string, QAction*> actions_;
};

}  // namespace clb
