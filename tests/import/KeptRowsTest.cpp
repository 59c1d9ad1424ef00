#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "intake/KeptRows.h"

namespace clb {
namespace {

StatementRow FullRow()
{
    StatementRow row;
    row.line = 70'000;
    row.date = *Date::Of(2024, 2, 29);
    row.valueDate = *Date::Of(2024, 3, 1);
    row.amount = *Money::TryParse("-1234.5678");
    row.name = std::string("M\0ller", 6);
    row.text = std::string(300, 'x');
    row.category = "Food";
    row.checkNumber = "17";
    row.identifier = "A-1";
    row.balance = *Money::TryParse("0.01");
    row.pieces = {{*Money::TryParse("-1234"), "Food", "bread"},
                  {*Money::TryParse("-0.5678"), "", "rest"}};
    return row;
}

std::string Written(const StatementRow& row)
{
    std::string text = std::to_string(row.line) + "|" + row.date.ToIso() + "|" +
                       (row.valueDate ? row.valueDate->ToIso() : "-") + "|" + row.amount.ToText() +
                       "|" + (row.balance ? row.balance->ToText() : "-") + "|" + row.name + "|" +
                       row.text + "|" + row.category + "|" + row.checkNumber + "|" + row.identifier;
    for (const StatementPiece& piece : row.pieces)
        text += "|" + piece.amount.ToText() + "," + piece.category + "," + piece.text;
    return text;
}

TEST(KeptRows, AllThatARowHolds_ComesBack)
{
    KeptRows rows;
    rows.BeginAccount({.number = "1"});
    rows.Row(FullRow());
    rows.Row(StatementRow{});
    std::vector<std::string> back;
    rows.ForEach([&back](std::size_t, const StatementRow& row) { back.push_back(Written(row)); });
    EXPECT_EQ(back, (std::vector{Written(FullRow()), Written(StatementRow{})}));
}

TEST(KeptRows, ManyRows_ComeBackInTheirOrderWithTheirAccounts_Once)
{
    constexpr std::size_t kMany = 20'000;
    KeptRows rows;
    for (std::size_t number = 0; number < kMany; ++number) {
        rows.BeginAccount({.number = number % 3 == 0 ? "A" : "B"});
        StatementRow row;
        row.line = number;
        row.text = std::to_string(number);
        rows.Row(row);
    }
    EXPECT_EQ(rows.Survey().Accounts().size(), 2U);
    std::size_t next = 0;
    rows.HandOver([&next](std::size_t place, const StatementRow& row) {
        EXPECT_EQ(place, next % 3 == 0 ? 0U : 1U);
        EXPECT_EQ(row.line, next);
        EXPECT_EQ(row.text, std::to_string(next));
        ++next;
    });
    EXPECT_EQ(next, kMany);
    rows.HandOver([](std::size_t, const StatementRow&) { FAIL() << "the rows came again"; });
}

}  // namespace
}  // namespace clb
