#include "app/StatementSample.h"

#include "app/StatementWords.h"
#include "intake/OfxText.h"

namespace clb {
namespace {

using statement_words::Counted;

constexpr std::size_t kRowsShown = 14;
constexpr std::size_t kLeftOutShown = 4;
constexpr std::size_t kTextShown = 200;

}  // namespace

std::vector<std::string> StatementSample::Columns()
{
    return {"Line", "Date", "Amount", "Description", "Notes"};
}

std::vector<std::size_t> StatementSample::RightColumns()
{
    return {0, 1, 2};
}

void StatementSample::Row(const StatementRow& row)
{
    StatementSurvey::Row(row);
    if (++rows_ <= kRowsShown)
        lines_.push_back(
            {"",
             {{std::to_string(row.line), statement_words::DayText(row.date), row.amount.Grouped(),
               statement_words::Shortened(DescriptionOf(row), kTextShown),
               statement_words::Shortened(NotesOf(row), kTextShown)},
              false}});
}

void StatementSample::LeftOut(const LeftOutPart& part)
{
    leftOut_ += part.count;
    if (rows_ < kRowsShown && ++leftOutShown_ <= kLeftOutShown)
        lines_.push_back({"",
                          {{part.line == 0 ? "" : std::to_string(part.line), "", "",
                            std::string("left out: ") + ToText(part.reason),
                            statement_words::Shortened(part.text, kTextShown)},
                           true}});
}

std::string StatementSample::Sentence() const
{
    std::string text = Counted(rows_, "row") + " can be read this way";
    if (leftOut_ > 0)
        text += ", " + Counted(leftOut_, "line") + (leftOut_ == 1 ? " is" : " are") + " left out";
    std::size_t right = 0;
    std::size_t wrong = 0;
    for (const SurveyedAccount& account : Accounts()) {
        const std::optional<bool> balanced = Balanced(account);
        right += balanced == true ? 1U : 0U;
        wrong += balanced == false ? 1U : 0U;
    }
    return text + (wrong > 0   ? ". The balances do not fit the rows."
                   : right > 0 ? ". The balances fit the rows."
                               : ".");
}

}  // namespace clb
