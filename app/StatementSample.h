// The first rows of a statement, for a user who looks whether they are read right.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

#include "controls/RowList.h"
#include "intake/StatementSurvey.h"

namespace clb {

/// Keeps the first rows of a statement as lines of a list, with what is left out between them, and
/// counts all.
class StatementSample : public StatementSurvey {
public:
    /// Captions of the list's columns, and those that are aligned right.
    static std::vector<std::string> Columns();
    static std::vector<std::size_t> RightColumns();

    void Row(const StatementRow& row) override;
    void LeftOut(const LeftOutPart& part) override;

    [[nodiscard]] std::size_t Rows() const { return rows_; }
    [[nodiscard]] std::vector<RowList::Line> TakeLines() { return std::move(lines_); }
    /// How many rows can be read, and whether the balances fit them.
    [[nodiscard]] std::string Sentence() const;

private:
    std::vector<RowList::Line> lines_;
    std::size_t rows_ = 0;
    std::size_t leftOut_ = 0;
    std::size_t leftOutShown_ = 0;
};

}  // namespace clb
