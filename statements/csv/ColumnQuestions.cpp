#include "statements/csv/ColumnQuestions.h"

#include <set>
#include <string>
#include <vector>

namespace clb {
namespace {

using Option = std::vector<std::size_t>;  ///< columns that belong together

/// The columns of a source, of several the one of what goes out first.
Option ColumnsOf(const AmountSource& source)
{
    Option columns;
    for (const auto& column : {source.amount, source.out, source.in})
        if (column)
            columns.push_back(*column);
    return columns;
}

std::string NameOf(const CsvTable& table, const Option& columns)
{
    std::string name;
    for (const std::size_t column : columns)
        name += (name.empty() ? "" : " + ") + table.NameOf(column);
    return name;
}

/// For names that are equal: "3: CAD$ + 4: USD$".
std::string NumberedNameOf(const CsvTable& table, const Option& columns)
{
    std::string name;
    for (const std::size_t column : columns) {
        const std::string number = std::to_string(column + 1);
        const std::string own = table.NameOf(column);
        name += (name.empty() ? "" : " + ") + number + (own == number ? "" : ": " + own);
    }
    return name;
}

/// The names of the options, with numbers if two are equal.
std::vector<std::string> NamesOf(const CsvTable& table, const std::vector<Option>& options)
{
    std::vector<std::string> names;
    names.reserve(options.size());
    for (const Option& option : options)
        names.push_back(NameOf(table, option));
    if (std::set<std::string>(names.begin(), names.end()).size() < names.size())
        for (std::size_t i = 0; i < options.size(); ++i)
            names[i] = NumberedNameOf(table, options[i]);
    return names;
}

}  // namespace

OpenQuestion UnknownColumns(const CsvTable& table, const CsvColumns& columns)
{
    std::vector<Option> options;
    for (std::size_t i = 0; i < table.Width(); ++i)
        options.push_back({i});
    OpenQuestion question{.question = StatementQuestion::Columns,
                          .options = NamesOf(table, options),
                          .why = columns.dates.empty()
                                     ? "No column of the table holds dates."
                                     : "No column of the table is known to hold amounts."};
    if (!question.options.empty())
        question.proposed = question.options.front();
    return question;
}

OpenQuestion WhichAmount(const CsvTable& table, const CsvColumns& columns, std::size_t equals,
                         std::size_t chosen)
{
    std::vector<Option> options;
    for (std::size_t i = 0; i < equals; ++i)
        options.push_back(ColumnsOf(columns.sources[i]));
    OpenQuestion question{.question = StatementQuestion::Columns,
                          .options = NamesOf(table, options),
                          .why = "Several columns could hold the amount."};
    question.proposed = chosen < equals ? question.options[chosen]
                                        : NameOf(table, ColumnsOf(columns.sources[chosen]));
    return question;
}

}  // namespace clb
