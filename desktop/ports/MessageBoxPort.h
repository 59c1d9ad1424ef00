// Shows message boxes with the toolkit.
#pragma once
#include <QDialog>
#include <memory>

#include "ports/IMessageBox.h"

namespace clb {

class LongTextView;

/// Shows message boxes of the toolkit. A text that is too long for a box is shown in a scrolling
/// view.
class MessageBoxPort : public IMessageBox {
public:
    BoxAnswer Show(const std::string& text, std::int32_t style, const std::string& title) override;

    /// Makes the box without showing it.
    static std::unique_ptr<QDialog> Build(const std::string& text, std::int32_t style,
                                          const std::string& title);
    /// Whether the text fits into a plain box, which holds a few lines and paragraphs.
    static bool FitsBox(const std::string& text);
};

/// A message box for long texts: an icon, the text in a scrolling view, and a button that copies
/// it. Its result is the number of the standard button that was pressed.
class LongMessageBox : public QDialog {
public:
    LongMessageBox(const QString& text, std::int32_t style);

    [[nodiscard]] const LongTextView& View() const { return *view_; }

private:
    QWidget* ButtonRow(std::int32_t style);

    LongTextView* view_;
};

}  // namespace clb
