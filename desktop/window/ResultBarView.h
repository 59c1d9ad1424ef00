// Draws the line that says what a command has done.
#pragma once
#include <sigc++/trackable.h>

#include <QFrame>
#include <cstddef>
#include <functional>
#include <vector>

#include "controls/ResultBar.h"

class QLabel;
class QToolButton;

namespace clb {

/// Draws the result bar: a text, cut if there is no room, its buttons, and one that closes the bar.
/// Screen readers are told the text when it comes.
class ResultBarView : public QFrame, public sigc::trackable {
public:
    /// The model is borrowed and outlives the view. press and close are what the buttons do.
    ResultBarView(ResultBar& bar, const std::function<void(std::size_t button)>& press,
                  std::function<void()> close, QWidget* parent);

    /// The button of this action, from 0; null if there is no such action.
    [[nodiscard]] QToolButton* Button(std::size_t action) const;
    [[nodiscard]] QToolButton* Closing() const { return close_; }
    /// Gives the focus to the first button.
    void TakeFocus();
    /// All buttons in the order of the Tab key, shown or not.
    [[nodiscard]] std::vector<QToolButton*> Stops() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Follow();
    void ShowButtons();
    /// The text, and what the buttons do.
    [[nodiscard]] QString Words() const;

    ResultBar& bar_;
    QLabel* text_;
    std::vector<QToolButton*> buttons_;  ///< as many as a result ever has
    QToolButton* close_;
};

}  // namespace clb
