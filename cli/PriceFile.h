// The price file of "clb quote-server".
#pragma once
#include <iosfwd>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/Date.h"
#include "base/Money.h"

namespace clb {

/// One stock's line in a price file.
struct StockPrice {
    std::string symbol;
    Money price;
    Money previousClose;
    Date date;
};

/// Prices by symbol. The keys are in capitals.
using StockPrices = std::map<std::string, StockPrice>;

/// Reads the text of a price file. Each line holds one stock in four columns separated by commas:
/// symbol, price, previous close, date (yyyy-mm-dd). Fields may be in double quotes. Ignores blank
/// lines, and a first line whose first field is "symbol". Adds a message with the line's number to
/// mistakes for every other line.
StockPrices ReadPrices(const std::string& text, std::vector<std::string>& mistakes);

/// A price file that may be changed while it is in use.
class PriceFile {
public:
    /// Reads the file. Throws RuntimeError if it cannot be read or has mistakes. Later mistakes are
    /// reported to the stream, which is borrowed.
    PriceFile(std::string path, std::ostream& complaints);

    /// The stock's price in the file as it is now. Ignores the symbol's case. Returns nothing if
    /// the file does not list it. If the file has changed and now cannot be read or has mistakes,
    /// reports that once and keeps the old prices.
    [[nodiscard]] std::optional<StockPrice> Find(const std::string& symbol);

private:
    void ReadAgain();
    [[nodiscard]] std::optional<std::string> Load() const;
    [[nodiscard]] std::string Report(const std::vector<std::string>& mistakes) const;

    std::string path_;
    std::ostream& complaints_;
    std::optional<std::string> text_;  // as last read, with mistakes or not
    StockPrices prices_;
};

/// A quote service's answer for the symbol: twelve fields on one line. Fields that a price file
/// does not contain are "N/A". Without a price, the price is "0.00" and all others but the symbol
/// are "N/A".
[[nodiscard]] std::string QuoteLine(const std::string& symbol,
                                    const std::optional<StockPrice>& price);

}  // namespace clb
