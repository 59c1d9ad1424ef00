#include "quotes/clsStockQuote.h"

#include <cmath>

#include "base/Numeric.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "ports/IHttpClient.h"

namespace clb {
namespace {

/// Rounds a number and groups its digits. Returns any other text, and a number that is too large,
/// unchanged.
std::string GroupedVolume(const std::string& field)
{
    const auto number = Numeric::Read(field);
    if (!number)
        return field;
    try {
        return Numeric::Grouped(std::round(number->ToDouble()), 0);
    } catch (const RuntimeError&) {
        return field;
    }
}

}  // namespace

clsStockQuote::clsStockQuote(IHttpClient& http, std::string service)
    : http_(http), service_(std::move(service))
{
    ClearQuote();
}

void clsStockQuote::Symbol(const std::string& symbol)
{
    symbol_ = symbol;
    const std::string answer =
        FetchUrl(service_ + "/d/quotes.csv?s=" + symbol + "&f=sl1d1t1c1p2ohgbav&e=.csv");
    std::size_t last = 0;
    const auto fields = SplitFields(answer, ',', last);
    if (last < 11) {
        ClearQuote();
        return;
    }
    std::string* const properties[] = {
        &symbol_,  &quote_,   &lastTradeDate_, &lastTradeTime_, &change_, &percentageChange_,
        &opening_, &dayHigh_, &dayLow_,        &bid_,           &ask_,    &volume_};
    for (std::size_t i = 0; i < std::size(properties); ++i)
        *properties[i] = StripQuotes(fields[i]);
    volume_ = GroupedVolume(volume_);
}

std::string clsStockQuote::FetchUrl(const std::string& url)
{
    std::string answer = http_.Get(url).value_or("");
    // The answer is one line. Its line end is not part of a field.
    answer.erase(answer.find_last_not_of("\r\n") + 1);
    return answer;
}

std::vector<std::string> clsStockQuote::SplitFields(const std::string& text, char delimiter,
                                                    std::size_t& last)
{
    auto pieces = Split(text, delimiter);
    last = pieces.size() - 1;
    return pieces;
}

std::string clsStockQuote::StripQuotes(const std::string& field)
{
    return Replace(field, "\"", "");
}

void clsStockQuote::ClearQuote()
{
    quote_ = "0.00";
    for (std::string* property : {&lastTradeDate_, &lastTradeTime_, &change_, &percentageChange_,
                                  &opening_, &dayHigh_, &dayLow_, &bid_, &ask_, &volume_})
        *property = "N/A";
}

}  // namespace clb
