// What an empty grid shows instead of rows.
#pragma once
#include <QWidget>
#include <functional>
#include <map>
#include <optional>

#include "app/EmptyHint.h"

class QAbstractScrollArea;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace clb {

/// Shows in the free room of an empty grid why there are no rows, with links to the commands that
/// change that.
class EmptyState : public QWidget {
public:
    /// Runs the command of a menu item.
    using Press = std::function<void(const std::string& item)>;
    /// Lies in the viewport of the grid, which is borrowed.
    explicit EmptyState(QAbstractScrollArea& grid);

    void OnPress(Press press) { press_ = std::move(press); }
    /// Shows the hint in the middle of the room. Hides if there is no hint, or if it does not fit.
    void Follow(const std::optional<EmptyHint>& hint, const QRect& room);

    /// Title, text and the names of the links as one text.
    [[nodiscard]] QString Words() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Take(const EmptyHint& hint);
    void TakeColors();
    QPushButton* LinkTo(const std::string& item);
    void Hide(QWidget& part);

    QAbstractScrollArea& grid_;
    Press press_;
    EmptyHint shown_;
    QLabel* title_;
    QLabel* text_;
    QHBoxLayout* row_;
    std::map<std::string, QPushButton*> links_;  // by menu item
};

}  // namespace clb
