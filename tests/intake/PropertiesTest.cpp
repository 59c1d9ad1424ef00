// Random rows, written in each dialect and imported. CLB_STATEMENT_SEED gives other rows.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "tests/intake/ImportedBooks.h"
#include "tests/support/WrittenStatements.h"

namespace clb {
namespace {

constexpr unsigned kCases = 12;

unsigned FirstSeed()
{
    const char* const seed = std::getenv("CLB_STATEMENT_SEED");
    return seed != nullptr ? static_cast<unsigned>(std::atoi(seed)) : 1;
}

/// Each case has an account of its own.
class StatementProperties : public testing::TestWithParam<Dialect> {
protected:
    StatementProperties() { books_.asker.answers = GetParam().answers; }

    template <class Check>
    void ForEachCase(const Check& check)
    {
        for (unsigned number = 0; number < kCases; ++number) {
            const unsigned seed = FirstSeed() * 1000 + number;
            WrittenRows made(seed);
            SCOPED_TRACE("seed " + std::to_string(seed));
            check(made.Make(GetParam().identified && number % 2 == 0), made);
            if (HasFailure())
                return;
        }
    }
    std::string NewAccount()
    {
        std::string account = "4711" + std::to_string(1000 + accounts_++);
        books_.AddAccount(account, "Bank", "Account " + account);
        return account;
    }
    std::string Write(const std::string& account, const std::vector<WrittenRow>& rows)
    {
        return GetParam().write(account, rows);
    }
    /// The account's rows without what formats add to the text.
    std::vector<std::string> Stored(const std::string& account)
    {
        std::vector<std::string> rows = books_.RowsOf(account);
        for (std::string& row : rows)
            row.erase(std::min(row.size(), row.find("; ")));
        std::sort(rows.begin(), rows.end());
        return rows;
    }
    static std::vector<std::string> Lines(const std::vector<WrittenRow>& rows)
    {
        std::vector<std::string> lines;
        for (const WrittenRow& row : rows)
            lines.push_back(row.date.ToIso() + "|" + row.amount.ToText() + "|" + row.name + "|" +
                            row.text);
        std::sort(lines.begin(), lines.end());
        return lines;
    }
    /// Rows of sorted lists that only one of them has.
    static std::vector<std::string> Differences(const std::vector<std::string>& wanted,
                                                const std::vector<std::string>& stored)
    {
        std::vector<std::string> differences;
        const auto add = [&differences](const char* what, const auto& from, const auto& without) {
            std::vector<std::string> only;
            std::set_difference(from.begin(), from.end(), without.begin(), without.end(),
                                std::back_inserter(only));
            for (const std::string& row : only)
                differences.push_back(what + row);
        };
        add("lost: ", wanted, stored);
        add("too many: ", stored, wanted);
        return differences;
    }
    /// The rows from a day to another.
    static std::vector<WrittenRow> Between(const std::vector<WrittenRow>& rows, Date first,
                                           Date last)
    {
        std::vector<WrittenRow> part;
        std::copy_if(rows.begin(), rows.end(), std::back_inserter(part),
                     [&](const WrittenRow& row) { return row.date >= first && row.date <= last; });
        return part;
    }

    ImportedBooks books_;

private:
    int accounts_ = 0;
};

TEST_P(StatementProperties, RowsComeBackAsTheyWereAndTheSameFileTwiceAddsNothing)
{
    ForEachCase([this](const std::vector<WrittenRow>& rows, WrittenRows&) {
        const std::string account = NewAccount();
        const std::string text = Write(account, rows);

        ASSERT_EQ(books_.Added(text), static_cast<std::int64_t>(rows.size())) << text;
        EXPECT_EQ(Differences(Lines(rows), Stored(account)), std::vector<std::string>()) << text;
        EXPECT_EQ(books_.Added(text), 0) << text;
    });
}

TEST_P(StatementProperties, OverlappingFilesInAnyOrderAddEachRowOnce)
{
    ForEachCase([this](const std::vector<WrittenRow>& rows, WrittenRows& made) {
        const auto day = [&] {
            return rows[static_cast<std::size_t>(made.Number(0, static_cast<int>(rows.size()) - 1))]
                .date;
        };
        const Date begin = rows.front().date;
        const Date end = rows.back().date;
        const Date one = std::min(day(), day());
        const Date other = std::max(one, day());
        std::vector<std::vector<WrittenRow>> files = {
            Between(rows, begin, other), Between(rows, one, end), rows, Between(rows, one, other)};
        for (int order = 0; order < 3; ++order) {
            const std::string account = NewAccount();
            for (const std::vector<WrittenRow>& file : files)
                EXPECT_GE(books_.Added(Write(account, file)), 0) << Write(account, file);
            EXPECT_EQ(Differences(Lines(rows), Stored(account)), std::vector<std::string>())
                << "order " << order << "\n"
                << Write(account, rows);
            for (std::size_t at = files.size() - 1; at > 0; --at)
                std::swap(files[at],
                          files[static_cast<std::size_t>(made.Number(0, static_cast<int>(at)))]);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Dialects, StatementProperties, testing::ValuesIn(Dialects()),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace clb
