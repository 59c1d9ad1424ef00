// Tables of text.
#pragma once
#include <iosfwd>
#include <string>
#include <vector>

namespace clb {

/// A table of text. Each column is as wide as its widest cell.
class Table {
public:
    /// right: aligns the cells right, as numbers are.
    void AddColumn(const std::string& caption, bool right);
    /// Adds a row; cells: one text for each column.
    void AddRow(std::vector<std::string> cells);
    /// Adds a line of text across all columns.
    void AddLine(const std::string& text);
    /// Prints the captions, a rule and the rows.
    void Print(std::ostream& out) const;

private:
    struct Column {
        std::string caption;
        bool right = false;
        std::size_t width = 0;
    };
    struct Row {
        std::vector<std::string> cells;  ///< empty for a line across all columns
        std::string line;
    };
    void PrintCells(std::ostream& out, const std::vector<std::string>& cells) const;

    std::vector<Column> columns_;
    std::vector<Row> rows_;
};

/// Replaces the control characters in a text by spaces, because a terminal would obey them. Keeps
/// line feeds. Replaces a byte that is not UTF-8 by a question mark.
[[nodiscard]] std::string Printable(std::string text);

}  // namespace clb
