// Random rows, written as QIF in each order of dates, come back as they were, or a question is
// asked whose right answer brings them back.

#include <gtest/gtest.h>

#include <algorithm>

#include "statements/qif/QifReader.h"
#include "tests/support/CollectedStatement.h"
#include "tests/support/RandomStatement.h"

namespace clb {
namespace {

using DateText::Order;

struct Shape {
    Order order = Order::MonthDayYear;
    char decimal = '.';
    bool groups = false;
    const char* divider = "/";
    bool shortYears = false;
    const char* lineEnd = "\n";
};

std::string TwoDigits(int number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string Written(Date date, const Shape& shape)
{
    const std::string day = TwoDigits(date.Day());
    const std::string month = TwoDigits(date.Month());
    const std::string year =
        shape.shortYears ? TwoDigits(date.Year() % 100) : std::to_string(date.Year());
    const std::string divider = shape.divider;
    switch (shape.order) {
        case Order::MonthDayYear: return month + divider + day + divider + year;
        case Order::DayMonthYear: return day + divider + month + divider + year;
        case Order::YearMonthDay: break;
    }
    return year + divider + month + divider + day;
}

std::string Written(const std::vector<StatementRow>& rows, const Shape& shape,
                    RandomStatement& random)
{
    const std::string end = shape.lineEnd;
    std::string text = "!Type:Bank" + end;
    for (const StatementRow& row : rows) {
        text += "D" + Written(row.date, shape) + end;
        text += "T" + random.Amount(row.amount, shape.decimal, shape.groups) + end;
        text += "P" + row.name + end;
        text += row.text.empty() ? "" : "M" + row.text + end;
        text += "^" + end;
    }
    return text;
}

class QifRoundTrip : public ::testing::TestWithParam<Shape> {};

TEST_P(QifRoundTrip, GivesTheRowsBack)
{
    std::size_t asked = 0;
    for (unsigned seed = 1; seed <= 300; ++seed) {
        RandomStatement random(seed);
        std::vector<StatementRow> rows = random.Rows();
        // As in statements. Dates that rise in one order only settle the order.
        std::sort(rows.begin(), rows.end(), [](const StatementRow& one, const StatementRow& other) {
            return one.date < other.date;
        });
        const std::string text = Written(rows, GetParam(), random);
        const auto reader = ReadQif(text);
        StatementAnswers answers;
        if (!Asked(*reader).empty()) {
            ASSERT_EQ(Asked(*reader), std::vector<std::string>{"dateOrder"}) << text;
            answers.dateOrder = GetParam().order;
            ++asked;
        }
        ASSERT_TRUE(Asked(*reader, answers).empty()) << text;

        const CollectedStatement read = Collect(*reader, answers);

        ASSERT_TRUE(read.leftOut.empty()) << text;
        ASSERT_EQ(read.accounts.at(0).rows.size(), rows.size()) << text;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const StatementRow& got = read.accounts[0].rows[i];
            ASSERT_EQ(got.date, rows[i].date) << text;
            ASSERT_EQ(got.amount, rows[i].amount) << text;
            ASSERT_EQ(got.name, rows[i].name) << text;
            ASSERT_EQ(got.text, rows[i].text) << text;
        }
    }
    EXPECT_LT(asked, 100U);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, QifRoundTrip,
    ::testing::Values(Shape{}, Shape{.shortYears = true},
                      Shape{.order = Order::DayMonthYear, .decimal = ',', .shortYears = true},
                      Shape{.order = Order::DayMonthYear},
                      Shape{.order = Order::YearMonthDay, .divider = "-"},
                      Shape{.order = Order::DayMonthYear, .decimal = ',', .divider = "."},
                      Shape{.decimal = ',', .groups = true},
                      Shape{.groups = true, .lineEnd = "\r\n"}));

}  // namespace
}  // namespace clb
