#pragma once
#include <QDialog>
#include <memory>

#include "ports/IMessageBox.h"

namespace clb {

class LongTextView;

/// Message boxes of the toolkit. A text too long for a box stands in a scrolling view.
class MessageBoxPort : public IMessageBox {
public:
    BoxAnswer Show(const std::string& text, std::int32_t style, const std::string& title) override;

    /// The box that would show, not shown yet.
    static std::unique_ptr<QDialog> Build(const std::string& text, std::int32_t style,
                                          const std::string& title);
    /// Whether the text fits into a plain box: some lines, some paragraphs of words.
    static bool FitsBox(const std::string& text);
};

/// A message box for long texts: icon, the text in a view of its own, a button to copy it. Its
/// result is the number of the standard button pressed.
class LongMessageBox : public QDialog {
public:
    LongMessageBox(const QString& text, std::int32_t style);

    [[nodiscard]] const LongTextView& View() const { return *view_; }

private:
    QWidget* ButtonRow(std::int32_t style);

    LongTextView* view_;
};

}  // namespace clb
