#include "app/StatementQuestions.h"

#include <algorithm>

#include "app/StatementWords.h"
#include "app/frmController.h"
#include "app/frmStatement.h"
#include "intake/StatementSurvey.h"

namespace clb {
namespace {

/// Of one file. Each time answers what was open, so more are never needed.
constexpr int kMostTimes = 4;
/// Numbers that agree in so many last digits are most likely of one account.
constexpr std::size_t kAlikeDigits = 4;

/// The number of the first account that the file names; empty if it names none.
std::string AccountIn(const IStatementReader& reader, const StatementAnswers& answers)
{
    StatementSurvey survey;
    try {
        reader.Read(answers, survey);
    } catch (const NotAStatement&) {
        return {};
    }
    return survey.Accounts().empty()
               ? std::string()
               : StatementSurvey::KeyOf(survey.Accounts().front().account).first;
}

/// Description of the account with this field value; empty if there is none.
std::string DescriptionOf(clsDatabase& database, const char* field, const std::string& value)
{
    Recordset found;
    database.Fill(found,
                  std::string("SELECT Description FROM Account WHERE ") + field + " = '" +
                      clsDatabase::ToSqlString(value) + "'",
                  true);
    return value.empty() || found.Empty() ? std::string() : ToText(found.Get(0));
}

Month MonthOf(const Date& day)
{
    return {day.Year(), day.Month()};
}

std::string DigitsOf(std::string_view text)
{
    std::string digits;
    for (const char c : text)
        if (c >= '0' && c <= '9')
            digits += c;
    return digits;
}

/// Description of the only account whose number has the same last digits: a bank's files write an
/// account as an IBAN, with its bank's code, or by its last digits. Empty if there is none.
std::string OfSimilarNumber(clsDatabase& database, const std::string& number)
{
    const std::string wanted = DigitsOf(number);
    Recordset accounts;
    database.Fill(accounts, "SELECT AccountID, Description FROM Account", true);
    std::vector<std::string> similar;
    for (; !accounts.AtEnd(); accounts.MoveNext()) {
        const std::string digits = DigitsOf(ToText(accounts.Get(0)));
        if (std::min(digits.size(), wanted.size()) >= kAlikeDigits &&
            (digits.ends_with(wanted) || wanted.ends_with(digits)))
            similar.push_back(ToText(accounts.Get(1)));
    }
    return similar.size() == 1 ? similar.front() : std::string();
}

}  // namespace

StatementQuestions::StatementQuestions(frmController& window)
    : window_(window), memory_(window.Data())
{
}

void StatementQuestions::Begin(const std::string& source, const IStatementReader& reader)
{
    source_ = source;
    shape_ = reader.Shape();
    asked_ = false;
    unnamed_ = false;
}

/// An answer may bring up a question that was settled before; it is asked in turn.
std::optional<StatementAnswers> StatementQuestions::Ask(const std::string& source,
                                                        const IStatementReader& reader,
                                                        const std::vector<OpenQuestion>& questions,
                                                        const StatementAnswers& given)
{
    const std::optional<StatementAnswers> remembered = RememberedFor(reader, given);
    const Ports& ports = window_.GivenPorts();
    ports.pointer.Pointer(pointer::Default);
    std::optional<StatementAnswers> answers = given;
    std::vector<OpenQuestion> open = questions;
    for (int times = 0; answers && !open.empty() && times < kMostTimes; ++times) {
        answers = frmStatement(source, reader, open, *answers, remembered).ShowDialog(ports.modal);
        if (answers)
            open = reader.Open(*answers);
    }
    ports.pointer.Pointer(pointer::Hourglass);
    asked_ = answers.has_value();
    return answers;
}

std::optional<StatementAnswers> StatementQuestions::RememberedFor(const IStatementReader& reader,
                                                                  const StatementAnswers& given)
{
    auto found = memory_.Find(shape_, {});
    if (found)
        found = memory_.Find(shape_, AccountIn(reader, given));
    return found ? std::optional(found->answers) : std::nullopt;
}

void StatementQuestions::Choosing(const SurveyedAccount& account, std::size_t place,
                                  const AccountCheck& check)
{
    const StatementAccount& named = account.account;
    unnamed_ = unnamed_ || (place == 0 && StatementSurvey::KeyOf(named).first.empty());
    window_.ProposeAccount({.question = QuestionFor(account),
                            .description = named.name,
                            .type = named.type,
                            .existing = ExistingFor(named, place),
                            .refuses = check});
}

/// Names the file, what it holds and the account.
std::string StatementQuestions::QuestionFor(const SurveyedAccount& account) const
{
    const StatementAccount& named = account.account;
    const std::string what =
        source_ + " holds " +
        statement_words::Counted(static_cast<std::size_t>(account.rows), "transaction") +
        (account.first
             ? " of " + statement_words::MonthsText(MonthOf(*account.first), MonthOf(*account.last))
             : "");
    const char* const end = ". What would you like to do?";
    if (StatementSurvey::KeyOf(named).first.empty())
        return what + ", but does not say for which account" + end;
    const bool numbered = !named.number.empty();
    std::string more = numbered ? named.name : "";
    if (!named.currency.empty())
        more += (more.empty() ? "" : ", ") + named.currency;
    return what + " for the account " + (numbered ? named.number : named.name) +
           (more.empty() ? "" : " (" + more + ")") + ", which is not known yet" + end;
}

/// The account that the dialog proposes to map to.
std::string StatementQuestions::ExistingFor(const StatementAccount& account, std::size_t place)
{
    clsDatabase& data = window_.Data();
    if (std::string same = DescriptionOf(data, "Description", account.name); !same.empty())
        return same;
    if (!StatementSurvey::KeyOf(account).first.empty())
        return OfSimilarNumber(data, account.number);
    const auto remembered = memory_.Find(shape_, {});
    const clsView& view = window_.View();
    if (remembered && !remembered->accountID.empty())
        return DescriptionOf(data, "AccountID", remembered->accountID);
    // A person who looks at a register most likely imports into it.
    const bool proposesShown =
        window_.GivenPorts().importsEveryKind && view.Definition().transactions && place == 0;
    return proposesShown ? DescriptionOf(data, "AccountID", view.AccountID()) : std::string();
}

/// A file that was read without a question changes nothing of what was answered before.
void StatementQuestions::Stored(const ImportedStatement& statement, const StatementAnswers& answers)
{
    if (!asked_ && !unnamed_)
        return;
    for (const ImportedAccount& account : statement.accounts) {
        const auto before = memory_.Find(shape_, account.accountID);
        const bool same = before && before->accountID == account.accountID;
        memory_.Keep(shape_, account.accountID, asked_ || !same ? answers : before->answers);
    }
}

}  // namespace clb
