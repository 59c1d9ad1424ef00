#include "statements/csv/AmountSigns.h"

#include "statements/form/AmountText.h"

namespace clb {
namespace {

/// Rows whose words say it before words invert all signs of a file.
constexpr std::size_t kSureWords = 3;

/// The amount with any decimal mark: only its sign matters.
std::optional<WrittenAmount> Written(std::string_view cell)
{
    const auto point = ReadWrittenAmount(cell, '.');
    return point ? point : ReadWrittenAmount(cell, ',');
}

Money Size(Money amount)
{
    return amount.IsNegative() ? -amount : amount;
}

bool IsMin(Money amount)
{
    return amount.Scaled() == INT64_MIN;
}

}  // namespace

bool AmountSigns::IsFilled(const CsvRecord& record) const
{
    const auto isFilled = [&record](const std::optional<std::size_t>& column) {
        const std::string_view cell = column ? record.Field(*column) : std::string_view();
        return !cell.empty() && cell != "-" && cell != "--";
    };
    return isFilled(source_.amount) || isFilled(source_.in) || isFilled(source_.out);
}

void AmountSigns::Count(const CsvRecord& record, const RowWords& words)
{
    if (source_.amount)
        CountAmount(record, words);
    else
        CountPair(record);
}

void AmountSigns::CountAmount(const CsvRecord& record, const RowWords& words)
{
    const auto written = Written(record.Field(*source_.amount));
    if (!written || written->amount.IsZero())
        return;
    const bool negative = written->amount.IsNegative();
    (negative ? negative_ : positive_) += 1;
    plus_ += written->mark == AmountMark::Plus ? 1U : 0U;
    credit_ += written->mark == AmountMark::Credit ? 1U : 0U;
    debit_ += written->mark == AmountMark::Debit ? 1U : 0U;
    paymentsOut_ += negative && words.payment ? 1U : 0U;
    if (words.side != CellSide::None)
        ((words.side == CellSide::Out) == negative ? agree_ : disagree_) += words.weight;
    if (!source_.mark)
        return;
    switch (SideOfMark(record.Field(*source_.mark))) {
        case CellSide::In: (negative ? inNegative_ : inPositive_) += 1; break;
        case CellSide::Out: (negative ? outNegative_ : outPositive_) += 1; break;
        case CellSide::None: ++unmarked_; break;
    }
}

void AmountSigns::CountPair(const CsvRecord& record)
{
    const auto in = source_.in ? Written(record.Field(*source_.in)) : std::nullopt;
    const auto out = source_.out ? Written(record.Field(*source_.out)) : std::nullopt;
    if (in && !in->amount.IsZero())
        (in->amount.IsNegative() ? inNegative_ : inPositive_) += 1;
    if (out && !out->amount.IsZero())
        (out->amount.IsNegative() ? outNegative_ : outPositive_) += 1;
    if (in && out && !in->amount.IsZero() && !out->amount.IsZero())
        ++both_;
}

std::optional<Money> AmountSigns::Read(const CsvRecord& record, char decimal) const
{
    auto amount = source_.amount ? ReadSigned(record, decimal) : ReadPair(record, decimal);
    if (!amount || IsMin(*amount))
        return std::nullopt;
    if (source_.negated)
        amount = -*amount;
    return source_.fee ? WithFee(*amount, record, decimal) : amount;
}

std::optional<Money> AmountSigns::ReadSigned(const CsvRecord& record, char decimal) const
{
    const auto written = ReadWrittenAmount(record.Field(*source_.amount), decimal);
    if (!written)
        return std::nullopt;
    const Money amount = written->amount;
    if (!source_.mark)
        return PlainIsOut() && written->mark != AmountMark::Credit ? -amount : amount;
    const CellSide side = SideOfMark(record.Field(*source_.mark));
    if (side == CellSide::None)
        return SignsAgree() || amount.IsZero() ? std::optional(amount) : std::nullopt;
    if (SignsAgree())
        return amount;
    // A minus sign beside a mark takes the row back, unless all of one side have it.
    const Money value = SignsDiffer() || negative_ == 0 ? Size(amount) : amount;
    return side == CellSide::In ? value : -value;
}

std::optional<Money> AmountSigns::ReadPair(const CsvRecord& record, char decimal) const
{
    const auto cell = [&](const std::optional<std::size_t>& column) {
        return column ? ReadAmount(record.Field(*column), decimal) : std::nullopt;
    };
    const auto isText = [&](const std::optional<std::size_t>& column, const auto& amount) {
        const std::string_view text = column ? record.Field(*column) : std::string_view();
        return !amount && text.find_first_of("0123456789") != std::string_view::npos;
    };
    const auto in = cell(source_.in);
    const auto out = cell(source_.out);
    if ((!in && !out) || isText(source_.in, in) || isText(source_.out, out))
        return std::nullopt;
    const bool hasIn = in && !in->IsZero();
    const bool hasOut = out && !out->IsZero();
    if (hasIn && hasOut)
        return std::nullopt;
    if (hasIn)
        return inPositive_ == 0 ? Size(*in) : *in;
    if (hasOut)
        return outPositive_ == 0 ? -Size(*out) : -*out;
    return Money();
}

std::optional<Money> AmountSigns::WithFee(Money amount, const CsvRecord& record, char decimal) const
{
    const std::string_view cell = record.Field(*source_.fee);
    if (cell.empty())
        return amount;
    const auto fee = ReadAmount(cell, decimal);
    if (!fee || IsMin(*fee))
        return std::nullopt;
    std::int64_t sum = 0;
    const std::int64_t change = source_.feeAdds ? fee->Scaled() : -Size(*fee).Scaled();
    if (__builtin_add_overflow(amount.Scaled(), change, &sum))
        return std::nullopt;
    return Money::FromScaled(sum);
}

AmountSigns::Verdict AmountSigns::Judge() const
{
    if (source_.negated)
        return {};
    if (!source_.amount) {
        const bool signedPair = inPositive_ == 0 ? outNegative_ == 0 && inNegative_ > 0
                                                 : outPositive_ == 0 && inNegative_ == 0;
        if (source_.unnamed && !(signedPair && inNegative_ + outNegative_ > 0))
            return {Sign::Open, false, "Nothing says which column comes in and which goes out."};
        if (outNegative_ > 0 && outPositive_ > 0 && outNegative_ >= outPositive_)
            return {Sign::Open, false, "The column of what goes out has both signs."};
        if (inNegative_ > 0 && inPositive_ > 0 && inNegative_ >= inPositive_)
            return {Sign::Open, false, "The column of what comes in has both signs."};
        return {};
    }
    if (source_.mark)
        return JudgeMarked();
    if (PlainIsOut() || credit_ + debit_ > 0)
        return {};
    if (negative_ == 0)
        return JudgeUnsigned();
    return JudgeSigned();
}

AmountSigns::Verdict AmountSigns::JudgeMarked() const
{
    if (HasUnmarked())
        return {Sign::Open, false,
                "Some rows have no mark that says whether they come in or go out."};
    if (negative_ == 0 || SignsAgree() || SignsDiffer())
        return {};
    return {Sign::Open, false, "The marks and the signs of the amounts do not agree."};
}

AmountSigns::Verdict AmountSigns::JudgeSigned() const
{
    if (positive_ == 0)
        return disagree_ > agree_ ? Verdict{Sign::Open, true,
                                            "The descriptions do not fit the signs of the amounts."}
                                  : Verdict{};
    if (disagree_ >= kSureWords && agree_ == 0 && positive_ > negative_)
        return {Sign::Inverted, true, ""};
    if (disagree_ > agree_)
        return {Sign::Open, true, "The descriptions do not fit the signs of the amounts."};
    if (agree_ > 0 || plus_ > 0)
        return {};
    if (paymentsOut_ == negative_ && positive_ >= negative_)
        return {Sign::Open, true,
                "Only payments are negative, as in files of cards that list purchases as "
                "positive amounts."};
    if (positive_ >= 2 * negative_)
        return {Sign::Open, true,
                "Most amounts are positive; nothing says whether they come in or go out."};
    return {};
}

AmountSigns::Verdict AmountSigns::JudgeUnsigned() const
{
    if (positive_ == 0 || plus_ == positive_)
        return {};
    if (disagree_ >= positive_ && agree_ == 0 && disagree_ >= kSureWords)
        return {Sign::Inverted, true, ""};
    if (agree_ >= positive_ && disagree_ == 0 && agree_ >= kSureWords)
        return {};
    return {Sign::Open, agree_ == 0,
            "All amounts are positive; nothing says whether they come in or go out."};
}

bool AmountSigns::WordsContradict(bool inverted) const
{
    return inverted ? agree_ > disagree_ + 1 : disagree_ > agree_ + 1;
}

}  // namespace clb
