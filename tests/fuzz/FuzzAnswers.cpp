// Any answers about any text: each answer settles its question, whatever is asked has an answer,
// and the same answers give the same rows.

#include <fuzzer/FuzzedDataProvider.h>

#include <string>
#include <vector>

#include "statements/kinds/StatementReaders.h"
#include "tests/fuzz/FuzzStatement.h"

namespace clb {
namespace {

/// Questions may follow from an answer, but not without end.
constexpr int kMostRounds = 8;

std::string ReadText(const IStatementReader& reader, const StatementAnswers& answers)
{
    CheckedStatement statement;
    reader.Read(answers, statement);
    return statement.Text();
}

/// A description of columns, mostly one that can be read.
std::string SomeColumns(FuzzedDataProvider& data)
{
    static constexpr const char* kFields[] = {
        "date", "valuedate", "amount", "amount-", "in",      "out",      "mark",   "name",
        "text", "category",  "check",  "id",      "balance", "currency", "account"};
    if (data.ConsumeIntegralInRange(0, 15) == 0)
        return data.ConsumeRandomLengthString(24);
    std::string columns;
    for (int count = data.ConsumeIntegralInRange(1, 4); count > 0; --count) {
        columns += columns.empty() ? "" : ",";
        columns += data.PickValueInArray(kFields);
        columns += '=' + std::to_string(data.ConsumeIntegralInRange(0, 9));
        if (data.ConsumeBool())
            columns += '+' + std::to_string(data.ConsumeIntegralInRange(1, 9));
    }
    return columns;
}

/// Answers given beforehand, some of them.
StatementAnswers SomeAnswers(FuzzedDataProvider& data)
{
    static constexpr DateText::Order kOrders[] = {DateText::Order::DayMonthYear,
                                                  DateText::Order::MonthDayYear,
                                                  DateText::Order::YearMonthDay};
    StatementAnswers answers;
    const auto given = data.ConsumeIntegral<std::uint8_t>();
    if ((given & 1U) != 0)
        answers.dateOrder = data.PickValueInArray(kOrders);
    if ((given & 2U) != 0)
        answers.decimal = data.PickValueInArray({'.', ','});
    if ((given & 4U) != 0)
        answers.inverted = data.ConsumeBool();
    if ((given & 8U) != 0)
        answers.skip = data.ConsumeIntegralInRange<std::size_t>(0, 12);
    if ((given & 16U) != 0)
        answers.delimiter = data.PickValueInArray({',', ';', '\t', '|', ' ', '"', 'x'});
    if ((given & 32U) != 0)
        answers.columns = SomeColumns(data);
    answers.takeWholeRows = (given & 64U) != 0;
    return answers;
}

/// Gives an option as the answer to a question, as the user does.
void Give(const OpenQuestion& question, const std::string& option, StatementAnswers& answers)
{
    switch (question.question) {
        case StatementQuestion::DateOrder:
            Require(option == "dmy" || option == "mdy" || option == "ymd");
            answers.dateOrder = option == "dmy"   ? DateText::Order::DayMonthYear
                                : option == "mdy" ? DateText::Order::MonthDayYear
                                                  : DateText::Order::YearMonthDay;
            break;
        case StatementQuestion::Decimal:
            Require(option == "." || option == ",");
            answers.decimal = option.front();
            break;
        case StatementQuestion::Sign:
            Require(option == "normal" || option == "inverted");
            answers.inverted = option == "inverted";
            break;
        case StatementQuestion::Columns:
            Require(!option.empty());
            answers.columns +=
                (answers.columns.empty() ? "" : ",") +
                std::string(question.why.find("dates") == std::string::npos ? "amount=" : "date=") +
                option;
            break;
        case StatementQuestion::Truncated:
            Require(option == "rows" || option == "nothing");
            answers.takeWholeRows = option == "rows";
            break;
    }
}

/// Answers everything that is asked, by options of the input's choice.
void AnswerAll(const IStatementReader& reader, StatementAnswers answers, FuzzedDataProvider& data)
{
    for (int round = 0;; ++round) {
        const std::vector<OpenQuestion> questions = reader.Open(answers);
        if (questions.empty())
            break;
        if (round == kMostRounds) {
            // Columns that hold neither dates nor amounts remain open; nothing else does.
            Require(std::any_of(questions.begin(), questions.end(), [](const OpenQuestion& open) {
                return open.question == StatementQuestion::Columns;
            }));
            return;
        }
        for (const OpenQuestion& question : questions) {
            Require(!question.options.empty() && !question.why.empty());
            Require(question.proposed.empty() ||
                    std::find(question.options.begin(), question.options.end(),
                              question.proposed) != question.options.end());
            const std::string option = question.options[data.ConsumeIntegralInRange<std::size_t>(
                0, question.options.size() - 1)];
            if (question.question == StatementQuestion::Truncated && option == "nothing")
                return;
            Give(question, option, answers);
        }
        ReadText(reader, answers);
    }
    Require(ReadText(reader, answers) == ReadText(reader, answers));
}

void Run(FuzzedDataProvider& data)
{
    const StatementAnswers given = SomeAnswers(data);
    const std::size_t kept = std::min<std::size_t>(data.remaining_bytes(), 8);
    const std::string text = data.ConsumeBytesAsString(data.remaining_bytes() - kept);
    const auto reader = OpenStatement(text);
    const std::string before = ReadText(*reader, given);
    AnswerAll(*reader, given, data);
    Require(ReadText(*reader, given) == before);
    Require(ReadText(*OpenStatement(text), given) == before);
}

}  // namespace
}  // namespace clb

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider provider(data, size);
    try {
        clb::Run(provider);
    } catch (const clb::NotAStatement&) {
        // The text holds no statement, or none under these answers.
    }
    return 0;
}
