// A stock's quote from the quote service.
#pragma once
#include <string>
#include <vector>

namespace clb {

class IHttpClient;

/// A stock's quote, in the texts of the quote service. Setting the symbol fetches the quote. If the
/// answer is not valid, Quote is "0.00" and everything else "N/A".
class clsStockQuote {
public:
    /// service: scheme, host and port, e.g. "http://127.0.0.1:8271". The client is borrowed.
    clsStockQuote(IHttpClient& http, std::string service);

    [[nodiscard]] const std::string& Symbol() const { return symbol_; }
    /// Stores the symbol and fetches its quote. Throws PortError if the request cannot be made.
    void Symbol(const std::string& symbol);

    [[nodiscard]] const std::string& Quote() const { return quote_; }
    [[nodiscard]] const std::string& LastTradeDate() const { return lastTradeDate_; }
    [[nodiscard]] const std::string& LastTradeTime() const { return lastTradeTime_; }
    [[nodiscard]] const std::string& Change() const { return change_; }
    [[nodiscard]] const std::string& Opening() const { return opening_; }
    [[nodiscard]] const std::string& DayHigh() const { return dayHigh_; }
    [[nodiscard]] const std::string& DayLow() const { return dayLow_; }
    [[nodiscard]] const std::string& Bid() const { return bid_; }
    [[nodiscard]] const std::string& Ask() const { return ask_; }
    /// With digit grouping if it is a number.
    [[nodiscard]] const std::string& Volume() const { return volume_; }
    [[nodiscard]] const std::string& PercentageChange() const { return percentageChange_; }

private:
    std::string FetchUrl(const std::string& url);
    static std::vector<std::string> SplitFields(const std::string& text, char delimiter,
                                                std::size_t& last);
    static std::string StripQuotes(const std::string& field);
    void ClearQuote();

    IHttpClient& http_;
    std::string service_;
    std::string symbol_;
    std::string quote_;
    std::string lastTradeDate_;
    std::string lastTradeTime_;
    std::string change_;
    std::string percentageChange_;
    std::string opening_;
    std::string dayHigh_;
    std::string dayLow_;
    std::string bid_;
    std::string ask_;
    std::string volume_;
};

}  // namespace clb
