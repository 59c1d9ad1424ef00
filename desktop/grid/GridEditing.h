// Editing of the current cell: how an edit begins, and the keys that end it.
#pragma once
#include <QString>

#include "controls/GridComponent.h"

class QInputMethodEvent;
class QKeyEvent;

namespace clb {

class CellEditor;
class GridCursor;
class UserEvents;

/// Begins, fills and ends the edit of a grid's current cell by the user's keys.
class GridEditing {
public:
    /// All are borrowed and outlive this.
    GridEditing(GridComponent& grid, GridCursor& cursor, CellEditor& editor, UserEvents& events)
        : grid_(grid), cursor_(cursor), editor_(editor), events_(events)
    {
    }

    /// Opens the current cell for editing. `key` is the character that the user typed for it, 0 for
    /// none. Returns false if the cell does not open.
    bool Begin(char32_t key = 0);
    /// Ends the edit and keeps what was typed. Returns false if that was refused.
    bool End();
    /// Takes a key that begins an edit, saves or restores the row, copies or pastes. Returns false
    /// for other keys.
    bool ByKey(const QKeyEvent& event);
    /// Takes a key that writes a character: it replaces the cell's text. Returns false for other
    /// keys.
    bool ByTyping(QKeyEvent& event);
    /// Takes text that an input method composes or commits.
    void ByInputMethod(QInputMethodEvent& event);
    /// Takes a key that ends the open edit: Enter, Escape, or up and down. Returns false for keys
    /// with a modifier.
    bool Leave(const QKeyEvent& event);

private:
    bool CopyOrPaste(const QKeyEvent& event);
    void Copy();
    void Paste();

    GridComponent& grid_;
    GridCursor& cursor_;
    CellEditor& editor_;
    UserEvents& events_;
};

}  // namespace clb
