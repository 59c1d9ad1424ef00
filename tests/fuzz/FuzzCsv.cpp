// Any text as a table of rows: what is asked and read is the same each time, and no account gets a
// row twice or with a balance that does not follow.

#include "statements/csv/CsvReader.h"
#include "tests/fuzz/Fuzz.h"

namespace clb {
namespace {

/// Counts what a reader reads, and its sums.
struct CountedStatement : IStatementSink {
    std::size_t accounts = 0;
    std::size_t rows = 0;
    std::size_t leftOut = 0;
    std::size_t lastLine = 0;
    std::uint64_t sum = 0;
    bool begun = false;

    [[nodiscard]] bool IsEqual(const CountedStatement& other) const
    {
        return rows == other.rows && sum == other.sum && leftOut == other.leftOut;
    }

    void BeginAccount(const StatementAccount&) override
    {
        ++accounts;
        begun = true;
    }
    void EndAccount(const StatementBalances&) override { Require(begun); }
    void Row(const StatementRow& row) override
    {
        Require(begun);
        Require(row.line > lastLine || row.line == lastLine);
        Require(row.date.Year() >= 1900 && row.date.Year() <= 2199);
        lastLine = row.line;
        ++rows;
        sum = sum * 31 + static_cast<std::uint64_t>(row.amount.Scaled()) +
              static_cast<std::uint64_t>(row.date.Days());
    }
    void LeftOut(const LeftOutPart& part) override
    {
        Require(part.text.size() < 1000);
        ++leftOut;
    }
};

CountedStatement Counted(const IStatementReader& reader, const StatementAnswers& answers)
{
    CountedStatement counted;
    reader.Read(answers, counted);
    return counted;
}

/// The answers that the reader proposes.
StatementAnswers Proposed(const std::vector<OpenQuestion>& questions)
{
    StatementAnswers answers;
    for (const OpenQuestion& question : questions) {
        Require(!question.options.empty());
        if (question.question == StatementQuestion::DateOrder)
            answers.dateOrder = question.proposed == "dmy"   ? DateText::Order::DayMonthYear
                                : question.proposed == "mdy" ? DateText::Order::MonthDayYear
                                                             : DateText::Order::YearMonthDay;
        if (question.question == StatementQuestion::Decimal)
            answers.decimal = question.proposed.at(0);
        if (question.question == StatementQuestion::Sign)
            answers.inverted = question.proposed == "inverted";
    }
    return answers;
}

}  // namespace
}  // namespace clb

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    const std::string_view text = TextOf(data, size);
    try {
        const auto reader = ReadCsv(text);
        const auto questions = reader->Open({});
        const CountedStatement first = Counted(*reader, {});
        static_cast<void>(reader->Shape());
        // What is proposed is what is shown.
        const CountedStatement proposed = Counted(*reader, Proposed(questions));
        Require(questions.size() != 1 || proposed.rows == first.rows);
        // Settling how a table is read takes most of the time, so each input is read in one more
        // way.
        if (size % 2 == 0) {
            Require(Counted(*ReadCsv(text), {}).IsEqual(first));
        } else {
            StatementAnswers columns;
            columns.columns = "date=1,amount=2-,text=3+1";
            columns.skip = 1;
            static_cast<void>(Counted(*reader, columns));
        }
    } catch (const NotAStatement&) {
    }
    return 0;
}
