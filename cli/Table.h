#pragma once
#include <iosfwd>
#include <string>
#include <vector>

namespace clb {

/// Text in columns, each as wide as its widest cell.
class Table {
public:
    /// right: figures, which stand at the column's right edge.
    void AddColumn(const std::string& caption, bool right);
    /// One text for each column.
    void AddRow(std::vector<std::string> cells);
    /// A line of its own across the columns.
    void AddLine(const std::string& text);
    /// Captions, a rule, the rows.
    void Print(std::ostream& out) const;

private:
    struct Column {
        std::string caption;
        bool right = false;
        std::size_t width = 0;
    };
    struct Row {
        std::vector<std::string> cells;  ///< empty for a line of its own
        std::string line;
    };
    void PrintCells(std::ostream& out, const std::vector<std::string>& cells) const;

    std::vector<Column> columns_;
    std::vector<Row> rows_;
};

/// The text without control characters, which a terminal would obey; each becomes a blank, but line
/// feeds stay. A byte that is not UTF-8 becomes a question mark.
std::string Printable(std::string text);

}  // namespace clb
