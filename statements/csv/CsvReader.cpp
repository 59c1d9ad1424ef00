#include "statements/csv/CsvReader.h"

#include "statements/csv/ColumnNames.h"
#include "statements/csv/CsvSolver.h"
#include "statements/csv/CsvTable.h"
#include "statements/csv/StatementRows.h"
#include "statements/csv/TableDescription.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

class CsvReader : public IStatementReader {
public:
    explicit CsvReader(std::string_view text) : text_(text) {}

    [[nodiscard]] std::string Kind() const override { return "csv"; }

    [[nodiscard]] std::vector<OpenQuestion> Open(const StatementAnswers& answers) const override
    {
        return Under(answers).solution.questions;
    }

    void Read(const StatementAnswers& answers, IStatementSink& sink) const override
    {
        const Solved& solved = Under(answers);
        StatementRows(solved.table, solved.solution, sink).Read();
    }

    [[nodiscard]] std::string Shape() const override
    {
        const CsvTable& table = Under({}).table;
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

    [[nodiscard]] std::optional<StatementTable> Table(
        const StatementAnswers& answers) const override
    {
        const Solved& solved = Under(answers);
        return Describe(solved.table, solved.solution);
    }

private:
    /// The file as it is read under some answers.
    struct Solved {
        Solved(std::string_view text, const StatementAnswers& given)
            : answers(given), table(text, answers), solution(Solve(table, answers))
        {
        }
        StatementAnswers answers;
        CsvTable table;
        CsvSolution solution;
    };

    /// Keeps the last one: a file is opened and read under the same answers.
    const Solved& Under(const StatementAnswers& answers) const
    {
        if (!solved_ || !(solved_->answers == answers))
            solved_ = std::make_unique<Solved>(text_, answers);
        return *solved_;
    }

    std::string_view text_;
    mutable std::unique_ptr<Solved> solved_;
};

}  // namespace

std::unique_ptr<IStatementReader> ReadCsv(std::string_view text)
{
    if (TrimSpaces(text).empty())
        throw UnknownFormat("The file is empty.");
    return std::make_unique<CsvReader>(text);
}

}  // namespace clb
