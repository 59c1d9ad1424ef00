// The buttons of the hint in an empty grid.
#pragma once
#include <QIcon>
#include <QPushButton>

#include "app/EmptyHint.h"

namespace clb {

/// A button that runs one of the ways of a hint. Enter presses it as Space does. A click leaves the
/// focus where the user works.
class WayButton : public QPushButton {
public:
    /// How the button is drawn.
    enum class Look {
        Link,  ///< its caption, underlined
        Card,  ///< the drawing, below it the caption and the explanation
        Line   ///< the drawing at the left, beside it the caption and the explanation
    };

    explicit WayButton(QWidget* parent);

    void Take(const EmptyHint::Way& way);
    /// explains: the explanation is shown; screen readers have it in any case.
    void Draw(Look look, bool explains);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return look_ != Look::Link; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    [[nodiscard]] QFont CaptionFont() const;
    [[nodiscard]] int Side() const;
    [[nodiscard]] int TextWidth(int width) const;
    [[nodiscard]] int TextHeight(int width) const;
    void DrawLink(QPainter& painter);
    void DrawGround(QPainter& painter);
    void DrawWords(QPainter& painter, QRect room, Qt::Alignment side);

    QIcon picture_;
    QString explanation_;
    Look look_ = Look::Link;
    bool explains_ = false;
};

}  // namespace clb
