// The events of a grid whose rows are edited.
#pragma once
#include <cstddef>
#include <cstdint>

#include "controls/Event.h"

namespace clb {

/// What a grid reports while its current cell moves and its rows are edited, in the container's
/// terms. Arguments by reference are read back.
class GridRowEvents {
public:
    Event<void()> AfterDelete() { return afterDelete_; }
    Event<void(std::int32_t, std::int32_t)> AfterEdit() { return afterEdit_; }
    Event<void()> AfterUpdate() { return afterUpdate_; }
    Event<void(bool&)> BeforeDelete() { return beforeDelete_; }
    Event<void(std::int32_t, std::int32_t, std::int16_t, bool&)> BeforeEdit()
    {
        return beforeEdit_;
    }
    Event<void(bool&)> BeforeUpdate() { return beforeUpdate_; }
    Event<void(std::int32_t, std::int32_t)> RowColChange() { return rowColChange_; }
    /// A new row was saved and has this number now.
    Event<void(std::size_t)> RowAdded() { return rowAdded_; }
    /// The row's unsaved changes were given up.
    Event<void()> RowRestored() { return rowRestored_; }
    /// A handler of BeforeUpdate refused the row and the update has ended.
    Event<void()> UpdateRefused() { return updateRefused_; }
    /// The grid asks for the focus.
    Event<void()> FocusWanted() { return focusWanted_; }

protected:
    GridRowEvents() = default;
    ~GridRowEvents() = default;

    /// Raises BeforeEdit, or BeforeDelete; false if a handler refused.
    bool MayEdit(std::int32_t row, std::int32_t column, std::int16_t key)
    {
        bool cancel = false;
        beforeEdit_.emit(row, column, key, cancel);
        return !cancel;
    }
    bool MayDelete()
    {
        bool cancel = false;
        beforeDelete_.emit(cancel);
        return !cancel;
    }
    /// Raises BeforeUpdate; false if a handler refused the row.
    virtual bool MayUpdate()
    {
        bool cancel = false;
        beforeUpdate_.emit(cancel);
        return !cancel;
    }

    sigc::signal<void()> afterDelete_;
    sigc::signal<void(std::int32_t, std::int32_t)> afterEdit_;
    sigc::signal<void()> afterUpdate_;
    sigc::signal<void(std::int32_t, std::int32_t)> rowColChange_;
    sigc::signal<void(std::size_t)> rowAdded_;
    sigc::signal<void()> rowRestored_;
    sigc::signal<void()> updateRefused_;
    sigc::signal<void()> focusWanted_;

private:
    sigc::signal<void(bool&)> beforeDelete_;
    sigc::signal<void(std::int32_t, std::int32_t, std::int16_t, bool&)> beforeEdit_;
    sigc::signal<void(bool&)> beforeUpdate_;
};

}  // namespace clb
