#include "statements/qif/QifReader.h"

#include "statements/form/TextScan.h"
#include "statements/qif/QifLines.h"
#include "statements/qif/QifRows.h"
#include "statements/qif/QifSurvey.h"
#include "statements/qif/QifTypes.h"
#include "statements/qif/QifWalk.h"

namespace clb {
namespace {

/// Lines that are looked at for a header.
constexpr std::size_t kSearchedLines = 200;

class QifReader : public IStatementReader {
public:
    explicit QifReader(std::string_view text) : text_(text) { QifWalk(text, survey_).Run(); }

    [[nodiscard]] std::string Kind() const override { return "qif"; }

    [[nodiscard]] std::vector<OpenQuestion> Open(const StatementAnswers& answers) const override
    {
        std::vector<OpenQuestion> questions;
        if (auto order = survey_.Dates().Open(answers.dateOrder, survey_.Preferred()))
            questions.push_back(std::move(*order));
        if (auto mark = survey_.Amounts().Open(answers.decimal))
            questions.push_back(std::move(*mark));
        if (survey_.BreaksOff() && !answers.takeWholeRows)
            questions.push_back({StatementQuestion::Truncated,
                                 {"rows", "nothing"},
                                 "rows",
                                 "The file ends inside a transaction, so more may be missing."});
        return questions;
    }

    void Read(const StatementAnswers& answers, IStatementSink& sink) const override
    {
        QifRows rows(survey_, answers, sink);
        QifWalk(text_, rows).Run();
        rows.Finish();
    }

    [[nodiscard]] std::string Shape() const override { return "qif " + survey_.Dates().Pattern(); }

private:
    std::string_view text_;
    QifSurvey survey_;
};

/// What the lines up to the first '^' show.
struct FirstRecord {
    bool date = false;
    bool amount = false;
    bool ended = false;
    bool other = false;  ///< a line that QIF does not have
};

void Look(std::string_view line, FirstRecord& record)
{
    const std::string_view value = line.substr(1);
    const bool digit = value.find_first_of("0123456789") != std::string_view::npos;
    switch (line.front()) {
        case '^': record.ended = value.empty(); break;
        case 'D': record.date = record.date || digit; break;
        case 'T':
        case 'U': record.amount = record.amount || digit; break;
        default:
            if (std::string_view("ACEFLMNPSX$%").find(line.front()) == std::string_view::npos)
                record.other = true;
    }
}

}  // namespace

bool IsQifText(std::string_view text)
{
    QifLines lines(text);
    std::string_view line;
    FirstRecord record;
    while (lines.Number() < kSearchedLines && lines.Next(line)) {
        line = TrimSpaces(line);
        if (line.empty())
            continue;
        if (line.front() == '!' && ReadQifHeader(line).kind != QifHeader::Kind::Other)
            return true;
        if (!record.ended)
            Look(line, record);
    }
    return record.ended && record.date && record.amount && !record.other;
}

std::unique_ptr<IStatementReader> ReadQif(std::string_view text)
{
    return std::make_unique<QifReader>(text);
}

}  // namespace clb
