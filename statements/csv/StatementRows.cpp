#include "statements/csv/StatementRows.h"

#include <algorithm>
#include <set>

#include "base/Text.h"
#include "statements/csv/ColumnNames.h"
#include "statements/csv/CsvCells.h"
#include "statements/csv/CsvRows.h"
#include "statements/form/AmountText.h"
#include "statements/form/DateTexts.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

constexpr std::size_t kShownText = 200;
constexpr std::size_t kMostTexts = 50;
constexpr std::size_t kLongestBalanceWord = 60;
constexpr std::size_t kLongestText = 20'000;
/// Rows with a wrong balance that are named one by one.
constexpr std::size_t kMostBreaks = 5;

/// Lines that state a balance, in the form of PlainName.
const std::set<std::string, std::less<>>& BalanceWords()
{
    static const std::set<std::string, std::less<>> words = {"opening balance",
                                                             "closing balance",
                                                             "beginning balance",
                                                             "ending balance",
                                                             "balance brought forward",
                                                             "balance carried forward",
                                                             "brought forward",
                                                             "carried forward",
                                                             "balance forward",
                                                             "balance b f",
                                                             "balance c f",
                                                             "previous balance",
                                                             "starting balance",
                                                             "statement opening balance",
                                                             "statement closing balance",
                                                             "anfangssaldo",
                                                             "endsaldo",
                                                             "saldovortrag",
                                                             "kontostand",
                                                             "alter kontostand",
                                                             "neuer kontostand",
                                                             "schlusssaldo",
                                                             "schlussaldo",
                                                             "alter saldo",
                                                             "neuer saldo",
                                                             "anfangsbestand",
                                                             "endbestand",
                                                             "abschlusssaldo",
                                                             "ancien solde",
                                                             "nouveau solde",
                                                             "solde initial",
                                                             "solde final",
                                                             "solde precedent",
                                                             "beginsaldo",
                                                             "eindsaldo",
                                                             "saldo inicial",
                                                             "saldo final",
                                                             "saldo anterior",
                                                             "saldo do dia",
                                                             "s a l d o",
                                                             "saldo",
                                                             "saldo iniziale",
                                                             "saldo finale",
                                                             "saldo poczatkowe",
                                                             "saldo koncowe",
                                                             "pocatecni zustatek",
                                                             "konecny zustatek",
                                                             "ingaende saldo",
                                                             "utgaende saldo",
                                                             "primo saldo",
                                                             "ultimo saldo",
                                                             "alkusaldo",
                                                             "loppusaldo",
                                                             "входящий остаток",
                                                             "исходящий остаток",
                                                             "期初余额",
                                                             "期末余额",
                                                             "前月繰越",
                                                             "繰越残高",
                                                             "saldo bloqueado",
                                                             "saldo disponivel",
                                                             "saldo parcial",
                                                             "saldo total disponivel dia",
                                                             "saldo em conta corrente",
                                                             "saldo anterior do dia"};
    return words;
}

/// Whether the cell is printable ASCII without two spaces in a row, as most are.
bool IsClean(std::string_view cell)
{
    char before = ' ';
    for (const char c : cell) {
        if (c < ' ' || c == 0x7F || (c == ' ' && before == ' '))
            return false;
        before = c;
    }
    return before != ' ';
}

/// The cell with single spaces, and without characters that no text holds.
std::string Cleaned(std::string_view cell)
{
    cell = cell.substr(0, kLongestText);
    if (IsClean(cell))
        return std::string(cell);
    std::string clean;
    bool space = false;
    while (!cell.empty()) {
        const ScannedChar next = FirstChar(cell);
        if (IsSpace(next.code) || next.code == 0x7F)
            space = !clean.empty();
        else {
            if (space)
                clean += ' ';
            space = false;
            clean += next.code == 0xFFFD && next.size == 1 ? std::string_view("\uFFFD")
                                                           : cell.substr(0, next.size);
        }
        cell.remove_prefix(next.size);
    }
    return clean;
}

/// The number without the apostrophe by which some banks keep a spreadsheet from changing it.
std::string AccountNumber(std::string_view cell)
{
    std::string number = Cleaned(cell);
    return number.starts_with('\'') && number.size() > 1 ? number.substr(1) : number;
}

bool IsPlaceholder(std::string_view text)
{
    return text.empty() || text == "-" || text == "--" || text == "/" || text == "NULL" ||
           text == "null" || text == "N/A" || text == "n/a" || text == "nan" || text == "None";
}

bool HasDigit(std::string_view text)
{
    return text.find_first_of("0123456789") != std::string_view::npos;
}

/// The text in the form of PlainName up to its day, without the words that lead to the day.
std::string WithoutDay(std::string_view text)
{
    static const std::set<std::string, std::less<>> leading = {
        "as", "of",  "on", "at", "from", "vom", "am", "zum", "per",   "au", "le",   "du",
        "al", "del", "em", "op", "den",  "dne", "ke", "na",  "dzien", "z",  "dnia", "на"};
    const std::string plain = PlainName(text);
    std::vector<std::string> words = Split(plain.substr(0, plain.find_first_of("0123456789")), ' ');
    while (!words.empty() && (words.back().empty() || leading.contains(words.back())))
        words.pop_back();
    std::string joined;
    for (const std::string& word : words)
        joined += (joined.empty() ? "" : " ") + word;
    return joined;
}

/// Sums wrap round like those of the chain; they are compared and shown only if they are checked.
Money Plus(Money one, Money other)
{
    return Money::FromScaled(static_cast<std::int64_t>(static_cast<std::uint64_t>(one.Scaled()) +
                                                       static_cast<std::uint64_t>(other.Scaled())));
}

Money Minus(Money one, Money other)
{
    return Money::FromScaled(static_cast<std::int64_t>(static_cast<std::uint64_t>(one.Scaled()) -
                                                       static_cast<std::uint64_t>(other.Scaled())));
}

bool IsNewestFirst(const CsvSolution& solution)
{
    return solution.step == BalanceStep::MinusEarlier ||
           (solution.step == BalanceStep::PlusEarlier && solution.inverted) ||
           (solution.step == BalanceStep::MinusOwn && !solution.inverted);
}

/// Whether the balances stand before their rows.
bool IsBefore(const CsvSolution& solution)
{
    return (solution.step == BalanceStep::PlusEarlier && !solution.inverted) ||
           (solution.step == BalanceStep::MinusOwn && !solution.inverted);
}

}  // namespace

StatementRows::StatementRows(const CsvTable& table, const CsvSolution& solution,
                             IStatementSink& sink)
    : table_(table), solution_(solution), sink_(sink), status_(solution.columns)
{
}

void StatementRows::Read()
{
    if (solution_.amounts)
        CsvRows(table_, solution_.columns).ForEach([this](const CsvRecord& record) {
            Take(record);
        });
    if (order_.empty()) {
        sink_.BeginAccount({.number = solution_.account, .currency = solution_.currency});
        sink_.EndAccount({});
    }
    for (const std::string& key : order_) {
        const Account& account = accounts_.find(key)->second;
        if (key != current_)
            sink_.BeginAccount(account.account);
        current_ = key;
        sink_.EndAccount(BalancesOf(account));
    }
}

void StatementRows::Take(const CsvRecord& record)
{
    if (record.line == solution_.cutLine)
        return LeaveOut(record, LeftOutReason::Incomplete);
    const CellStatus status = status_.Of(record);
    const auto date = DateOf(record);
    if (record.fields.empty())
        return LeaveOut(record, LeftOutReason::NoAmount);
    if (status == CellStatus::Pending)
        return LeaveOut(record, LeftOutReason::Pending);
    if (status == CellStatus::Void)
        return LeaveOut(record, LeftOutReason::NotARow);
    const auto amount = AmountOf(record);
    if (!date || !amount)
        return TakeOther(record, date.has_value());
    if (IsBalanceLine(record))
        return LeaveOut(record, LeftOutReason::NotARow);
    FlushTexts();
    Account& account = Begin(record);
    const StatementRow row = RowOf(record, *date, *amount);
    Follow(account, row);
    sink_.Row(row);
}

/// A record without a date or an amount: a row that cannot be read, or a line that is none.
void StatementRows::TakeOther(const CsvRecord& record, bool hasDate)
{
    bool dateWritten = hasDate;
    for (const std::size_t column : solution_.columns.dates)
        dateWritten = dateWritten || HasDigit(record.Field(column));
    const bool filled = solution_.amounts->IsFilled(record);
    if (hasDate && (IsBalanceLine(record) || (!filled && StatesBalance(record))))
        return LeaveOut(record, LeftOutReason::NotARow);
    if (hasDate)
        return LeaveOut(record, LeftOutReason::NoAmount);
    const bool amounts = std::any_of(record.fields.begin(), record.fields.end(), IsPlainlyAmount);
    if (filled && AmountOf(record) &&
        (dateWritten || record.Field(solution_.columns.dates[0]).empty()))
        return LeaveOut(record, dateWritten ? LeftOutReason::NoDate : LeftOutReason::NotARow);
    if (amounts || filled)
        return LeaveOut(record, LeftOutReason::NotARow);
    if (texts_.size() < kMostTexts)
        texts_.push_back(
            {record.line, LeftOutReason::NotARow, Left(Cleaned(record.raw), kShownText)});
}

void StatementRows::LeaveOut(const CsvRecord& record, LeftOutReason reason)
{
    sink_.LeftOut(
        {record.line, reason, Left(Cleaned(record.raw.substr(0, 4 * kShownText)), kShownText)});
}

/// Lines of text only are of interest among the rows; at the end they are the bank's small print.
void StatementRows::FlushTexts()
{
    if (!order_.empty())
        for (const LeftOutPart& text : texts_)
            sink_.LeftOut(text);
    texts_.clear();
}

std::optional<Date> StatementRows::DateOf(const CsvRecord& record) const
{
    for (const std::size_t column : solution_.columns.dates) {
        const std::string_view cell = record.Field(column);
        if (const auto date = ReadDate(cell, solution_.order))
            return date;
        // A date that does not exist is not replaced by another one.
        if (HasDigit(cell))
            return std::nullopt;
    }
    return std::nullopt;
}

std::optional<Money> StatementRows::AmountOf(const CsvRecord& record) const
{
    const auto amount = solution_.amounts->Read(record, solution_.decimal);
    return amount && solution_.inverted ? std::optional(-*amount) : amount;
}

bool StatementRows::IsBalanceLine(const CsvRecord& record) const
{
    const auto& columns = solution_.columns;
    for (const auto* list : {&columns.names, &columns.texts})
        for (const std::size_t column : *list)
            if (record.Field(column).size() - 1 < kLongestBalanceWord &&
                !HasDigit(record.Field(column)) &&
                BalanceWords().contains(PlainName(record.Field(column))))
                return true;
    return false;
}

/// Whether a row without an amount has a text such as "Beginning balance as of 01/31/2026".
bool StatementRows::StatesBalance(const CsvRecord& record) const
{
    const auto& columns = solution_.columns;
    for (const auto* list : {&columns.names, &columns.texts})
        for (const std::size_t column : *list)
            if (BalanceWords().contains(WithoutDay(record.Field(column))))
                return true;
    return false;
}

StatementRow StatementRows::RowOf(const CsvRecord& record, Date date, Money amount) const
{
    const CsvColumns& columns = solution_.columns;
    StatementRow row;
    row.line = record.line;
    row.date = Date::FromDays(date.Days());
    row.amount = amount;
    row.balance = BalanceOf(record, amount);
    if (columns.valueDate)
        row.valueDate = ReadDate(record.Field(*columns.valueDate), solution_.order);
    if (row.valueDate)
        row.valueDate = Date::FromDays(row.valueDate->Days());
    if (columns.category)
        row.category = Cleaned(record.Field(*columns.category));
    if (columns.check) {
        const std::string check = Cleaned(record.Field(*columns.check));
        if (check.find_first_not_of("0123456789") == std::string::npos &&
            check.find_first_not_of('0') != std::string::npos)
            row.checkNumber = check;
    }
    if (columns.id) {
        const std::string_view id = record.Field(*columns.id);
        const bool shared = solution_.identifiersGivenTwice.contains(HashOf(id));
        (shared ? row.sharedIdentifier : row.identifier) = Cleaned(id);
    }
    Describe(record, row);
    return row;
}

void StatementRows::Describe(const CsvRecord& record, StatementRow& row) const
{
    std::vector<std::string> parts;
    const auto add = [&](const std::vector<std::size_t>& columns) {
        for (const std::size_t column : columns) {
            std::string text = Cleaned(record.Field(column));
            if (!IsPlaceholder(text) && std::find(parts.begin(), parts.end(), text) == parts.end())
                parts.push_back(std::move(text));
        }
    };
    add(solution_.columns.names);
    add(solution_.columns.texts);
    if (parts.empty() && solution_.columns.category)
        add({*solution_.columns.category});
    if (parts.empty())
        return;
    row.name = parts.front();
    for (std::size_t i = 1; i < parts.size(); ++i)
        row.text += (i > 1 ? " " : "") + parts[i];
}

std::optional<Money> StatementRows::BalanceOf(const CsvRecord& record, Money amount) const
{
    if (!solution_.balance)
        return std::nullopt;
    const auto balance = ReadAmount(record.Field(*solution_.balance), solution_.decimal);
    return balance && IsBefore(solution_) ? std::optional(Plus(*balance, amount)) : balance;
}

StatementRows::Account& StatementRows::Begin(const CsvRecord& record)
{
    std::string key = AccountKey(solution_, record, solution_.byCurrency);
    auto found = accounts_.find(key);
    if (found == accounts_.end()) {
        Account account;
        account.account.number = solution_.columns.account
                                     ? AccountNumber(record.Field(*solution_.columns.account))
                                     : solution_.account;
        const std::string currency = solution_.byCurrency ? CurrencyOfRow(solution_, record) : "";
        account.account.currency = currency.empty() ? solution_.currency : currency;
        found = accounts_.emplace(key, std::move(account)).first;
        order_.push_back(key);
        current_ = key;
        sink_.BeginAccount(found->second.account);
    } else if (key != current_) {
        current_ = key;
        sink_.BeginAccount(found->second.account);
    }
    return found->second;
}

void StatementRows::Follow(Account& account, const StatementRow& row) const
{
    if (!account.earliest || row.date < *account.earliest)
        account.earliest = row.date;
    if (!account.latest || row.date > *account.latest)
        account.latest = row.date;
    if (!row.balance) {
        Money& sum = account.first ? account.since : account.before;
        sum = Plus(sum, row.amount);
        return;
    }
    if (!account.first) {
        account.first = row.balance;
        account.firstAmount = row.amount;
    } else
        Check(account, row);
    account.last = row.balance;
    account.lastAmount = row.amount;
    account.lastLine = row.line;
    account.since = Money();
}

/// Checks the balance of a row against the one of the row before it in the file.
void StatementRows::Check(Account& account, const StatementRow& row) const
{
    // In a file with the newest row first, the row before is the later one.
    const bool falling = IsNewestFirst(solution_);
    const BalanceBreak step = {
        .line = falling ? account.lastLine : row.line,
        .before = falling ? *row.balance : *account.last,
        .amount = Plus(account.since, falling ? account.lastAmount : row.amount),
        .after = falling ? *account.last : *row.balance};
    if (Plus(step.before, step.amount) == step.after) {
        ++account.follows;
        return;
    }
    ++account.broken;
    if (account.breaks.size() < kMostBreaks)
        account.breaks.push_back(step);
}

StatementBalances StatementRows::BalancesOf(const Account& account) const
{
    StatementBalances balances;
    if (!account.first || !solution_.step)
        return balances;
    if (account.broken > 0) {
        if (account.follows > account.broken)
            balances.breaks = account.breaks;
        return balances;
    }
    if (IsNewestFirst(solution_)) {
        balances.closing = Plus(*account.first, account.before);
        balances.opening = Minus(*account.last, Plus(account.lastAmount, account.since));
    } else {
        balances.opening = Minus(*account.first, Plus(account.firstAmount, account.before));
        balances.closing = Plus(*account.last, account.since);
    }
    if (account.latest)
        balances.closingDate = Date::FromDays(account.latest->Days());
    return balances;
}

}  // namespace clb
