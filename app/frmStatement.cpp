#include "app/frmStatement.h"

#include <algorithm>

#include "base/Text.h"

namespace clb {
namespace {

/// Rows that the dialog shows.
constexpr std::size_t kRowsShown = 12;

std::string CaptionOf(StatementQuestion question)
{
    switch (question) {
        case StatementQuestion::DateOrder: return "Dates are written:";
        case StatementQuestion::Decimal: return "Amounts are written:";
        case StatementQuestion::Sign: return "A positive amount:";
        case StatementQuestion::Columns: return "The amount is in the column:";
        case StatementQuestion::Truncated: return "The end of the file is missing. Import:";
    }
    return {};
}

/// An option in the user's words.
std::string WordsOf(StatementQuestion question, const std::string& option)
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

void Apply(StatementQuestion question, const std::string& option, StatementAnswers& answers)
{
    switch (question) {
        case StatementQuestion::DateOrder:
            answers.dateOrder = option == "dmy"   ? DateText::Order::DayMonthYear
                                : option == "mdy" ? DateText::Order::MonthDayYear
                                                  : DateText::Order::YearMonthDay;
            break;
        case StatementQuestion::Decimal: answers.decimal = option.front(); break;
        case StatementQuestion::Sign: answers.inverted = option == "inverted"; break;
        case StatementQuestion::Columns:
            answers.columns += (answers.columns.empty() ? "amount=" : ",amount=") + option;
            break;
        case StatementQuestion::Truncated: answers.takeWholeRows = option == "rows"; break;
    }
}

/// Keeps the first rows, and counts all.
class FirstRows : public IStatementSink {
public:
    void BeginAccount(const StatementAccount&) override {}
    void EndAccount(const StatementBalances&) override {}
    void Row(const StatementRow& row) override
    {
        if (++rows <= kRowsShown)
            lines.push_back({"",
                             {{std::to_string(row.line), row.date.ToIso(), row.amount.Grouped(),
                               row.name, row.text},
                              false}});
    }
    void LeftOut(const LeftOutPart& part) override { leftOut += part.count; }

    std::vector<RowList::Line> lines;
    std::size_t rows = 0;
    std::size_t leftOut = 0;
};

}  // namespace

frmStatement::frmStatement(const std::string& source, const IStatementReader& reader,
                           std::vector<OpenQuestion> questions, StatementAnswers given)
    : reader_(reader),
      given_(std::move(given)),
      form_("frmStatement", "Import Statement"),
      lblFile("lblFile", source + " does not say everything. How is it meant?"),
      lblRows("lblRows", "The first rows as they would be read:"),
      lstRows("lstRows", {"Line", "Date", "Amount", "Description", "Notes"}, {0, 2}),
      lblLeftOut("lblLeftOut", ""),
      btnOK("btnOK", "Import"),
      btnCancel("btnCancel", "Cancel")
{
    form_.Add(lblFile);
    for (OpenQuestion& question : questions)
        Ask(std::move(question));
    for (Control* control :
         std::initializer_list<Control*>{&lblRows, &lstRows, &lblLeftOut, &btnOK, &btnCancel})
        form_.Add(*control);
    form_.DefaultButton(btnOK);
    form_.CancelButton(btnCancel);
    btnOK.Click().connect([this] {
        accepted_ = true;
        form_.Hide();
    });
    btnCancel.Click().connect([this] { form_.Hide(); });
}

void frmStatement::Ask(OpenQuestion question)
{
    const std::string key = KeyOf(question.question);
    const std::string name = ToUpperAscii(key.substr(0, 1)) + key.substr(1);
    Asked asked{std::move(question),
                std::make_unique<Label>("lbl" + name, CaptionOf(question.question)),
                std::make_unique<ListBox>("cmb" + name)};
    for (const std::string& option : asked.question.options)
        asked.list->Add(WordsOf(asked.question.question, option));
    const auto& options = asked.question.options;
    const auto proposed = std::find(options.begin(), options.end(), asked.question.proposed);
    asked.list->Index(proposed == options.end()
                          ? (options.empty() ? -1 : 0)
                          : static_cast<std::int32_t>(proposed - options.begin()));
    asked.list->Click().connect([this] { ShowRows(); });
    form_.Add(*asked.label);
    form_.Add(*asked.list);
    asked_.push_back(std::move(asked));
}

StatementAnswers frmStatement::Answers() const
{
    StatementAnswers answers = given_;
    for (const Asked& asked : asked_)
        if (asked.list->Index() >= 0)
            Apply(asked.question.question,
                  asked.question.options[static_cast<std::size_t>(asked.list->Index())], answers);
    return answers;
}

void frmStatement::ShowRows()
{
    FirstRows first;
    std::string trouble;
    try {
        reader_.Read(Answers(), first);
    } catch (const NotAStatement& error) {
        trouble = error.what();
    }
    lstRows.Fill(std::move(first.lines));
    lblLeftOut.Caption(!trouble.empty() ? trouble
                                        : std::to_string(first.rows) + " rows can be read so, " +
                                              std::to_string(first.leftOut) + " are left out.");
    btnOK.Enabled(first.rows > 0);
}

std::optional<StatementAnswers> frmStatement::ShowDialog(IModalHost& host)
{
    accepted_ = false;
    ShowRows();
    form_.ShowModal(host);
    return accepted_ ? std::optional(Answers()) : std::nullopt;
}

}  // namespace clb
