#include "statements/ofx/OfxReader.h"

#include "base/Text.h"
#include "statements/ofx/OfxRows.h"
#include "statements/ofx/OfxScanner.h"
#include "statements/ofx/OfxSurvey.h"
#include "statements/ofx/OfxText.h"
#include "statements/ofx/OfxWalk.h"

namespace clb {
namespace {

/// A file whose first tag comes later is something else.
constexpr std::size_t kSearched = 65536;

class OfxReader : public IStatementReader {
public:
    explicit OfxReader(std::string_view text) : text_(text)
    {
        OfxWalk walk(text, survey_);
        walk.Run();
        survey_.Finish();
        breaksOff_ = walk.BreaksOff();
        if (survey_.Statements().empty())
            throw NotAStatement(survey_.WhyNoStatement(breaksOff_));
    }

    [[nodiscard]] std::string Kind() const override { return "ofx"; }

    [[nodiscard]] std::vector<OpenQuestion> Open(const StatementAnswers& answers) const override
    {
        std::vector<OpenQuestion> questions;
        if (auto order = survey_.Dates().Open(answers.dateOrder, kOfxPreferredOrder))
            questions.push_back(std::move(*order));
        if (auto mark = survey_.Amounts().Open(answers.decimal))
            questions.push_back(std::move(*mark));
        if (breaksOff_ && !answers.takeWholeRows)
            questions.push_back(
                {StatementQuestion::Truncated,
                 {"rows", "nothing"},
                 "rows",
                 "The file ends before its statement does, so rows may be missing."});
        return questions;
    }

    void Read(const StatementAnswers& answers, IStatementSink& sink) const override
    {
        OfxRows rows(text_, survey_, answers, sink);
        OfxWalk(text_, rows).Run();
    }

    /// Banks differ in what they leave open, and their files name them.
    [[nodiscard]] std::string Shape() const override
    {
        return "ofx " + survey_.Accounts().front().bank + " " + survey_.Dates().Pattern();
    }

private:
    std::string_view text_;
    OfxSurvey survey_;
    bool breaksOff_ = false;
};

/// Whether a file, or a piece of one, can begin with the tag.
bool CanBegin(const OfxToken& token)
{
    switch (token.tag) {
        case OfxTag::Root:
        case OfxTag::SignOn:
        case OfxTag::TransactionList:
        case OfxTag::Row: return true;
        case OfxTag::Unknown: return ToUpperAscii(token.name).find("MSGSR") != std::string::npos;
        default: return IsStatement(token.tag);
    }
}

}  // namespace

bool IsOfx(std::string_view text)
{
    text = text.substr(0, kSearched);
    const std::string_view start = TrimBlanks(text);
    if (EqualsIgnoringCase(start.substr(0, 9), "OFXHEADER") ||
        EqualsIgnoringCase(start.substr(0, 5), "<?OFX"))
        return true;
    OfxScanner scanner(text);
    OfxToken first;
    return scanner.Next(first) && first.kind == OfxToken::Kind::Open && CanBegin(first);
}

std::unique_ptr<IStatementReader> ReadOfx(std::string_view text)
{
    return std::make_unique<OfxReader>(text);
}

}  // namespace clb
