#include "app/ImportSummary.h"

#include <algorithm>

#include "app/StatementWords.h"
#include "intake/StatementJson.h"

namespace clb {
namespace {

using statement_words::Counted;

/// More accounts than these are added up.
constexpr std::size_t kAccountsNamed = 3;
constexpr std::size_t kTextShown = 400;

struct Total {
    std::string name;
    std::int64_t added = 0;
    std::int64_t known = 0;
};

bool IsImported(const ImportedStatement& statement)
{
    return statement.refused.empty() && statement.asked.empty();
}

/// The user has seen the question or the dialog for the account, and has closed it.
bool IsCancelled(const ImportedStatement& statement)
{
    return !statement.asked.empty() || statement.refused == kAccountMissing;
}

bool HasPart(const ImportedStatement& statement)
{
    return !IsImported(statement) || !statement.leftOut.empty() || !statement.notes.empty();
}

std::size_t CountLeftOut(const ImportedStatement& statement)
{
    std::size_t count = 0;
    for (const LeftOutPart& part : statement.leftOut)
        count += part.count;
    return count;
}

std::string TextOf(const Total& total)
{
    std::string text = std::to_string(total.added) + " added";
    if (total.known > 0)
        text += ", " + std::to_string(total.known) + " known";
    return text;
}

/// One line for each account of the book, in the order in which they came.
std::vector<Total> TotalsOf(const std::vector<ImportedStatement>& statements)
{
    std::vector<Total> totals;
    for (const ImportedStatement& statement : statements)
        for (const ImportedAccount& account : statement.accounts) {
            auto place = std::find_if(totals.begin(), totals.end(), [&account](const Total& one) {
                return one.name == account.name;
            });
            if (place == totals.end())
                place = totals.insert(totals.end(), {account.name});
            place->added += account.added;
            place->known += account.known;
        }
    return totals;
}

std::string TextOf(const std::vector<Total>& totals)
{
    std::string text;
    Total all{std::to_string(totals.size()) + " accounts"};
    for (const Total& total : totals) {
        text += (text.empty() ? "" : "; ") + total.name + ": " + TextOf(total);
        all.added += total.added;
        all.known += total.known;
    }
    return totals.empty()                   ? TextOf(all)
           : totals.size() > kAccountsNamed ? all.name + ": " + TextOf(all)
                                            : text;
}

bool HasWrongBalances(const ImportedStatement& statement)
{
    return std::any_of(statement.accounts.begin(), statement.accounts.end(),
                       [](const ImportedAccount& account) { return account.balanced == false; });
}

std::string HeadingOf(const ImportedStatement& statement)
{
    return statement.source +
           (IsImported(statement) ? "  \u2013  " + TextOf(TotalsOf({statement})) : "");
}

RowList::Line LineOf(std::string line, std::string reason, const std::string& text)
{
    return {"",
            {{std::move(line), std::move(reason), statement_words::Shortened(text, kTextShown)},
             false}};
}

void AddLines(const ImportedStatement& statement, std::vector<RowList::Line>& lines)
{
    lines.push_back({HeadingOf(statement)});
    if (IsCancelled(statement))
        lines.push_back(LineOf("", "not imported", "The import of this file was cancelled."));
    else if (!statement.refused.empty())
        lines.push_back(LineOf("", "refused", statement.refused));
    for (const std::string& note : statement.notes)
        lines.push_back(LineOf("", "note", note));
    for (const LeftOutPart& part : statement.leftOut)
        lines.push_back(
            LineOf(part.line == 0 ? "" : std::to_string(part.line),
                   ToText(part.reason) +
                       (part.count > 1 ? " (" + std::to_string(part.count) + ")" : std::string()),
                   part.text));
}

}  // namespace

void ImportSummary::Add(ImportedStatement statement)
{
    statements_.push_back(std::move(statement));
}

bool ImportSummary::AnyImported() const
{
    return std::any_of(statements_.begin(), statements_.end(), IsImported);
}

bool ImportSummary::HasDetails() const
{
    return std::any_of(statements_.begin(), statements_.end(), HasPart);
}

std::string ImportSummary::Sentence() const
{
    std::size_t leftOut = 0;
    std::size_t missing = 0;
    bool wrong = false;
    for (const ImportedStatement& statement : statements_) {
        leftOut += CountLeftOut(statement);
        missing += IsImported(statement) ? 0U : 1U;
        wrong = wrong || HasWrongBalances(statement);
    }
    std::string text = statements_.size() > 1 ? Counted(statements_.size(), "file") + ": " : "";
    text += TextOf(TotalsOf(statements_));
    if (leftOut > 0)
        text += "; " + std::to_string(leftOut) + " left out";
    if (missing > 0)
        text += "; " + Counted(missing, "file") + " not imported";
    return text + (wrong ? "; balances do not fit the rows" : "");
}

std::string ImportSummary::Refusals() const
{
    std::string text;
    for (const ImportedStatement& statement : statements_)
        if (!statement.refused.empty() && !IsCancelled(statement))
            text += (text.empty() ? "" : "\n\n") + statement.source + "\n" + statement.refused;
    return text;
}

std::vector<RowList::Line> ImportSummary::Details() const
{
    std::vector<RowList::Line> lines;
    for (const ImportedStatement& statement : statements_)
        if (HasPart(statement))
            AddLines(statement, lines);
    return lines;
}

std::vector<std::string> ImportSummary::DetailColumns()
{
    return {"Line", "Reason", "Text"};
}

}  // namespace clb
