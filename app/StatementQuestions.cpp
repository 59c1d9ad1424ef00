#include "app/StatementQuestions.h"

#include "app/frmController.h"
#include "app/frmStatement.h"
#include "intake/StatementSurvey.h"

namespace clb {
namespace {

/// Of one file. Each time answers what was open, so more are never needed.
constexpr int kMostTimes = 4;

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

void StatementQuestions::Choosing(const StatementAccount& account, std::size_t place,
                                  const AccountCheck& check)
{
    unnamed_ = unnamed_ || (place == 0 && StatementSurvey::KeyOf(account).first.empty());
    window_.ProposeAccount({.question = QuestionFor(account),
                            .description = account.name,
                            .type = account.type,
                            .existing = ExistingFor(account, place),
                            .refuses = check});
}

std::string StatementQuestions::QuestionFor(const StatementAccount& account) const
{
    const char* const end = ". What would you like to do?";
    if (StatementSurvey::KeyOf(account).first.empty())
        return source_ + " does not say which account it is for" + end;
    const bool numbered = !account.number.empty();
    std::string more = numbered ? account.name : "";
    if (!account.currency.empty())
        more += (more.empty() ? "" : ", ") + account.currency;
    return source_ + " is for the account " + (numbered ? account.number : account.name) +
           (more.empty() ? "" : " (" + more + ")") + ", which is not known yet" + end;
}

/// The account that the dialog proposes to map to.
std::string StatementQuestions::ExistingFor(const StatementAccount& account, std::size_t place)
{
    clsDatabase& data = window_.Data();
    if (std::string same = DescriptionOf(data, "Description", account.name); !same.empty())
        return same;
    if (!StatementSurvey::KeyOf(account).first.empty())
        return {};
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
