// What an empty grid shows instead of rows.
#pragma once
#include <QWidget>
#include <functional>
#include <map>
#include <optional>
#include <span>

#include "app/EmptyHint.h"
#include "desktop/grid/WayButton.h"

class QAbstractScrollArea;
class QBoxLayout;
class QLabel;

namespace clb {

/// Shows in the free room of an empty grid why there are no rows, with links to the commands that
/// change that. A greeting shows its ways as large buttons, with as many words as there is room
/// for.
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
    /// One way to arrange the parts.
    struct Form {
        WayButton::Look look;
        int characters;  ///< width at most, in characters
        bool picture = true;
        bool title = true;
        bool text = true;
        bool explains = false;
    };
    /// From the largest to the smallest.
    static std::span<const Form> FormsOf(const EmptyHint& hint);

    void Take(const EmptyHint& hint);
    void Arrange(const Form& form);
    /// Arranges the parts and places them if they fit into the room.
    bool Fits(const Form& form, const QRect& room);
    void MeasureFonts();
    void TakeColors();
    [[nodiscard]] int PictureSide() const;
    WayButton* LinkTo(const std::string& item);
    void Hide(QWidget& part);

    QAbstractScrollArea& grid_;
    Press press_;
    EmptyHint shown_;
    bool picture_ = true;
    QLabel* title_;
    QLabel* text_;
    QBoxLayout* row_;
    std::map<std::string, WayButton*> links_;  // by menu item
};

}  // namespace clb
