#include "statements/qif/QifRows.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "statements/qif/QifPieces.h"

namespace clb {
namespace {

constexpr std::size_t kShownLength = 100;

bool IsZeros(std::string_view text)
{
    return text.find_first_not_of('0') == std::string_view::npos;
}

/// Sets the row's name and text.
void Describe(const QifRecord& record, StatementRow& row)
{
    row.name = record.payee;
    row.text = record.memo;
    if (row.name.empty())
        row.name.swap(row.text);
    if (row.name.empty())
        row.name = record.address;
}

/// The category of a record whose pieces have their own.
bool IsSplitMark(std::string_view category)
{
    return category.starts_with("--");
}

}  // namespace

QifRows::QifRows(const QifSurvey& survey, const StatementAnswers& answers, IStatementSink& sink)
    : survey_(survey),
      answers_(answers),
      sink_(sink),
      order_(survey.Dates().Settled(answers.dateOrder, survey.Preferred()))
{
}

void QifRows::BeginList(const QifList& list)
{
    EndList();
    StatementAccount account;
    account.name = survey_.Accounts().at(lists_++);
    account.type = list.type;
    investment_ = list.investment;
    // Trades are all left out, so they have no account.
    inAccount_ = !investment_;
    if (inAccount_)
        sink_.BeginAccount(account);
}

void QifRows::EndList()
{
    for (const auto& [action, trades] : trades_)
        sink_.LeftOut({trades.line, LeftOutReason::Investment, action, trades.count});
    trades_.clear();
    if (inAccount_)
        sink_.EndAccount({});
    inAccount_ = false;
}

void QifRows::Record(const QifRecord& record)
{
    if (!survey_.IsWhole(record))
        LeaveOut(record, LeftOutReason::Incomplete);
    else if (investment_)
        Trade(record);
    else
        Transaction(record);
}

void QifRows::Trade(const QifRecord& record)
{
    Trades& trades = trades_[Left(record.number, kShownLength)];
    if (trades.count++ == 0)
        trades.line = record.line;
}

void QifRows::Transaction(const QifRecord& record)
{
    const auto date = record.dates > 1 ? std::nullopt : ReadDate(record.date, order_);
    if (!date)
        return LeaveOut(record, LeftOutReason::NoDate);
    const auto amount = AmountOf(record);
    if (!amount)
        return LeaveOut(record, LeftOutReason::NoAmount);
    StatementRow row;
    row.line = record.line;
    row.date = *date;
    row.amount = *amount;
    Describe(record, row);
    // An opening balance names its own account, which is neither a category nor a transfer.
    if (!IsSplitMark(record.category) && NamedByOpening(record).empty())
        row.category = record.category;
    if (!IsZeros(record.number))
        row.checkNumber = record.number;
    const bool split = SetPieces(record.pieces, survey_.Amounts(), answers_.decimal, row);
    sink_.Row(row);
    if (!split)
        LeaveOutPieces(record);
}

/// The row is there as a whole.
void QifRows::LeaveOutPieces(const QifRecord& record)
{
    std::string text = "pieces without an exact amount:";
    for (const QifPiece& piece : record.pieces) {
        const std::string amount =
            piece.amount.empty() && !piece.percent.empty() ? piece.percent + "%" : piece.amount;
        text += " " + piece.category + (amount.empty() ? "" : " " + amount) + ";";
    }
    text.pop_back();
    sink_.LeftOut({record.line, LeftOutReason::NotARow, Left(text, kShownLength)});
}

std::optional<Money> QifRows::Read(const std::string& amount) const
{
    return survey_.Amounts().Read(amount, answers_.decimal);
}

/// The amount is written once or twice. If it is missing, the pieces sum to it.
std::optional<Money> QifRows::AmountOf(const QifRecord& record) const
{
    if (record.amounts > 1)
        return std::nullopt;
    if (!record.HasAmount())
        return SumOf(record.pieces);
    const auto amount = Read(record.amount.empty() ? record.otherAmount : record.amount);
    const bool twice = !record.amount.empty() && !record.otherAmount.empty();
    return twice && Read(record.otherAmount) != amount ? std::nullopt : amount;
}

std::optional<Money> QifRows::SumOf(const std::vector<QifPiece>& pieces) const
{
    if (pieces.empty())
        return std::nullopt;
    try {
        Money sum;
        for (const QifPiece& piece : pieces) {
            const auto amount = Read(piece.amount);
            if (!amount)
                return std::nullopt;
            sum += *amount;
        }
        return sum;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

void QifRows::LeaveOut(const QifRecord& record, LeftOutReason reason)
{
    std::string text;
    for (const std::string* const part :
         {&record.date, &record.amount, &record.payee, &record.memo, &record.category}) {
        if (part->empty())
            continue;
        text += text.empty() ? "" : " ";
        text += *part;
    }
    sink_.LeftOut({record.line, reason, Left(text, kShownLength)});
}

}  // namespace clb
