#include "statements/messages/Mt940Reader.h"

#include <algorithm>
#include <array>

#include "statements/messages/AccountSwitch.h"
#include "statements/messages/LineCount.h"
#include "statements/messages/Mt940Messages.h"
#include "statements/messages/Mt940Text.h"
#include "statements/messages/RowText.h"

namespace clb {
namespace {

constexpr std::size_t kLooked = 65536;

/// References that only say in which field the reference is.
bool PointsElsewhere(const std::string& reference)
{
    static constexpr std::array<std::string_view, 8> kCodes = {"EREF", "KREF", "PREF",  "MREF",
                                                               "MARF", "CREF", "EREF+", "KREF+"};
    return std::find(kCodes.begin(), kCodes.end(), reference) != kCodes.end();
}

bool IsNumber(const std::string& text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

/// Details such as "/TRCD/00100/" as plain text.
std::string DetailsOf(const Mt940Line& line)
{
    return Squeezed(line.details);
}

void Describe(const Mt940Row& source, const Mt940Line& line, const Mt940Wrap& wrap,
              StatementRow& row)
{
    Mt940Description described = ReadMt940Text(source.texts, wrap);
    if (!source.ns.empty()) {
        const Mt940Description ns = ReadMt940Ns(source.ns);
        described.name = described.name.empty() ? ns.name : described.name;
        described.text += (described.text.empty() || ns.text.empty() ? "" : "; ") + ns.text;
    }
    RowText text;
    text.Add(described.text);
    const std::string details = DetailsOf(line);
    row.name = described.name;
    if (row.name.find(details) == std::string::npos)
        text.Add(details);
    if (line.reference.size() > 1 && !PointsElsewhere(line.reference))
        text.Add("Reference", line.reference);
    text.Add("Bank reference", line.bankReference);
    if (line.type == "NCHK" && IsNumber(line.reference))
        row.checkNumber = line.reference;
    row.text = text.Text();
    if (row.name.empty())
        row.name = FirstWords(!details.empty() ? details : row.text.substr(0, row.text.find("; ")));
    if (row.text == row.name)
        row.text.clear();
}

std::string FirstLine(std::string_view text)
{
    return FirstWords(Squeezed(text.substr(0, text.find_first_of("\r\n"))));
}

/// Brings the rows of a file to a sink, and its accounts without rows.
class Rows {
public:
    Rows(std::string_view text, const Mt940Facts& facts, IStatementSink& sink)
        : facts_(facts),
          sink_(sink),
          rows_(text, facts.TextsFirst()),
          lines_(text),
          accounts_(sink, [&facts](std::size_t account) { return facts.Balances(account); })
    {
    }
    void Read()
    {
        Mt940Row row;
        while (rows_.Next(row)) {
            To(row.message);
            Add(row);
        }
        if (facts_.Messages() > 0)
            To(facts_.Messages() - 1);
        accounts_.End();
    }

private:
    /// Goes through the messages up to this one.
    void To(std::size_t message)
    {
        for (; next_ <= message; ++next_) {
            const std::size_t account = facts_.AccountOf(next_);
            accounts_.To(account, facts_.Account(account));
        }
    }
    void Add(const Mt940Row& source)
    {
        const Mt940Line line = ReadMt940Line(source.line);
        const std::size_t place = lines_.At(source.begin);
        if (const auto reason = WhyNot(source, line)) {
            sink_.LeftOut({place, *reason, FirstLine(source.line)});
            return;
        }
        StatementRow row;
        row.line = place;
        row.date = *line.booked;
        row.valueDate = line.value;
        row.amount = *line.amount;
        facts_.Identify(source.message, line, row);
        Describe(source, line, facts_.Wrap(), row);
        sink_.Row(row);
    }
    [[nodiscard]] std::optional<LeftOutReason> WhyNot(const Mt940Row& source,
                                                      const Mt940Line& line) const
    {
        if (source.isLast && (facts_.IsBroken() || line.type.empty()))
            return LeftOutReason::Incomplete;
        if (line.expected)
            return LeftOutReason::Pending;
        if (!line.booked)
            return LeftOutReason::NoDate;
        return line.amount ? std::nullopt : std::optional(LeftOutReason::NoAmount);
    }

    const Mt940Facts& facts_;
    IStatementSink& sink_;
    Mt940Rows rows_;
    LineCount lines_;
    AccountSwitch accounts_;
    std::size_t next_ = 0;
};

class Mt940Reader : public IStatementReader {
public:
    explicit Mt940Reader(std::string_view text) : text_(text), facts_(text)
    {
        if (!facts_.HasStatement())
            throw NotAStatement("The file is not a statement: it has neither account nor balance.");
    }
    [[nodiscard]] std::string Kind() const override { return "mt940"; }
    [[nodiscard]] std::vector<OpenQuestion> Open(const StatementAnswers& answers) const override
    {
        if (!facts_.IsBroken() || answers.takeWholeRows)
            return {};
        return {{StatementQuestion::Truncated,
                 {"rows", "nothing"},
                 "rows",
                 "The last message of the file has no closing balance and no end mark, or its last "
                 "line is not whole."}};
    }
    void Read(const StatementAnswers&, IStatementSink& sink) const override
    {
        Rows(text_, facts_, sink).Read();
    }

private:
    std::string_view text_;
    Mt940Facts facts_;
};

}  // namespace

bool IsMt940(std::string_view text)
{
    Mt940Fields fields(text.substr(0, kLooked));
    Mt940Field field;
    bool hasAccount = false;
    bool hasMessage = false;
    while (fields.Next(field)) {
        hasAccount = hasAccount || field.tag.starts_with("25");
        hasMessage = hasMessage || field.tag == "20" || field.tag.starts_with("28") ||
                     field.tag.starts_with("60") || field.tag == "61" || field.tag == "34F";
        if (hasAccount && hasMessage)
            return true;
    }
    return false;
}

std::unique_ptr<IStatementReader> ReadMt940(std::string_view text)
{
    return std::make_unique<Mt940Reader>(text);
}

}  // namespace clb
