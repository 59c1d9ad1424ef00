#include "desktop/grid/GridEditing.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <limits>

#include "desktop/grid/CellEditor.h"
#include "desktop/grid/GridCursor.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

bool IsEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Whether a key writes a character. Control and Alt together are the third level of a keyboard
/// (AltGr).
bool Writes(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held =
        event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool level = held == Qt::NoModifier || held == (Qt::ControlModifier | Qt::AltModifier);
    return level && !event.text().isEmpty() && event.text().front().isPrint();
}

char32_t FirstCharacter(const QString& text)
{
    const auto characters = text.toUcs4();
    return characters.isEmpty() ? U'\0' : static_cast<char32_t>(characters.front());
}

}  // namespace

bool GridEditing::Begin(char32_t key)
{
    // The event has 16 bits. A character that does not fit counts as no key.
    const bool fits = key <= static_cast<char32_t>(std::numeric_limits<std::int16_t>::max());
    bool begun = false;
    events_.RunOnRow(
        [&] { begun = grid_.BeginEdit(fits ? static_cast<std::int16_t>(key) : std::int16_t{0}); });
    return begun && editor_.IsOpen();
}

bool GridEditing::End()
{
    bool ended = !grid_.Editing();
    if (!ended)
        events_.Run([&] { ended = grid_.EndEdit(); });
    return ended;
}

bool GridEditing::ByKey(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    if (event.key() == Qt::Key_F4 || (event.key() == Qt::Key_Down && held == Qt::AltModifier)) {
        if (Begin())
            editor_.DropDown();
        return true;
    }
    if (held == Qt::ControlModifier)
        return CopyOrPaste(event);
    if (held != Qt::NoModifier)
        return false;
    if (IsEnter(event.key())) {
        cursor_.KeepRow();
        return true;
    }
    switch (event.key()) {
        case Qt::Key_F2:
            if (Begin())
                editor_.CaretToEnd();
            return true;
        case Qt::Key_Backspace:
            if (Begin()) {
                editor_.Line().selectAll();
                editor_.Line().del();
            }
            return true;
        case Qt::Key_Escape:
            if (!grid_.Dirty())
                return false;
            events_.Run([&] { grid_.Escape(); });
            return true;
        default: return false;
    }
}

bool GridEditing::ByTyping(QKeyEvent& event)
{
    if (!Writes(event))
        return false;
    const bool open = editor_.IsOpen();
    if (open || Begin(FirstCharacter(event.text()))) {
        if (!open)
            editor_.Line().selectAll();
        QCoreApplication::sendEvent(&editor_.Line(), &event);
    }
    return true;
}

void GridEditing::ByInputMethod(QInputMethodEvent& event)
{
    const bool empty = event.commitString().isEmpty() && event.preeditString().isEmpty();
    if (empty || !Begin(FirstCharacter(event.commitString())))
        return;
    editor_.Line().selectAll();
    QCoreApplication::sendEvent(&editor_.Line(), &event);
}

bool GridEditing::CopyOrPaste(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Copy)) {
        Copy();
        return true;
    }
    if (event.matches(QKeySequence::Paste)) {
        Paste();
        return true;
    }
    return false;
}

void GridEditing::Copy()
{
    if (grid_.Row() == 0 || cursor_.OnHeading(grid_.Row()))
        return;
    events_.Run([&] {
        QGuiApplication::clipboard()->setText(ToQString(grid_.CellText(grid_.Row(), grid_.Col())));
    });
}

void GridEditing::Paste()
{
    if (!Begin())
        return;
    editor_.Line().selectAll();
    editor_.Line().paste();
}

bool GridEditing::Leave(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    if (held != Qt::NoModifier)
        return false;
    if (event.key() == Qt::Key_Escape)
        events_.Run([&] { grid_.Escape(); });
    else if (IsEnter(event.key()))
        cursor_.KeepRow();
    else
        cursor_.Navigate(event.key(), false);
    return true;
}

}  // namespace clb
