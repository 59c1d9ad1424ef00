#include "cli/PriceFile.h"

#include <array>
#include <cstdio>
#include <ostream>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "files/FileError.h"
#include "files/ReadFile.h"

namespace clb {
namespace {

/// The fields of a line. Commas between double quotes do not separate fields.
std::vector<std::string> Fields(const std::string& line)
{
    std::vector<std::string> fields(1);
    bool quoted = false;
    for (const char character : line) {
        if (character == '"')
            quoted = !quoted;
        else if (character == ',' && !quoted)
            fields.emplace_back();
        else
            fields.back() += character;
    }
    for (std::string& field : fields)
        field = Trim(field);
    return fields;
}

/// A symbol is part of an address and of a comma-separated answer.
bool IsSymbol(const std::string& text)
{
    for (const char character : text)
        if (static_cast<unsigned char>(character) <= ' ' || character == ',' || character == 0x7F)
            return false;
    return !text.empty();
}

std::optional<Money> Price(const std::string& text)
{
    try {
        const auto price = Money::TryParse(text);
        return price && !price->IsNegative() ? price : std::nullopt;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

std::string Quoted(const std::string& text)
{
    return "\"" + text + "\"";
}

/// The line's price. If the line has none, returns nothing and sets mistake.
std::optional<StockPrice> ReadLine(const std::string& line, std::string& mistake)
{
    const std::vector<std::string> fields = Fields(line);
    if (fields.size() != 4) {
        mistake = "there must be 4 columns (symbol, price, previous close, date), not " +
                  std::to_string(fields.size());
        return std::nullopt;
    }
    const auto price = Price(fields[1]);
    const auto previous = Price(fields[2]);
    const auto date = Date::FromIso(fields[3]);
    if (!IsSymbol(fields[0]))
        mistake = "the symbol " + Quoted(fields[0]) + " is empty or holds a blank or a comma";
    else if (!price)
        mistake = "the price " + Quoted(fields[1]) + " is not an amount";
    else if (!previous)
        mistake = "the previous close " + Quoted(fields[2]) + " is not an amount";
    else if (!date)
        mistake = "the date " + Quoted(fields[3]) + " is not yyyy-mm-dd";
    else
        return StockPrice{fields[0], *price, *previous, *date};
    return std::nullopt;
}

std::string SignedText(Money amount)
{
    return (amount > Money() ? "+" : "") + amount.ToText();
}

std::string Percentage(const StockPrice& stock)
{
    if (stock.previousClose.IsZero())
        return "N/A";
    const double share = (stock.price.ToDouble() / stock.previousClose.ToDouble() - 1) * 100;
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "%+.2f%%", share);
    return text.data();
}

/// The date as quote services write it: month/day/year.
std::string ServiceDate(const Date& date)
{
    return std::to_string(date.Month()) + "/" + std::to_string(date.Day()) + "/" +
           std::to_string(date.Year());
}

}  // namespace

StockPrices ReadPrices(const std::string& text, std::vector<std::string>& mistakes)
{
    StockPrices prices;
    std::size_t number = 0;
    for (std::string line : Split(text, '\n')) {
        ++number;
        line.erase(line.find_last_not_of(" \t\r") + 1);
        const bool heading = number == 1 && EqualsIgnoringCase(Fields(line)[0], "symbol");
        if (line.empty() || heading)
            continue;
        std::string mistake;
        const auto stock = ReadLine(line, mistake);
        if (stock && !prices.emplace(ToUpperAscii(stock->symbol), *stock).second)
            mistake = "the symbol " + Quoted(stock->symbol) + " has a line already";
        if (!mistake.empty())
            mistakes.push_back("line " + std::to_string(number) + ": " + mistake);
    }
    return prices;
}

PriceFile::PriceFile(std::string path, std::ostream& complaints)
    : path_(std::move(path)), complaints_(complaints), text_(Load())
{
    if (!text_)
        throw RuntimeError(errors::FileNotFound, "Cannot read " + path_);
    std::vector<std::string> mistakes;
    prices_ = ReadPrices(DecodeFile(*text_), mistakes);
    if (!mistakes.empty())
        throw RuntimeError(errors::InvalidCall, Report(mistakes));
}

std::optional<std::string> PriceFile::Load() const
{
    try {
        return ReadFile(path_);
    } catch (const FileError&) {
        return std::nullopt;
    }
}

std::string PriceFile::Report(const std::vector<std::string>& mistakes) const
{
    std::string report;
    for (const std::string& mistake : mistakes)
        report += (report.empty() ? "" : "\n") + path_ + ", " + mistake;
    return report;
}

void PriceFile::ReadAgain()
{
    // Compares the text: two quick writes can leave the file with the same time.
    auto text = Load();
    if (text == text_)
        return;
    text_ = std::move(text);
    std::vector<std::string> mistakes;
    StockPrices fresh;
    if (text_)
        fresh = ReadPrices(DecodeFile(*text_), mistakes);
    if (text_ && mistakes.empty())
        prices_ = std::move(fresh);
    else
        complaints_ << (text_ ? Report(mistakes) : "Cannot read " + path_)
                    << "\nThe old prices stay in use." << std::endl;
}

std::optional<StockPrice> PriceFile::Find(const std::string& symbol)
{
    ReadAgain();
    const auto found = prices_.find(ToUpperAscii(symbol));
    return found == prices_.end() ? std::nullopt : std::optional(found->second);
}

std::string QuoteLine(const std::string& symbol, const std::optional<StockPrice>& price)
{
    if (!price) {
        // A comma or quote in the symbol would shift the fields.
        const std::string named = Replace(Replace(symbol, ",", ""), "\"", "");
        return Quoted(named) + R"(,0.00,"N/A","N/A",N/A,"N/A",N/A,N/A,N/A,N/A,N/A,N/A)" + "\r\n";
    }
    return Quoted(price->symbol) + "," + price->price.ToText() + "," +
           Quoted(ServiceDate(price->date)) + ",\"N/A\"," +
           SignedText(price->price - price->previousClose) + "," + Quoted(Percentage(*price)) +
           ",N/A,N/A,N/A,N/A,N/A,N/A\r\n";
}

}  // namespace clb
