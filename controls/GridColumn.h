// The columns of a data grid.
#pragma once
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/Value.h"

namespace clb {

/// Number of a grid's first column.
inline constexpr std::int32_t kFirstColumn = 1;

/// The alignment of texts in their cells.
namespace grid_align {
inline constexpr std::int32_t kGeneral = 0;  ///< texts left, numbers and amounts right
inline constexpr std::int32_t kRight = 6;
}  // namespace grid_align

/// Parts of the grid's width that no column takes, in pixels: the row selectors on the left and the
/// scroll bar on the right.
namespace grid_metrics {
inline constexpr std::int32_t kSelector = 20;
inline constexpr std::int32_t kScrollBar = 16;
}  // namespace grid_metrics

/// How a cell is edited besides typing.
namespace cell_control {
inline constexpr std::int32_t kComboBox = 3;  ///< a list that completes and takes new texts
inline constexpr std::int32_t kDropDown = 4;  ///< a list to choose from
}  // namespace cell_control

/// One entry of a column's value list: what is stored and what is shown.
struct GridValueItem {
    Value value;
    std::string text;
};

/// The drop-down of a column's cells.
struct GridPopup {
    std::int32_t type = cell_control::kComboBox;
    std::int32_t rows = 5;   ///< entries shown at once
    std::int32_t width = 0;  ///< in twentieths of a point; 0: as wide as the column
};

/// One column of the grid.
struct GridColumn {
    std::string key;  ///< name of the bound field; empty for a calculated column
    std::string caption;
    std::string dbField;  ///< field whose values are shown; empty: calculated
    FieldType dataType = FieldType::Text;
    std::size_t textWidth = 0;  ///< most characters a text may have; 0: no limit
    bool hidden = false;
    bool readOnly = false;
    bool updatable = false;  ///< its field takes values
    bool fetchCellStyle = false;
    std::int32_t width = 100;  ///< in pixels
    bool byHand = false;       ///< the user has set the width
    std::int32_t alignment = grid_align::kGeneral;
    std::int32_t headingAlignment = grid_align::kGeneral;
    std::optional<GridPopup> popup;
    std::vector<GridValueItem> valueItems;

    [[nodiscard]] bool Calculated() const { return dbField.empty(); }
    /// Whether the texts of the cells, or the caption, are on the right: those of numbers are.
    [[nodiscard]] bool StandsRight() const;
    [[nodiscard]] bool HeadingStandsRight() const;
};

/// The columns of a grid, numbered from 1, and the order in which they are shown.
class GridColumns {
public:
    [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(columns_.size()); }
    /// Throws RuntimeError (SubscriptOutOfRange) if there is no such column.
    GridColumn& Item(std::int32_t index);
    [[nodiscard]] const GridColumn& Item(std::int32_t index) const;
    /// Adds a column after the others; returns its number.
    std::int32_t Add(GridColumn column);
    void Clear();

    /// Place of a column among all columns from the left, hidden ones included, from 1.
    [[nodiscard]] std::int32_t Position(std::int32_t index) const;
    /// Moves a column to a place; the columns between move by one.
    void Position(std::int32_t index, std::int32_t place);
    /// Numbers of all columns from the left.
    [[nodiscard]] const std::vector<std::int32_t>& Displayed() const { return order_; }
    /// Number of the column with the key; 0 if there is none.
    [[nodiscard]] std::int32_t Find(const std::string& key) const;
    /// Left edge of a shown column in pixels from that of the first column; 0 for a hidden one.
    [[nodiscard]] std::int32_t Left(std::int32_t index) const;

private:
    std::vector<GridColumn> columns_;
    std::vector<std::int32_t> order_;
};

/// Rows with the same value in a column are shown together, between a heading and a footer.
struct GridGroup {
    std::int32_t column = 0;
    /// Text of the heading: GroupingValue and TotalChildCount and texts between single quotes,
    /// joined by "&".
    std::string headerText = "GroupingValue";
    std::int32_t headingKind = 0;  ///< 4: heading and footer
    std::int32_t footerKind = 0;   ///< 3: footer text comes from the container
};

/// Colours that follow the desktop.
namespace system_color {
inline constexpr std::int32_t kButtonFace = static_cast<std::int32_t>(0x8000000F);
}

/// A named look of some of the grid's cells.
struct GridStyle {
    std::optional<std::int32_t> backColor;  ///< one of system_color, else 0xBBGGRR
};

using GridGroups = std::vector<GridGroup>;
using GridStyles = std::map<std::string, GridStyle>;

}  // namespace clb
