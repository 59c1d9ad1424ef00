// Random rows written as a table in a random dialect.
#pragma once
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "base/Date.h"
#include "base/Money.h"
#include "statements/form/StatementReader.h"

namespace clb {

struct RandomRow {
    Date date;
    Money amount;
    std::string text;
};

/// Makes rows, and a table of them as some bank could write it.
class RandomTable {
public:
    explicit RandomTable(std::uint32_t seed);

    [[nodiscard]] const std::vector<RandomRow>& Truth() const { return rows_; }
    [[nodiscard]] const std::string& Text() const { return text_; }
    /// The answers that are right for this table.
    [[nodiscard]] StatementAnswers Answers() const;

    /// Whether only another column than the amount's says which way the money went.
    [[nodiscard]] bool IsUnsigned() const
    {
        return style_ == Style::Marked || style_ == Style::InOut || style_ == Style::InOutSigned;
    }

private:
    enum class Style {
        Signed,
        InOut,
        InOutSigned,
        Marked,
        Inverted,
        TrailingMinus,
        Brackets,
        Sides
    };
    struct Language;

    int Number(int from, int to);
    bool Chance(int percent) { return Number(1, 100) <= percent; }
    template <class T>
    const T& OneOf(const std::vector<T>& choices)
    {
        return choices[static_cast<std::size_t>(Number(0, static_cast<int>(choices.size()) - 1))];
    }

    void MakeRows();
    Money MakeAmount();
    std::string MakeText(bool out);
    void MakeDialect();
    void Write();
    void WriteHeader(const Language& words, bool names);
    void WriteRows(bool names);
    void WriteAfter();
    void AddMore(const RandomRow& row, std::vector<std::string>& cells);
    std::string DateText(Date date);
    [[nodiscard]] std::string Plain(Money size) const;
    [[nodiscard]] std::string Signed(Money amount) const;
    std::vector<std::string> AmountCells(Money amount);
    void WriteRow(const std::vector<std::string>& cells);
    std::string Quoted(const std::string& cell);

    std::mt19937 random_;
    std::vector<RandomRow> rows_;
    std::string text_;
    std::string eol_;
    char delimiter_ = ',';
    char decimal_ = '.';
    std::string group_;
    int quoting_ = 0;
    int decimals_ = 2;
    std::string dateForm_;
    Style style_ = Style::Signed;
    int vocabulary_ = 0;
    bool header_ = true;
    bool balance_ = false;
    bool newestFirst_ = false;
    // Columns that only some banks add.
    bool valueDate_ = false;
    bool original_ = false;
    bool currency_ = false;
    bool status_ = false;
    bool identifier_ = false;
};

}  // namespace clb
