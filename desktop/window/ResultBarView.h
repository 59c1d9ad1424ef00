// Draws the line that says what a command has done.
#pragma once
#include <sigc++/trackable.h>

#include <QFrame>
#include <functional>

#include "controls/ResultBar.h"

class QLabel;
class QToolButton;

namespace clb {

/// Draws the result bar: a text, cut if there is no room, its button if it has one, and one
/// that closes the bar. Screen readers are told the text when it comes.
class ResultBarView : public QFrame, public sigc::trackable {
public:
    /// The model is borrowed and outlives the view. press and close are what the buttons do.
    ResultBarView(ResultBar& bar, std::function<void()> press, std::function<void()> close,
                  QWidget* parent);

    [[nodiscard]] QToolButton* Reverse() const { return reverse_; }
    [[nodiscard]] QToolButton* Closing() const { return close_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Follow();

    ResultBar& bar_;
    QLabel* text_;
    QToolButton* reverse_;
    QToolButton* close_;
};

}  // namespace clb
