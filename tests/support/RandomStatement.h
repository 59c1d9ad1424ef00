// Random rows of statements, for tests that write and read them.
#pragma once
#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "statements/form/Statement.h"

namespace clb {

/// Makes rows with texts that formats must protect. The same seed makes the same rows.
class RandomStatement {
public:
    explicit RandomStatement(unsigned seed) : random_(seed) {}

    int Number(int least, int most)
    {
        return std::uniform_int_distribution<int>(least, most)(random_);
    }
    /// One to four words.
    std::string Text()
    {
        static const std::vector<std::string> words = {
            "Baker", "&",      "A&B",         "<x",  "y>",           "a<b>c",
            "\"q\"", "it's",   "caf\xC3\xA9", "50%", "-5.00",        "1,234",
            "^",     "!",      "#;",          "/a/", "\xE2\x82\xAC", "D1/2/24",
            "&amp",  "[Bank]", "]]",          "--",  "100",          "=",
            ";",     "$"};
        std::string text;
        for (int count = Number(1, 4); count > 0; --count) {
            text += text.empty() ? "" : " ";
            text += words[static_cast<std::size_t>(Number(0, static_cast<int>(words.size()) - 1))];
        }
        return text;
    }
    std::vector<StatementRow> Rows()
    {
        std::vector<StatementRow> rows;
        for (int count = Number(0, 12); count > 0; --count) {
            StatementRow row;
            row.date = *Date::Of(Number(1990, 2060), Number(1, 12), Number(1, 28));
            row.amount = Money::FromScaled(Number(-2000000, 2000000) * 100LL *
                                           (Number(0, 9) == 0 ? 1000 : 1));
            row.name = Text();
            row.text = Number(0, 2) == 0 ? "" : Text();
            rows.push_back(row);
        }
        return rows;
    }
    /// The amount with two decimals and this decimal mark, in groups or not.
    std::string Amount(Money amount, char decimal, bool groups)
    {
        std::string text = amount.Grouped();
        std::string written;
        for (const char c : text) {
            if (c == '.')
                written += decimal;
            else if (c != ',')
                written += c;
            else if (groups)
                written += decimal == '.' ? ',' : '.';
        }
        return written;
    }

private:
    std::mt19937 random_;
};

}  // namespace clb
