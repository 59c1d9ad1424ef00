// Shows a text of any size.
#pragma once
#include <QAbstractScrollArea>

#include "desktop/forms/LongText.h"

namespace clb {

/// A read-only view of a text of any size. It opens at once, because it draws only the visible
/// lines.
class LongTextView : public QAbstractScrollArea {
public:
    explicit LongTextView(QString text, QWidget* parent = nullptr);

    [[nodiscard]] const LongText& Text() const { return text_; }
    /// Puts the whole text on the clipboard.
    void Copy() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] double CharacterWidth() const;

    LongText text_;
};

}  // namespace clb
