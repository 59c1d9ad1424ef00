#include "desktop/input/UndoKeys.h"

#include <utility>

namespace clb {

bool RedoesTyping(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Y && key.modifiers() == Qt::ControlModifier;
}

UndoKeys::UndoKeys(QWidget& focused, QLineEdit& line, std::function<bool()> edited)
    : QObject(&focused), line_(line), edited_(std::move(edited))
{
    focused.installEventFilter(this);
}

bool UndoKeys::BelongsToText(bool undo) const
{
    return edited_() || (undo ? line_.isUndoAvailable() : line_.isRedoAvailable());
}

bool UndoKeys::eventFilter(QObject* watched, QEvent* event)
{
    const bool offered = event->type() == QEvent::ShortcutOverride;
    if (!offered && event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    auto& key = *static_cast<QKeyEvent*>(event);
    const bool undo = key.matches(QKeySequence::Undo);
    const bool redo = key.matches(QKeySequence::Redo) || RedoesTyping(key);
    if ((!undo && !redo) || (!offered && !RedoesTyping(key)))
        return QObject::eventFilter(watched, event);
    const bool own = BelongsToText(undo);
    event->setAccepted(own);
    if (own && !offered)
        line_.redo();
    return true;
}

}  // namespace clb
