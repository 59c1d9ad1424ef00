// Asks for a month by keyboard.
#pragma once
#include <QFrame>
#include <functional>

#include "typed/TypedMonth.h"

class QLabel;
class QLineEdit;

namespace clb {

/// A small box that takes a typed month and says meanwhile which one it is. Enter goes there,
/// Escape and a click elsewhere close it. A text that is no month stays, with a hint. It deletes
/// itself when it closes.
class MonthPrompt : public QFrame {
public:
    /// go takes the month. Copies the other two.
    MonthPrompt(QWidget* parent, DateContext context, DateHabits habits,
                std::function<void(const Month&)> go);

    /// Opens below a widget.
    void OpenBelow(const QWidget& widget);
    [[nodiscard]] QLineEdit& Line() { return *line_; }
    /// What the line below the typed text says.
    [[nodiscard]] QString Hint() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] std::optional<Month> Typed() const;
    void Follow();
    void Take();

    DateContext context_;
    DateHabits habits_;
    std::function<void(const Month&)> go_;
    QLineEdit* line_;
    QLabel* hint_;
};

}  // namespace clb
