// The bar in which a text is looked for.
#pragma once
#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;

namespace clb {

/// Looks for a text in a page. Enter goes to the next place, Shift+Enter to the one before it.
/// Escape closes the bar.
class FindBar : public QWidget {
public:
    struct Actions {
        /// Finds a text that is being typed. Returns false if there is none.
        std::function<bool(const QString& text)> typed;
        /// Finds the next place, or the one before it.
        std::function<bool(const QString& text, bool backward)> next;
        /// The bar was closed.
        std::function<void()> closed;
    };
    FindBar(Actions actions, QWidget* parent);

    /// Shows the bar with its text selected.
    void Open();
    /// Goes to the next place of the text, or to the one before it. Without a text opens the bar.
    void Next(bool backward);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Say(bool found);
    void Close();

    Actions actions_;
    QLineEdit* line_;
    QLabel* answer_;
};

}  // namespace clb
