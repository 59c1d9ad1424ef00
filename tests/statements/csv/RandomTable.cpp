#include "tests/statements/csv/RandomTable.h"

#include <algorithm>

namespace clb {

struct RandomTable::Language {
    const char* date;
    const char* text;
    const char* amount;
    const char* in;
    const char* out;
    const char* mark;
    const char* balance;
    const char* valueDate;
    const char* name;
};

namespace {

const std::vector<std::pair<const char*, const char*>>& Marks()
{
    static const std::vector<std::pair<const char*, const char*>> marks = {
        {"C", "D"},       {"CR", "DR"},     {"credit", "debit"}, {"H", "S"},
        {"Bij", "Af"},    {"CRDT", "DBIT"}, {"+", "-"},          {"Haben", "Soll"},
        {"收入", "支出"}, {"贷", "借"},     {"Credit", "Debit"}, {"IN", "OUT"}};
    return marks;
}

std::string TwoDigits(int number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

RandomTable::RandomTable(std::uint32_t seed) : random_(seed)
{
    MakeDialect();
    MakeRows();
    Write();
}

StatementAnswers RandomTable::Answers() const
{
    StatementAnswers answers;
    using DateText::Order;
    answers.dateOrder = dateForm_[0] == 'y'   ? Order::YearMonthDay
                        : dateForm_[0] == 'm' ? Order::MonthDayYear
                                              : Order::DayMonthYear;
    answers.decimal = decimal_;
    answers.inverted = style_ == Style::Inverted;
    return answers;
}

int RandomTable::Number(int from, int to)
{
    return from + static_cast<int>(random_() % static_cast<std::uint32_t>(to - from + 1));
}

void RandomTable::MakeDialect()
{
    delimiter_ = OneOf(std::vector<char>{',', ';', '\t', '|', ';', ','});
    decimal_ = Chance(50) ? '.' : ',';
    quoting_ = Number(0, 2);
    if (decimal_ == delimiter_ && quoting_ == 0)
        quoting_ = 1;
    group_ =
        OneOf(std::vector<std::string>{"", "", decimal_ == '.' ? "," : ".", " ", "'", "\u00A0"});
    eol_ = OneOf(std::vector<std::string>{"\n", "\r\n", "\n"});
    decimals_ = Chance(90) ? 2 : Number(0, 3);
    dateForm_ =
        OneOf(std::vector<std::string>{"d.m.Y", "d/m/Y", "m/d/Y", "y-m-d", "ymd", "d-M-Y", "d.m.Y2",
                                       "m/d/Y2", "d/m/Y2", "y/m/d", "d1.m1.Y", "m1/d1/Y", "d-m-Y"});
    style_ = static_cast<Style>(Number(0, 7));
    vocabulary_ = Number(0, static_cast<int>(Marks().size()) - 1);
    header_ = Chance(80);
    balance_ = Chance(50);
    newestFirst_ = Chance(50);
    valueDate_ = Chance(30);
    original_ = header_ && Chance(20);
    currency_ = Chance(30);
    status_ = header_ && Chance(20);
    identifier_ = Chance(20);
}

Money RandomTable::MakeAmount()
{
    const std::int64_t unit = decimals_ == 0   ? 10000
                              : decimals_ == 1 ? 1000
                              : decimals_ == 2 ? 100
                                               : 10;
    const int size = Number(0, 9);
    const int most = size < 6 ? 9'999 : size < 9 ? 499'999 : 99'999'999;
    std::int64_t scaled = unit * Number(1, most);
    if (Chance(15))
        scaled = std::max<std::int64_t>(10000, scaled / 10000 * 10000);
    return Money::FromScaled(Chance(style_ == Style::Inverted ? 80 : 65) ? -scaled : scaled);
}

std::string RandomTable::MakeText(bool out)
{
    // Inverted signs without words or a balance cannot be told from normal ones.
    if (style_ == Style::Inverted)
        return out ? "Purchase at a shop" : "Payment thank you";
    static const std::vector<std::string> texts = {"Corner shop",
                                                   "Bäckerei Müller",
                                                   "RENT 03/2021",
                                                   "O'Neill & Sons",
                                                   "Order 4711 of 03.02.2021",
                                                   "a; b",
                                                   "a, b",
                                                   "say \"hello\"",
                                                   "100,00 for you",
                                                   "Invoice 12.50",
                                                   "ref 20210304",
                                                   "x|y",
                                                   "Gift\tcard",
                                                   "two\nlines",
                                                   "Łódź",
                                                   "面包店",
                                                   "'quoted'",
                                                   "5.00",
                                                   "12345678901234"};
    return OneOf(texts) + " " + std::to_string(Number(1, 99));
}

void RandomTable::MakeRows()
{
    int day = Date::Of(2021, Number(1, 12), Number(1, 28))->Days();
    const int count = Chance(10) ? Number(1, 2) : Number(3, 14);
    const int step = Number(0, 9);
    for (int i = 0; i < count; ++i) {
        RandomRow row{Date::FromDays(day), MakeAmount(), {}};
        row.text = MakeText(row.amount.IsNegative());
        rows_.push_back(row);
        day += Number(0, step);
    }
    if (newestFirst_)
        std::reverse(rows_.begin(), rows_.end());
    // Sorted by something else. Balances follow the order of time.
    if (!balance_ && Chance(10))
        std::shuffle(rows_.begin(), rows_.end(), random_);
}

std::string RandomTable::DateText(Date date)
{
    static const char* const months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::string text;
    for (std::size_t i = 0; i < dateForm_.size(); ++i) {
        const char after = i + 1 < dateForm_.size() ? dateForm_[i + 1] : ' ';
        switch (dateForm_[i]) {
            case 'd':
                text += after == '1' ? std::to_string(date.Day()) : TwoDigits(date.Day());
                break;
            case 'm':
                text += after == '1' ? std::to_string(date.Month()) : TwoDigits(date.Month());
                break;
            case 'M': text += months[date.Month() - 1]; break;
            case 'y': text += std::to_string(date.Year()); break;
            case 'Y':
                text += after == '2' ? TwoDigits(date.Year() % 100) : std::to_string(date.Year());
                break;
            case '1':
            case '2': break;
            default: text += dateForm_[i];
        }
    }
    return text;
}

std::string RandomTable::Plain(Money size) const
{
    const std::int64_t scaled = size.Scaled();
    std::string whole = std::to_string(scaled / 10000);
    for (int at = static_cast<int>(whole.size()) - 3; at > 0 && !group_.empty(); at -= 3)
        whole.insert(static_cast<std::size_t>(at), group_);
    if (decimals_ == 0)
        return whole;
    std::string fraction = std::to_string(scaled % 10000 + 10000).substr(1);
    return whole + decimal_ + fraction.substr(0, static_cast<std::size_t>(decimals_));
}

std::string RandomTable::Signed(Money amount) const
{
    const bool negative = amount.IsNegative();
    const std::string plain = Plain(negative ? -amount : amount);
    switch (style_) {
        case Style::TrailingMinus: return negative ? plain + "-" : plain;
        case Style::Brackets: return negative ? "(" + plain + ")" : plain;
        case Style::Sides: return plain + (negative ? " DR" : " CR");
        default: return (negative ? "-" : "") + plain;
    }
}

std::vector<std::string> RandomTable::AmountCells(Money amount)
{
    const bool out = amount.IsNegative();
    const Money size = out ? -amount : amount;
    switch (style_) {
        case Style::InOut:
            return out ? std::vector<std::string>{Plain(size), ""}
                       : std::vector<std::string>{"", Plain(size)};
        case Style::InOutSigned:
            return out ? std::vector<std::string>{"-" + Plain(size), ""}
                       : std::vector<std::string>{"", Plain(size)};
        case Style::Marked: {
            const auto& [in, back] = Marks()[static_cast<std::size_t>(vocabulary_)];
            return {Plain(size), out ? back : in};
        }
        case Style::Inverted: return {Signed(-amount)};
        default: return {Signed(amount)};
    }
}

std::string RandomTable::Quoted(const std::string& cell)
{
    const bool needed = cell.find_first_of(std::string("\"\n\r") + delimiter_) != std::string::npos;
    if (!needed && (quoting_ < 2 || (quoting_ == 1 && Chance(50))))
        return cell;
    std::string quoted = "\"";
    for (const char c : cell)
        quoted += c == '"' ? "\"\"" : std::string(1, c);
    return quoted + "\"";
}

void RandomTable::WriteRow(const std::vector<std::string>& cells)
{
    for (std::size_t i = 0; i < cells.size(); ++i)
        text_ += (i > 0 ? std::string(1, delimiter_) : "") + Quoted(cells[i]);
    text_ += eol_;
}

void RandomTable::Write()
{
    static const std::vector<Language> languages = {
        {"Date", "Description", "Amount", "Money In", "Money Out", "Debit/Credit", "Balance",
         "Value Date", "Payee"},
        {"Buchungstag", "Verwendungszweck", "Betrag", "Haben", "Soll", "Soll/Haben", "Saldo",
         "Wertstellung", "Empfänger"},
        {"Date", "Libellé", "Montant", "Crédit", "Débit", "Sens", "Solde", "Date de valeur",
         "Tiers"},
        {"Datum", "Omschrijving", "Bedrag", "Bij", "Af", "Af Bij", "Saldo na mutatie", "Rentedatum",
         "Naam tegenpartij"},
        {"Fecha", "Concepto", "Importe", "Abono", "Cargo", "Signo", "Saldo", "Fecha valor",
         "Beneficiario"},
        {"Data contabile", "Descrizione", "Importo", "Avere", "Dare", "Segno", "Saldo",
         "Data valuta", "Controparte"},
        {"Bokföringsdag", "Beskrivning", "Belopp", "Insättning", "Uttag", "Tecken", "Saldo",
         "Valutadag", "Mottagare"},
        {"Data operacji", "Opis operacji", "Kwota", "Uznania", "Obciążenia", "Znak",
         "Saldo po operacji", "Data waluty", "Kontrahent"},
        {"Datum zaúčtování", "Popis", "Částka", "Příjmy", "Výdaje", "Znak", "Zůstatek",
         "Datum valuty", "Protistrana"},
        {"Kirjauspäivä", "Selitys", "Määrä", "Pano", "Otto", "Etumerkki", "Saldo", "Arvopäivä",
         "Saaja"},
        {"交易日期", "摘要", "金额", "收入", "支出", "收/支", "余额", "起息日", "对方户名"}};
    const Language& words = OneOf(languages);
    const bool names = Chance(50);
    if (header_ && Chance(30))
        WriteRow({"Account statement", "", ""});
    if (header_ && Chance(30))
        WriteRow({"From", DateText(rows_.front().date), "To", DateText(rows_.back().date)});
    if (header_)
        WriteHeader(words, names);
    WriteRows(names);
    WriteAfter();
}

void RandomTable::WriteHeader(const Language& words, bool names)
{
    const bool pair = style_ == Style::InOut || style_ == Style::InOutSigned;
    std::vector<std::string> header = {words.date};
    if (names)
        header.emplace_back(words.name);
    header.emplace_back(words.text);
    header.emplace_back(pair ? words.out : words.amount);
    if (pair)
        header.emplace_back(words.in);
    if (style_ == Style::Marked)
        header.emplace_back(words.mark);
    if (balance_)
        header.emplace_back(words.balance);
    if (valueDate_)
        header.emplace_back(words.valueDate);
    if (currency_)
        header.emplace_back("Currency");
    if (original_)
        header.emplace_back("Original amount");
    if (status_)
        header.emplace_back("Status");
    if (identifier_)
        header.emplace_back("Transaction ID");
    WriteRow(header);
}

/// The cells of the columns that only some banks have.
void RandomTable::AddMore(const RandomRow& row, std::vector<std::string>& cells)
{
    if (valueDate_)
        cells.push_back(DateText(Date::FromDays(row.date.Days() + Number(-1, 3))));
    if (currency_)
        cells.emplace_back(decimals_ == 3 ? "KWD" : "EUR");
    if (original_)
        cells.push_back(
            Chance(70) ? "" : Plain(Money::FromScaled(100 * std::int64_t{Number(1, 99'999)})));
    if (status_)
        cells.emplace_back("Booked");
    if (identifier_)
        cells.push_back("TX" + std::to_string(Number(100'000, 999'999)));
}

void RandomTable::WriteRows(bool names)
{
    Money balance = Money::FromScaled(100 * std::int64_t{Number(-99'999, 999'999)});
    if (newestFirst_)
        for (const RandomRow& row : rows_)
            balance += row.amount;
    for (const RandomRow& row : rows_) {
        if (!newestFirst_)
            balance += row.amount;
        std::vector<std::string> cells = {DateText(row.date)};
        if (names)
            cells.push_back("Someone " + std::to_string(Number(1, 9)));
        cells.push_back(row.text);
        for (const std::string& cell : AmountCells(row.amount))
            cells.push_back(cell);
        if (balance_)
            cells.push_back((balance.IsNegative() ? "-" : "") +
                            Plain(balance.IsNegative() ? -balance : balance));
        AddMore(row, cells);
        WriteRow(cells);
        if (newestFirst_)
            balance = balance - row.amount;
    }
}

void RandomTable::WriteAfter()
{
    if (header_ && Chance(20))
        WriteRow(
            {"Total", "", Plain(Money::FromScaled(123'400)), Plain(Money::FromScaled(567'800))});
    if (Chance(20))
        text_ += "This is no invoice." + eol_;
}

}  // namespace clb
