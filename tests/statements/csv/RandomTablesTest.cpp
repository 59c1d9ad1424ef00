// Tables in random dialects are read right, or a question is asked: never read wrong.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "tests/statements/csv/RandomTable.h"
#include "tests/statements/csv/ReadTable.h"

namespace clb {
namespace {

std::vector<std::string> Sorted(std::vector<std::string> rows)
{
    std::sort(rows.begin(), rows.end());
    return rows;
}

std::vector<std::string> RowsOf(const KeptStatement& kept)
{
    std::vector<std::string> rows;
    for (const auto& account : kept.accounts)
        for (const StatementRow& row : account.rows)
            rows.push_back(row.date.ToIso() + " " + row.amount.ToText());
    return Sorted(rows);
}

std::vector<std::string> RowsOf(const std::vector<RandomRow>& truth)
{
    std::vector<std::string> rows;
    rows.reserve(truth.size());
    for (const RandomRow& row : truth)
        rows.push_back(row.date.ToIso() + " " + row.amount.ToText());
    return Sorted(rows);
}

/// CLB_CSV_TABLES=100000 runs for a long time; CLB_CSV_SEED begins at another table.
std::uint32_t Setting(const char* name, std::uint32_t otherwise)
{
    const char* value = std::getenv(name);
    return value ? static_cast<std::uint32_t>(std::strtoul(value, nullptr, 10)) : otherwise;
}

TEST(RandomTablesTest, AreReadRightOrAskedAbout)
{
    const std::uint32_t tables = Setting("CLB_CSV_TABLES", 1000);
    const std::uint32_t first = Setting("CLB_CSV_SEED", 1);
    std::uint32_t asked = 0;
    for (std::uint32_t seed = first; seed < first + tables; ++seed) {
        const RandomTable table(seed);
        const auto reader = ReadCsv(table.Text());
        std::vector<OpenQuestion> questions;
        ASSERT_NO_THROW(questions = reader->Open({})) << table.Text();
        if (questions.empty()) {
            ASSERT_EQ(RowsOf(Kept(table.Text())), RowsOf(table.Truth())) << "seed " << seed << "\n"
                                                                         << table.Text();
            continue;
        }
        ++asked;
        const bool columns =
            std::any_of(questions.begin(), questions.end(), [](const OpenQuestion& question) {
                return question.question == StatementQuestion::Columns;
            });
        // With the right answers the rows are right.
        // A column that is not known as one of marks leaves the sign to the user, either way.
        StatementAnswers answers = table.Answers();
        if (RowsOf(Kept(table.Text(), answers)) != RowsOf(table.Truth()) && table.IsUnsigned())
            answers.inverted = true;
        if (!columns) {
            ASSERT_EQ(Asked(table.Text(), answers), "") << seed << "\n" << table.Text();
            ASSERT_EQ(RowsOf(Kept(table.Text(), answers)), RowsOf(table.Truth()))
                << "seed " << seed << "\n"
                << table.Text();
        }
    }
    // Most files settle all by themselves.
    RecordProperty("asked", static_cast<int>(asked));
    EXPECT_LT(asked * 100, tables * 40) << asked;
}

}  // namespace
}  // namespace clb
