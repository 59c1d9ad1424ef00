// The keys of Undo and Redo in a box with a text.
#pragma once
#include <QKeyEvent>
#include <QLineEdit>
#include <functional>

namespace clb {

/// Whether the key is Ctrl+Y. The toolkit's own key for redoing typed text is Ctrl+Shift+Z, and it
/// would leave this one to the window.
[[nodiscard]] bool RedoesTyping(const QKeyEvent& key);

/// While the text of a box is being edited, the keys of Undo and Redo belong to it. Otherwise they
/// are the commands of the window; the toolkit's boxes would keep them and do nothing.
class UndoKeys : public QObject {
public:
    /// focused receives the keys of the line: the line itself, or the box around it. It owns this;
    /// the line is borrowed. edited says whether the text differs from what the program knows.
    UndoKeys(QWidget& focused, QLineEdit& line, std::function<bool()> edited);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool BelongsToText(bool undo) const;

    QLineEdit& line_;
    std::function<bool()> edited_;
};

}  // namespace clb
