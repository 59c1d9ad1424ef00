#include "statements/csv/CsvReader.h"

#include "statements/csv/ColumnNames.h"
#include "statements/csv/CsvSolver.h"
#include "statements/csv/CsvTable.h"
#include "statements/csv/StatementRows.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

class CsvReader : public IStatementReader {
public:
    explicit CsvReader(std::string_view text) : text_(text) {}

    [[nodiscard]] std::string Kind() const override { return "csv"; }

    [[nodiscard]] std::vector<OpenQuestion> Open(const StatementAnswers& answers) const override
    {
        return Solve(CsvTable(text_, answers), answers).questions;
    }

    void Read(const StatementAnswers& answers, IStatementSink& sink) const override
    {
        const CsvTable table(text_, answers);
        const CsvSolution solution = Solve(table, answers);
        StatementRows(table, solution, sink).Read();
    }

    [[nodiscard]] std::string Shape() const override
    {
        const CsvTable table(text_, {});
        std::string shape(1, table.Dialect().delimiter);
        for (const std::string& name : table.Names())
            shape += PlainName(name) + '|';
        if (table.HasHeader())
            return shape;
        for (const ColumnFacts& facts : FactsOf(table))
            shape += facts.AreDates()     ? 'd'
                     : facts.AreAmounts() ? 'a'
                     : facts.AreMarks()   ? 'm'
                                          : 't';
        return shape;
    }

private:
    std::string_view text_;
};

}  // namespace

std::unique_ptr<IStatementReader> ReadCsv(std::string_view text)
{
    if (TrimSpaces(text).empty())
        throw NotAStatement("The file is empty.");
    return std::make_unique<CsvReader>(text);
}

}  // namespace clb
