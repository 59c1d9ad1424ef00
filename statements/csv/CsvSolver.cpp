#include "statements/csv/CsvSolver.h"

#include <algorithm>
#include <functional>
#include <set>

#include "statements/csv/ColumnQuestions.h"
#include "statements/csv/CsvCells.h"
#include "statements/csv/CsvRows.h"
#include "statements/csv/CutEnd.h"
#include "statements/csv/RowCurrency.h"
#include "statements/csv/RowDates.h"
#include "statements/csv/TableSurroundings.h"
#include "statements/form/AmountText.h"
#include "statements/form/CurrencyMarks.h"

namespace clb {
namespace {

using DateText::Order;

constexpr std::size_t kRowsWithWords = 3000;
/// A payment to a card says as much as several other descriptions.
constexpr std::size_t kCardPaymentWeight = 3;

const char* KeyOf(Order order)
{
    switch (order) {
        case Order::DayMonthYear: return "dmy";
        case Order::MonthDayYear: return "mdy";
        case Order::YearMonthDay: return "ymd";
    }
    return "";
}

/// What the descriptions of a row say about its side, and how surely.
RowWords WordsOfRow(const CsvColumns& columns, const CsvRecord& record)
{
    RowWords words;
    bool in = false;
    bool out = false;
    for (const auto* list : {&columns.names, &columns.texts})
        for (const std::size_t column : *list) {
            if (record.Field(column).empty())
                continue;
            const TextWords found = WordsOfText(record.Field(column));
            if (found.cardPayment)
                words.weight = kCardPaymentWeight;
            words.payment = words.payment || found.payment;
            in = in || found.side == CellSide::In;
            out = out || found.side == CellSide::Out;
        }
    if (in != out)
        words.side = in ? CellSide::In : CellSide::Out;
    return words;
}

/// One way to read amounts and balances, with how well they fit.
struct Attempt {
    std::size_t source = 0;
    std::optional<std::size_t> balance{};
    char decimal = '.';
    bool byCurrency = true;
    RowBalanceChain chain;
};

class Solver {
public:
    Solver(const CsvTable& table, const StatementAnswers& answers)
        : table_(table), answers_(answers)
    {
        solution_.columns = ChooseColumns(table, FactsOf(table), answers);
        status_.emplace(Columns());
        for (const AmountSource& source : Columns().sources)
            signs_.emplace_back(source);
    }

    CsvSolution Solve()
    {
        if (Columns().sources.empty() || Columns().dates.empty())
            return HasNoRows(table_) ? std::move(solution_) : WithoutColumns();
        Survey();
        currencies_ = marksOfCurrencies_.Different();
        solution_.severalCurrencies = currencies_.size() > 1;
        if (currencies_.size() == 1)
            solution_.currency = *currencies_.begin();
        TakeSurroundings(table_, solution_);
        Decimal();
        Follow();
        Source();
        Order();
        Sign();
        End();
        return std::move(solution_);
    }

private:
    [[nodiscard]] const CsvColumns& Columns() const { return solution_.columns; }

    /// A table that lacks a date or an amount: the user may know its columns.
    CsvSolution WithoutColumns()
    {
        solution_.questions.push_back(UnknownColumns(table_, Columns()));
        return std::move(solution_);
    }

    /// Goes through all rows once for what does not depend on the decimal mark.
    void Survey()
    {
        std::unordered_set<std::uint64_t> identifiers;
        end_.emplace(table_, Columns());
        std::size_t rows = 0;
        CsvRows(table_, Columns()).ForEach([&](const CsvRecord& record) {
            const std::string_view date = CsvRows::DateOf(Columns(), record);
            end_->Add(record, !date.empty());
            if (date.empty() || IsLeftOut(record))
                return;
            ++rows;
            dates_.Add(date, SecondDate(record));
            const RowWords words =
                rows <= kRowsWithWords ? WordsOfRow(Columns(), record) : RowWords();
            for (AmountSigns& signs : signs_) {
                signs.Count(record, words);
                AddMarks(signs.Source(), record);
            }
            for (const std::size_t balance : Columns().balances)
                balanceMarks_.Add(record.Field(balance));
            marksOfCurrencies_.Add(CurrencyMarkOf(Columns(), Columns().sources.front(), record));
            if (Columns().id && !record.Field(*Columns().id).empty()) {
                const std::uint64_t hash = HashOf(record.Field(*Columns().id));
                if (!identifiers.insert(hash).second)
                    solution_.identifiersGivenTwice.insert(hash);
            }
        });
    }

    [[nodiscard]] bool IsLeftOut(const CsvRecord& record)
    {
        return status_->Of(record) != CellStatus::None;
    }

    [[nodiscard]] std::string_view SecondDate(const CsvRecord& record) const
    {
        if (Columns().valueDate)
            return record.Field(*Columns().valueDate);
        return Columns().dates.size() > 1 ? record.Field(Columns().dates[1]) : std::string_view();
    }

    void AddMarks(const AmountSource& source, const CsvRecord& record)
    {
        for (const auto& column : {source.amount, source.in, source.out})
            if (column)
                marks_.Add(record.Field(*column));
    }

    void Decimal()
    {
        decimals_ = marks_.Possible();
        const auto ofBalances = balanceMarks_.Possible();
        std::vector<char> both;
        for (const char mark : decimals_)
            if (std::find(ofBalances.begin(), ofBalances.end(), mark) != ofBalances.end())
                both.push_back(mark);
        if (!both.empty())
            decimals_ = both;
        contradict_ = decimals_.empty();
        if (contradict_)
            decimals_ = {'.', ','};
        if (marks_.Same() && decimals_.size() > 1)
            decimals_.resize(1);
        else if (decimals_.size() > 1 && !contradict_)
            ThreeDecimals();
        if (answers_.decimal)
            decimals_ = {*answers_.decimal};
    }

    /// Amounts that can be read both ways have three digits after their mark. Few currencies have
    /// three decimals; in the others the mark is one of thousands.
    void ThreeDecimals()
    {
        const std::string& currency = solution_.currency;
        if (currency.empty() || currencies_.size() > 1)
            return;
        const bool three = currency == "JOD" || currency == "KWD" || currency == "BHD" ||
                           currency == "OMR" || currency == "TND" || currency == "IQD" ||
                           currency == "LYD";
        const char mark = marks_.Mark();
        if (mark == '\0')
            return;
        decimals_ = {three == (mark == '.') ? '.' : ','};
    }

    /// Follows the balances in every way that is still possible.
    void Follow()
    {
        std::vector<bool> splits = {true};
        if (currencies_.size() > 1)
            splits.push_back(false);
        std::vector<std::optional<std::size_t>> balances(Columns().balances.begin(),
                                                         Columns().balances.end());
        if (balances.empty())
            balances.emplace_back();
        for (std::size_t source = 0; source < signs_.size(); ++source)
            for (const auto& balance : balances)
                for (const char decimal : decimals_)
                    for (const bool split : splits)
                        if (!balance || Columns().sources[source].amount != balance)
                            attempts_.push_back({source, balance, decimal, split, {}});
        if (attempts_.empty())
            attempts_.push_back({0, std::nullopt, decimals_.front(), true, {}});
        values_.assign(signs_.size(), {});
        if (!Columns().sources.front().unnamed && Columns().balances.empty() &&
            signs_.size() == 1 && decimals_.size() == 1)
            return;
        CsvRows(table_, Columns()).ForEach([this](const CsvRecord& record) { FollowRow(record); });
    }

    void FollowRow(const CsvRecord& record)
    {
        if (CsvRows::DateOf(Columns(), record).empty() || IsLeftOut(record))
            return;
        const std::string keys[2] = {AccountKey(solution_, record, false),
                                     AccountKey(solution_, record, true)};
        const std::uint64_t currency = solution_.severalCurrencies ? HashOf(keys[1]) : 0;
        std::vector<std::optional<Money>> values;
        for (const char decimal : decimals_)
            for (const AmountSigns& signs : signs_)
                values.push_back(signs.Read(record, decimal));
        Compare(values);
        ++rows_;
        for (Attempt& attempt : attempts_) {
            if (!attempt.balance)
                continue;
            const std::size_t at =
                attempt.source + (attempt.decimal == decimals_.front() ? 0 : signs_.size());
            attempt.chain.Add(keys[attempt.byCurrency ? 1 : 0], values[at],
                              ReadAmount(record.Field(*attempt.balance), attempt.decimal),
                              currency);
        }
    }

    /// Counts the rows in which the sources differ from the first one.
    void Compare(const std::vector<std::optional<Money>>& values)
    {
        const auto size = [](Money money) {
            return money.IsNegative() ? 0 - static_cast<std::uint64_t>(money.Scaled())
                                      : static_cast<std::uint64_t>(money.Scaled());
        };
        for (std::size_t i = 0; i < signs_.size(); ++i) {
            values_[i].filled += values[i] ? 1U : 0U;
            if (values[i] && values[0])
                values_[i].differ += size(*values[i]) != size(*values[0]) ? 1U : 0U;
            else
                values_[i].differ += values[i].has_value() != values[0].has_value() ? 1U : 0U;
        }
    }

    /// Chooses the columns of amounts and balances, and the decimal mark.
    void Source()
    {
        const Attempt* best = &attempts_.front();
        const auto fit = [](const Attempt& attempt) {
            const auto steps = attempt.chain.Fitting();
            const bool usual = !steps.empty() && (steps.front() == BalanceStep::PlusOwn ||
                                                  steps.front() == BalanceStep::MinusEarlier);
            return std::pair(attempt.chain.Most(), usual);
        };
        for (const Attempt& attempt : attempts_)
            if ((attempt.byCurrency || attempt.chain.JoinsCurrencies()) &&
                fit(attempt) > fit(*best))
                best = &attempt;
        const auto fitting = best->chain.Fitting();
        if (fitting.empty()) {
            best = &attempts_.front();
            if (Columns().equals > 1)
                AmongEquals(best);
        } else {
            solution_.balance = best->balance;
            steps_ = fitting;
        }
        // Without names, a row whose amount is in another column says that this is the wrong one.
        if (Columns().sources[best->source].unnamed && !Columns().sourceGiven &&
            values_[best->source].filled < rows_ && solution_.questions.empty())
            AskColumns(signs_.size(), best->source);
        solution_.decimal = best->decimal;
        solution_.byCurrency = best->byCurrency;
        solution_.amounts = signs_[best->source];
        const bool markSettled =
            !fitting.empty() &&
            std::none_of(attempts_.begin(), attempts_.end(), [best](const Attempt& other) {
                return other.decimal != best->decimal &&
                       other.chain.Most() * 2 > best->chain.Most();
            });
        if (decimals_.size() > 1 && !markSettled)
            AskDecimal();
    }

    /// Several sources of equal merit that no balance decides: they must mean the same.
    void AmongEquals(const Attempt*& best)
    {
        const std::size_t equals = std::min(Columns().equals, signs_.size());
        std::size_t chosen = best->source;
        bool differ = false;
        for (std::size_t i = 0; i < equals; ++i) {
            differ = differ || values_[i].differ > 0;
            if (!signs_[chosen].HasSides() && signs_[i].HasSides())
                chosen = i;
        }
        for (const Attempt& attempt : attempts_)
            if (attempt.source == chosen && best->source != chosen)
                best = &attempt;
        if (differ)
            AskColumns(equals, chosen);
    }

    void AskColumns(std::size_t equals, std::size_t chosen)
    {
        solution_.questions.push_back(WhichAmount(table_, Columns(), equals, chosen));
    }

    void AskDecimal()
    {
        solution_.decimal = table_.Dialect().delimiter == ',' ? '.' : ',';
        solution_.questions.push_back(
            {.question = StatementQuestion::Decimal,
             .options = {".", ","},
             .proposed = std::string(1, solution_.decimal),
             .why = contradict_ ? "The amounts are written in two ways."
                                : "All amounts can be read with a point and with a comma."});
    }

    void Order()
    {
        orders_ = dates_.Possible(steps_);
        bool contradict = false;
        if (orders_.empty()) {
            orders_ = dates_.Readable();
            contradict = orders_.size() > 1;
        }
        if (orders_.empty())
            orders_ = {Order::YearMonthDay};
        if (answers_.dateOrder)
            orders_ = {*answers_.dateOrder};
        solution_.order = orders_.front();
        if (orders_.size() < 2)
            return;
        OpenQuestion question{.question = StatementQuestion::DateOrder,
                              .options = {},
                              .proposed = KeyOf(orders_.front()),
                              .why = contradict ? "The dates are written in two orders."
                                                : "All dates can be read in several orders."};
        for (const DateText::Order order : orders_)
            question.options.emplace_back(KeyOf(order));
        solution_.questions.push_back(question);
    }

    void Sign()
    {
        const AmountSigns::Verdict verdict = ByBalance();
        solution_.inverted = verdict.sign == AmountSigns::Sign::Inverted ||
                             (verdict.sign == AmountSigns::Sign::Open && verdict.likelyInverted);
        if (answers_.inverted)
            solution_.inverted = *answers_.inverted;
        else if (Columns().sourceGiven)
            solution_.inverted = false;
        else if (verdict.sign == AmountSigns::Sign::Open)
            solution_.questions.push_back({.question = StatementQuestion::Sign,
                                           .options = {"normal", "inverted"},
                                           .proposed = solution_.inverted ? "inverted" : "normal",
                                           .why = verdict.why});
        if (!steps_.empty())
            solution_.step = steps_.front();
    }

    void End()
    {
        solution_.cutLine = end_->Line(solution_);
        if (solution_.cutLine && !answers_.takeWholeRows)
            solution_.questions.push_back({.question = StatementQuestion::Truncated,
                                           .options = {"rows", "nothing"},
                                           .proposed = "rows",
                                           .why = "The file breaks off in its last row, line " +
                                                  std::to_string(*solution_.cutLine) + "."});
    }

    /// The sign by the balance where there is one, else by the amounts alone.
    [[nodiscard]] AmountSigns::Verdict ByBalance() const
    {
        using Sign = AmountSigns::Sign;
        const AmountSigns& amounts = *solution_.amounts;
        if (steps_.empty() || amounts.HasUnmarked())
            return amounts.Judge();
        Sign sign = SignBy(steps_.front());
        for (const BalanceStep step : steps_)
            if (SignBy(step) != sign)
                sign = Sign::Open;
        if (sign == Sign::Open) {
            const AmountSigns::Verdict own = amounts.Judge();
            return own.sign == Sign::Open || steps_.front() == BalanceStep::MinusOwn ||
                           steps_.front() == BalanceStep::PlusEarlier
                       ? AmountSigns::Verdict{Sign::Open, steps_.front() == BalanceStep::MinusOwn,
                                              "The balance fits both signs of the amounts."}
                       : own;
        }
        const bool inverted = sign == Sign::Inverted;
        if (amounts.HasSides() && inverted)
            return {Sign::Open, false, "The balance rises with what goes out, as a debt does."};
        if (!amounts.HasSides() && amounts.WordsContradict(inverted))
            return {Sign::Open, !inverted, "The descriptions do not fit the balance."};
        return {sign, inverted, ""};
    }

    [[nodiscard]] AmountSigns::Sign SignBy(BalanceStep step) const
    {
        using Sign = AmountSigns::Sign;
        RowDates::Direction direction = dates_.DirectionIn(orders_.front());
        for (const DateText::Order order : orders_)
            if (dates_.DirectionIn(order) != direction)
                direction = RowDates::Direction::None;
        const bool rising = direction == RowDates::Direction::Rising;
        const bool falling = direction == RowDates::Direction::Falling;
        switch (step) {
            case BalanceStep::PlusOwn: return falling ? Sign::Open : Sign::Normal;
            case BalanceStep::MinusEarlier: return rising ? Sign::Open : Sign::Normal;
            case BalanceStep::PlusEarlier:
                return rising ? Sign::Normal : falling ? Sign::Inverted : Sign::Open;
            case BalanceStep::MinusOwn:
                return rising ? Sign::Inverted : falling ? Sign::Normal : Sign::Open;
        }
        return Sign::Open;
    }

    struct Values {
        std::size_t filled = 0;
        std::size_t differ = 0;
    };

    const CsvTable& table_;
    const StatementAnswers& answers_;
    CsvSolution solution_;
    std::optional<RowStatus> status_;
    std::vector<AmountSigns> signs_;
    RowDates dates_;
    DecimalMarks marks_;
    DecimalMarks balanceMarks_;
    std::optional<CutEnd> end_;
    FileCurrencies marksOfCurrencies_;
    std::set<std::string> currencies_;
    std::vector<char> decimals_;
    bool contradict_ = false;
    std::vector<Attempt> attempts_;
    std::vector<Values> values_;
    std::size_t rows_ = 0;
    std::vector<BalanceStep> steps_;
    std::vector<DateText::Order> orders_;
};

}  // namespace

std::uint64_t HashOf(std::string_view text)
{
    return std::hash<std::string_view>()(text);
}

CellStatus RowStatus::Of(const CsvRecord& record)
{
    for (Column& column : columns_) {
        const std::string_view cell = record.Field(column.index);
        if (cell != column.cell) {
            column.cell = cell;
            column.status = StatusOf(cell);
        }
        if (column.status == CellStatus::Pending || column.status == CellStatus::Void)
            return column.status;
    }
    return CellStatus::None;
}

std::string CurrencyOfRow(const CsvSolution& solution, const CsvRecord& record)
{
    const AmountSource& source =
        solution.amounts ? solution.amounts->Source() : solution.columns.sources.front();
    const std::string_view mark = CurrencyMarkOf(solution.columns, source, record);
    return solution.severalCurrencies ? CurrencyAmongOthers(mark) : CurrencyOf(mark);
}

std::string AccountKey(const CsvSolution& solution, const CsvRecord& record, bool byCurrency)
{
    std::string key;
    if (solution.columns.account)
        key = record.Field(*solution.columns.account);
    if (!byCurrency)
        return key;
    const std::string currency = CurrencyOfRow(solution, record);
    return key + '\n' + (currency.empty() ? solution.currency : currency);
}

CsvSolution Solve(const CsvTable& table, const StatementAnswers& answers)
{
    return Solver(table, answers).Solve();
}

}  // namespace clb
