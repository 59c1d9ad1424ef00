// Editing the current cell: how an edit begins, and the keys that end it.
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>
#include <limits>

#include "desktop/grid/CellEditor.h"
#include "desktop/grid/GridView.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

bool IsEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Whether a key writes something. Control and Alt together are the third level of a keyboard.
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

bool GridView::BeginEdit(char32_t key)
{
    // What does not fit the event's 16 bits counts as no key.
    const bool fits = key <= static_cast<char32_t>(std::numeric_limits<std::int16_t>::max());
    bool begun = false;
    events_.RunOnRow([&] { begun = grid_.BeginEdit(fits ? static_cast<std::int16_t>(key) : 0); });
    return begun && editor_->IsOpen();
}

bool GridView::EndEdit()
{
    bool ended = !grid_.Editing();
    if (!ended)
        events_.Run([&] { ended = grid_.EndEdit(); });
    return ended;
}

void GridView::KeepRow()
{
    events_.RunOnRow([&] {
        const std::size_t row = grid_.Row();
        if (row == 0)
            return;
        const bool fresh = grid_.Rows().Kind(row) == GridRowKind::NewRow;
        if (!grid_.Update())
            return;
        if (fresh)
            grid_.MoveTo(grid_.Rows().NewRow(), layout_.FirstColumn());
        else
            grid_.MoveTo(std::min(grid_.Row() + 1, grid_.Rows().Count()), grid_.Col());
    });
}

bool GridView::Edit(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    if (event.key() == Qt::Key_F4 || (event.key() == Qt::Key_Down && held == Qt::AltModifier)) {
        if (BeginEdit())
            editor_->DropDown();
        return true;
    }
    if (held == Qt::ControlModifier)
        return CopyOrPaste(event);
    if (held != Qt::NoModifier)
        return false;
    if (IsEnter(event.key())) {
        KeepRow();
        return true;
    }
    switch (event.key()) {
        case Qt::Key_F2:
            if (BeginEdit())
                editor_->CaretToEnd();
            return true;
        case Qt::Key_Backspace:
            if (BeginEdit()) {
                editor_->Line().selectAll();
                editor_->Line().del();
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

bool GridView::EditByTyping(QKeyEvent& event)
{
    if (!Writes(event))
        return false;
    const bool open = editor_->IsOpen();
    if (open || BeginEdit(FirstCharacter(event.text()))) {
        if (!open)
            editor_->Line().selectAll();
        QCoreApplication::sendEvent(&editor_->Line(), &event);
    }
    return true;
}

void GridView::inputMethodEvent(QInputMethodEvent* event)
{
    const bool empty = event->commitString().isEmpty() && event->preeditString().isEmpty();
    if (empty || !BeginEdit(FirstCharacter(event->commitString())))
        return;
    editor_->Line().selectAll();
    QCoreApplication::sendEvent(&editor_->Line(), event);
}

QVariant GridView::inputMethodQuery(Qt::InputMethodQuery query) const
{
    if (query == Qt::ImCursorRectangle)
        return layout_.CellRect(grid_.Row(), grid_.Col())
            .translated(0, viewport()->mapToParent(QPoint()).y());
    return QAbstractScrollArea::inputMethodQuery(query);
}

bool GridView::CopyOrPaste(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Copy)) {
        const bool cell = grid_.Row() != 0 && !OnHeading(grid_.Row());
        if (cell)
            events_.Run([&] {
                QGuiApplication::clipboard()->setText(
                    ToQString(grid_.CellText(grid_.Row(), grid_.Col())));
            });
        return true;
    }
    if (event.matches(QKeySequence::Paste)) {
        Paste();
        return true;
    }
    return false;
}

void GridView::Paste()
{
    if (!BeginEdit())
        return;
    editor_->Line().selectAll();
    editor_->Line().paste();
}

bool GridView::LeaveEdit(QKeyEvent& event)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    if (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab) {
        focusNextPrevChild(event.key() == Qt::Key_Tab);
        return true;
    }
    if (held != Qt::NoModifier)
        return false;
    if (event.key() == Qt::Key_Escape)
        events_.Run([&] { grid_.Escape(); });
    else if (IsEnter(event.key()))
        KeepRow();
    else
        Navigate(event.key(), false);
    return true;
}

}  // namespace clb
