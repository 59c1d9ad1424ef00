#include "app/frmStatement.h"

#include <algorithm>

#include "app/StatementSample.h"
#include "app/StatementWords.h"
#include "base/Text.h"
#include "controls/ControlVisitor.h"
#include "statements/form/FileDates.h"

namespace clb {
namespace {

using Question = StatementQuestion;

void Apply(Question question, const std::string& option, StatementAnswers& answers)
{
    switch (question) {
        case Question::DateOrder:
            answers.dateOrder = option == "dmy"   ? DateText::Order::DayMonthYear
                                : option == "mdy" ? DateText::Order::MonthDayYear
                                                  : DateText::Order::YearMonthDay;
            break;
        case Question::Decimal: answers.decimal = option.front(); break;
        case Question::Sign: answers.inverted = option == "inverted"; break;
        case Question::Columns: break;
        case Question::Truncated: answers.takeWholeRows = option == "rows"; break;
    }
}

std::string KeyOfSign(bool inverted)
{
    return inverted ? "inverted" : "normal";
}

}  // namespace

frmStatement::frmStatement(const std::string& source, const IStatementReader& reader,
                           std::vector<OpenQuestion> questions, StatementAnswers given,
                           std::optional<StatementAnswers> remembered)
    : reader_(reader),
      questions_(std::move(questions)),
      given_(std::move(given)),
      remembered_(std::move(remembered)),
      form_("frmStatement", "Import " + source),
      lblFile("lblFile", statement_words::Explain(source, questions_)),
      lblRows("lblRows", "The first rows as they would be read:"),
      lstRows("lstRows", StatementSample::Columns(), StatementSample::RightColumns()),
      lblLeftOut("lblLeftOut", ""),
      btnOK("btnOK", "Import"),
      btnCancel("btnCancel", "Cancel")
{
    Build();
    btnOK.Click().connect([this] {
        accepted_ = true;
        form_.Hide();
    });
    btnCancel.Click().connect([this] { form_.Hide(); });
}

void frmStatement::Build()
{
    form_.Add(lblFile);
    if (Find(Question::Columns))
        AskColumns();
    for (const Question question :
         {Question::DateOrder, Question::Decimal, Question::Sign, Question::Truncated})
        if (Find(question) || (columns_ && question != Question::Truncated))
            Ask(question);
    OfferOpen();
    for (Control* control :
         std::initializer_list<Control*>{&lblRows, &lstRows, &lblLeftOut, &btnOK, &btnCancel})
        form_.Add(*control);
    form_.DefaultButton(btnOK);
    form_.CancelButton(btnCancel);
}

void frmStatement::AskColumns()
{
    const auto table = reader_.Table(given_);
    if (!table)
        return;
    inverted_ = table->inverted;
    columns_ = std::make_unique<ColumnLists>(*table);
    if (remembered_)
        columns_->Choose(remembered_->columns);
    columns_->AddTo(form_);
    columns_->Changed().connect([this] { ColumnsChanged(); });
}

void frmStatement::Ask(Question question)
{
    const std::string key = KeyOf(question);
    const std::string name = ToUpperAscii(key.substr(0, 1)) + key.substr(1);
    asked_.push_back({question,
                      std::make_unique<Label>("lbl" + name, statement_words::CaptionOf(question)),
                      std::make_unique<ListBox>("cmb" + name),
                      {}});
    form_.Add(*asked_.back().label);
    form_.Add(*asked_.back().list);
    asked_.back().list->Click().connect([this] {
        if (!filling_)
            ShowRows();
    });
}

const OpenQuestion* frmStatement::Find(Question question) const
{
    const auto found =
        std::find_if(questions_.begin(), questions_.end(),
                     [question](const OpenQuestion& open) { return open.question == question; });
    return found == questions_.end() ? nullptr : &*found;
}

std::string frmStatement::ChosenOf(const Asked& asked)
{
    const std::int32_t index = asked.list->Index();
    return index < 0 ? std::string() : asked.options.at(static_cast<std::size_t>(index));
}

std::string frmStatement::RememberedOption(Question question) const
{
    if (remembered_ && question == Question::DateOrder && remembered_->dateOrder)
        return KeyOf(*remembered_->dateOrder);
    if (remembered_ && question == Question::Decimal && remembered_->decimal)
        return {*remembered_->decimal};
    if (remembered_ && question == Question::Sign && remembered_->inverted)
        return KeyOfSign(*remembered_->inverted);
    return {};
}

/// Keeps what is chosen if it is still offered.
void frmStatement::Offer(Asked& asked, const OpenQuestion& question)
{
    const auto& options = question.options;
    const auto wanted = {ChosenOf(asked), RememberedOption(asked.question), question.proposed};
    std::int32_t index = options.empty() ? -1 : 0;
    for (const std::string& option : wanted)
        if (const auto place = std::find(options.begin(), options.end(), option);
            place != options.end()) {
            index = static_cast<std::int32_t>(place - options.begin());
            break;
        }
    asked.options = options;
    asked.list->Clear();
    for (const std::string& option : options)
        asked.list->Add(statement_words::OptionText(asked.question, option));
    asked.list->Enabled(!options.empty());
    asked.list->Index(index);
}

/// Columns that were chosen say nothing of the sign of their amounts.
void frmStatement::OfferSign(Asked& asked)
{
    OpenQuestion question{Question::Sign, {}, KeyOfSign(inverted_), {}};
    if (columns_->HasAmount())
        question.options = {"normal", "inverted"};
    Offer(asked, question);
}

void frmStatement::OfferOpen()
{
    filling_ = true;
    for (Asked& asked : asked_) {
        const OpenQuestion* const open = Find(asked.question);
        if (columns_ && asked.question == Question::Sign)
            OfferSign(asked);
        else
            Offer(asked, open ? *open : OpenQuestion{asked.question, {}, {}, {}});
    }
    filling_ = false;
}

void frmStatement::ColumnsChanged()
{
    try {
        questions_ =
            columns_->Complete() ? reader_.Open(WithColumns()) : std::vector<OpenQuestion>();
    } catch (const NotAStatement&) {
        questions_.clear();
    }
    OfferOpen();
    ShowRows();
}

StatementAnswers frmStatement::WithColumns() const
{
    StatementAnswers answers = given_;
    if (columns_)
        answers.columns = columns_->Columns();
    return answers;
}

StatementAnswers frmStatement::Answers() const
{
    StatementAnswers answers = WithColumns();
    for (const Asked& asked : asked_)
        if (asked.list->Index() >= 0)
            Apply(asked.question, ChosenOf(asked), answers);
    return answers;
}

bool frmStatement::TakesNothing() const
{
    return std::any_of(asked_.begin(), asked_.end(), [](const Asked& asked) {
        return asked.question == Question::Truncated && ChosenOf(asked) == "nothing";
    });
}

void frmStatement::ShowRows()
{
    StatementSample sample;
    std::string trouble;
    if (TakesNothing())
        trouble = "Nothing of the file is imported.";
    else if (columns_ && !columns_->Complete())
        trouble = "Please choose the columns of the date and of the amount.";
    else
        try {
            reader_.Read(Answers(), sample);
        } catch (const NotAStatement& error) {
            trouble = error.what();
        }
    const std::size_t rows = sample.Rows();
    lblLeftOut.Caption(trouble.empty() ? sample.Sentence() : trouble);
    lstRows.Fill(sample.TakeLines());
    btnOK.Enabled(rows > 0 || TakesNothing());
}

std::optional<StatementAnswers> frmStatement::ShowDialog(IModalHost& host)
{
    accepted_ = false;
    if (columns_)
        ColumnsChanged();
    else
        ShowRows();
    for (Control* control : form_.Controls())
        if (control->Enabled() && As<ListBox>(control)) {
            form_.Focus(*control);
            break;
        }
    form_.ShowModal(host);
    return accepted_ && !TakesNothing() ? std::optional(Answers()) : std::nullopt;
}

}  // namespace clb
