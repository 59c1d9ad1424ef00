// What a view is: its columns, lists, totals and texts, one constant for each view.
//
// A new view is a file with its constant, declared and listed in ViewDefinition.cpp; its rows are
// added to data/ViewColumns.h and data/StoredView.cpp.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "controls/GridColumn.h"
#include "data/IShownState.h"
#include "grid/CVGrid.h"

namespace clb {

class clsDatabase;
struct AccountColumns;

/// The month that the two controls of the window show.
struct ShownMonth {
    std::string year;         ///< as typed
    std::int32_t period = 0;  ///< 1 = January to 12; 0: none chosen
};

/// The values that the user is offered in a column's cells.
struct ColumnList {
    GridPopup popup;
    std::vector<GridValueItem> (*values)(clsDatabase& data, const ShownMonth& month);
};

/// One column of a view.
struct ViewColumn {
    std::int32_t column;            ///< from the view's enum in ViewColumns.h
    const char* caption = nullptr;  ///< nullptr: the name of the field
    double part = 0;                ///< of the grid's usable width; 0: not set
    bool fillsRest = false;         ///< takes the width that the other columns leave
    bool hidden = false;
    bool readOnly = false;
    /// No field of the rows: added to the grid for the view.
    bool calculated = false;
    std::int32_t before = 0;  ///< column before which a calculated one is shown; 0: the last
    const ColumnList* list = nullptr;
};

/// A view whose rows are shown in groups.
struct GroupDefinition {
    std::int32_t column;  ///< rows with the same value are a group
    const char* heading;  ///< expression; see GridGroup
};

/// What may be exported in a view.
enum class ExportOf {
    Undecided,  ///< as in the view shown before
    Nothing,
    ShownAccount,
    CurrentRow  ///< the account in the current row
};

/// What a view says when it has no rows.
struct EmptyText {
    /// A command that leads on: its caption there and its menu item.
    struct Way {
        const char* caption;
        const char* item;
    };
    const char* title;  ///< {month} in it is the shown month
    const char* text;
    std::span<const Way> ways;
};

/// A row that is being drawn, for the texts and figures that no table holds.
struct DrawnRow {
    CVGrid& grid;
    clsDatabase& data;
    const IShownState& shown;
    std::size_t row;     ///< displayed number
    double& lastActual;  ///< the last Budget::Actual, which the same row's difference needs
};

/// A view as the window sees it. Null members and spans without elements: there are none.
struct ViewDefinition {
    std::int32_t view;
    std::span<const ViewColumn> columns;  ///< calculated ones in the order of their numbers
    const char* rowName = "Row";          ///< what one of its rows is, as a word of a caption
    const char* totalLabel = nullptr;
    /// Columns below which the two totals stand; 0: the view has no such total.
    std::int32_t firstTotal = 0;
    std::int32_t secondTotal = 0;
    const GroupDefinition* group = nullptr;
    /// Where the rows that are accounts have their cells.
    const AccountColumns* accounts = nullptr;
    /// It shows the accounts of one type.
    bool ofType = false;
    /// It shows the rows of one account.
    bool ofAccount = false;
    /// Its rows are transactions, which can be split and moved to another month.
    bool transactions = false;
    /// It shows one month.
    bool ofMonth = false;
    ExportOf exports = ExportOf::Undecided;
    /// Type that an account shown here has; nullptr: several have this view.
    const char* accountType = nullptr;
    const EmptyText* empty = nullptr;
    /// Gives a calculated cell its value.
    void (*cell)(const DrawnRow& row, std::int32_t column, Value& value) = nullptr;
    /// Whether a cell's figure is a warning; nullptr: those below 0 are. Reads no calculated cell.
    bool (*warns)(const DrawnRow& row, std::int32_t column) = nullptr;
    /// What such a warning means, for whoever does not see its colour.
    const char* warning = "";
    /// Tip of the row's cells, and text of the footer of a group.
    std::string (*tip)(const DrawnRow& row) = nullptr;
    std::string (*footer)(const DrawnRow& row) = nullptr;
};

/// The definition of a view; one without anything for a number that is not a view.
const ViewDefinition& DefinitionOf(std::int32_t view);

}  // namespace clb
