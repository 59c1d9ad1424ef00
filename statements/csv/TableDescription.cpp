#include "statements/csv/TableDescription.h"

namespace clb {
namespace {

/// Records in which samples are looked for.
constexpr std::size_t kSampled = 200;

StatementTable::Columns One(std::optional<std::size_t> column)
{
    return column ? StatementTable::Columns{*column} : StatementTable::Columns();
}

void TakeSamples(const CsvTable& table, std::vector<StatementTable::Column>& columns)
{
    std::size_t records = 0;
    table.ForEachRecord([&](const CsvRecord& record) {
        if (++records > kSampled)
            return;
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (columns[i].sample.empty())
                columns[i].sample = record.Field(i);
    });
}

}  // namespace

StatementTable Describe(const CsvTable& table, const CsvSolution& solution)
{
    StatementTable described;
    described.columns.resize(table.Width());
    for (std::size_t i = 0; i < table.Names().size() && i < table.Width(); ++i)
        described.columns[i].name = table.Names()[i];
    TakeSamples(table, described.columns);

    const CsvColumns& found = solution.columns;
    AmountSource source;
    if (solution.amounts)
        source = solution.amounts->Source();
    else if (!found.sources.empty())
        source = found.sources.front();
    described.date = found.dates;
    described.amount = One(source.amount);
    described.in = One(source.in);
    described.out = One(source.out);
    described.name = found.names;
    described.text = found.texts;
    // Without names the first text is read as the description.
    if (described.name.empty() && !described.text.empty()) {
        described.name = {described.text.front()};
        described.text.erase(described.text.begin());
    }
    described.balance = One(solution.balance);
    described.inverted = solution.inverted != source.negated;
    return described;
}

}  // namespace clb
