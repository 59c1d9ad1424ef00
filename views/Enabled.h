// The places where a command can be enabled, and which of them the window shows.
#pragma once

namespace clb {

/// Where a command is enabled.
enum class Enabled {
    Always,
    OffNewRow,      ///< except while the grid has the focus on its new row
    OnStoredRow,    ///< the grid has the focus on a stored row, and no cell is in edit
    OnTransaction,  ///< the grid has the focus on a stored transaction
    ForUndo,        ///< there is a step to undo
    ForRedo,        ///< there is a step to redo
    OnExportable    ///< an account that can be exported is shown or current; no cell is in edit
};

/// The places that the focus and the current row are in now.
struct EnabledNow {
    bool offNewRow = false;
    bool onStoredRow = false;
    bool onTransaction = false;
    bool onExportable = false;
    bool forUndo = false;
    bool forRedo = false;

    /// Whether a command with this place is enabled.
    [[nodiscard]] constexpr bool Has(Enabled place) const
    {
        switch (place) {
            case Enabled::OffNewRow: return offNewRow;
            case Enabled::OnStoredRow: return onStoredRow;
            case Enabled::OnTransaction: return onTransaction;
            case Enabled::OnExportable: return onExportable;
            case Enabled::ForUndo: return forUndo;
            case Enabled::ForRedo: return forRedo;
            case Enabled::Always: break;
        }
        return true;
    }
};

}  // namespace clb
