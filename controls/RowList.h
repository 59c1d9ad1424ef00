// A table of texts, one row of which can be chosen.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

#include "controls/Control.h"

namespace clb {

/// A table of texts inside a dialog. The user chooses one row. Headings divide the rows; they
/// cannot be chosen.
class RowList : public Control {
public:
    struct Row {
        std::vector<std::string> cells;  ///< one for each column
        bool faded = false;              ///< drawn less prominently
    };
    /// A line of the list: a row or, without cells, a heading.
    struct Line {
        std::string heading;
        Row row{};
        [[nodiscard]] bool IsHeading() const { return row.cells.empty(); }
    };

    /// right: the columns, from 0, whose texts are aligned right, as numbers are.
    RowList(std::string name, std::vector<std::string> columns,
            std::vector<std::size_t> right = {});
    void Accept(ControlVisitor& visitor) override;

    /// Captions of the columns.
    [[nodiscard]] const std::vector<std::string>& Columns() const { return columns_; }
    [[nodiscard]] bool IsRight(std::size_t column) const;
    [[nodiscard]] const std::vector<Line>& Lines() const { return lines_; }
    /// Replaces all lines. Nothing is chosen then.
    void Fill(std::vector<Line> lines);

    /// Number of the chosen row's line, from 1; 0 if none is chosen.
    [[nodiscard]] std::size_t Chosen() const { return chosen_; }
    /// Chooses a row, and raises Choice if it was not chosen before; 0 chooses none. Throws
    /// RuntimeError (SubscriptOutOfRange) if there is no such line or it is a heading.
    void Choose(std::size_t line);
    /// Chooses the row and raises Activated, as a double click does.
    void Activate(std::size_t line);

    /// Raised after the lines were replaced.
    Event<void()> Filled() { return filled_; }
    Event<void()> Choice() { return choice_; }
    Event<void()> Activated() { return activated_; }

private:
    std::vector<std::string> columns_;
    std::vector<std::size_t> right_;
    std::vector<Line> lines_;
    std::size_t chosen_ = 0;
    sigc::signal<void()> filled_;
    sigc::signal<void()> choice_;
    sigc::signal<void()> activated_;
};

}  // namespace clb
