#include "app/StatementWords.h"

#include <algorithm>

#include "base/Text.h"

namespace clb::statement_words {
namespace {

const char* SubjectOf(StatementQuestion question)
{
    switch (question) {
        case StatementQuestion::DateOrder: return "which number of its dates is the day";
        case StatementQuestion::Decimal: return "how its amounts are written";
        case StatementQuestion::Sign: return "which amounts come in and which go out";
        case StatementQuestion::Columns: return "which of its columns is what";
        case StatementQuestion::Truncated: return "what to do with its end, which is missing";
    }
    return "";
}

/// "a", "a, and b", "a, b, and c".
std::string Joined(const std::vector<std::string>& texts)
{
    std::string all;
    for (std::size_t i = 0; i < texts.size(); ++i)
        all += (i == 0 ? "" : i + 1 == texts.size() ? ", and " : ", ") + texts[i];
    return all;
}

}  // namespace

std::string CaptionOf(StatementQuestion question)
{
    switch (question) {
        case StatementQuestion::DateOrder: return "Dates are written:";
        case StatementQuestion::Decimal: return "Amounts are written:";
        case StatementQuestion::Sign: return "A positive amount:";
        case StatementQuestion::Columns: return "The amount is in the column:";
        case StatementQuestion::Truncated: return "Import:";
    }
    return {};
}

std::string OptionText(StatementQuestion question, const std::string& option)
{
    static const std::pair<const char*, const char*> words[] = {
        {"dmy", "day, month, year"},
        {"mdy", "month, day, year"},
        {"ymd", "year, month, day"},
        {".", "with a decimal point: 1,234.50"},
        {",", "with a decimal comma: 1.234,50"},
        {"normal", "comes in"},
        {"inverted", "goes out"},
        {"rows", "the whole rows before the break"},
        {"nothing", "nothing"}};
    if (question != StatementQuestion::Columns)
        for (const auto& [key, text] : words)
            if (option == key)
                return text;
    return option;
}

std::string Explain(const std::string& source, const std::vector<OpenQuestion>& questions)
{
    std::vector<std::string> subjects;
    std::vector<std::string> reasons;
    for (const OpenQuestion& open : questions) {
        subjects.emplace_back(SubjectOf(open.question));
        if (!open.why.empty() &&
            std::find(reasons.begin(), reasons.end(), open.why) == reasons.end())
            reasons.push_back(open.why);
    }
    std::string text = source + " leaves open " + Joined(subjects) + ".";
    for (const std::string& reason : reasons)
        text += " " + reason;
    return text;
}

std::string DayText(const Date& date)
{
    return std::to_string(date.Day()) + " " +
           std::string(kMonthNames[static_cast<std::size_t>(date.Month() - 1)].substr(0, 3)) + " " +
           std::to_string(date.Year());
}

std::string MonthsText(Month first, Month last)
{
    const auto name = [](Month month) {
        return std::string(kMonthNames[static_cast<std::size_t>(month.period - 1)]);
    };
    std::string end = name(last) + " " + std::to_string(last.year);
    if (first == last)
        return end;
    return name(first) + (first.year == last.year ? "" : " " + std::to_string(first.year)) +
           " to " + end;
}

std::string Shortened(const std::string& text, std::size_t characters)
{
    const std::string line = Replace(Replace(text, "\r", ""), "\n", " ");
    return Length(line) > characters ? Left(line, characters - 1) + "\u2026" : line;
}

std::string Counted(std::size_t number, const std::string& one)
{
    return std::to_string(number) + " " + one + (number == 1 ? "" : "s");
}

}  // namespace clb::statement_words
