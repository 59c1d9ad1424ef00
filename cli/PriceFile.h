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

/// Prices by symbol, in capitals.
using StockPrices = std::map<std::string, StockPrice>;

/// Reads the text of a price file: one stock a line, four columns divided by commas (symbol, price,
/// previous close, date yyyy-mm-dd), double quotes around a field allowed. Blank lines do not
/// count, and neither does a first line whose first field is "symbol". Every line that is none of
/// this is told in mistakes, with its number.
StockPrices ReadPrices(const std::string& text, std::vector<std::string>& mistakes);

/// A price file that may be changed while it is in use.
class PriceFile {
public:
    /// Reads the file. Throws RuntimeError when it cannot be read or has mistakes. complaints is
    /// borrowed.
    PriceFile(std::string path, std::ostream& complaints);

    /// The stock's price as the file stands now; nothing for another symbol, whatever its case.
    /// While the changed file cannot be read or has mistakes the former prices hold, and each such
    /// state of the file is complained of once.
    std::optional<StockPrice> Find(const std::string& symbol);

private:
    void ReadAgain();
    std::optional<std::string> Load() const;
    std::string Told(const std::vector<std::string>& mistakes) const;

    std::string path_;
    std::ostream& complaints_;
    std::optional<std::string> text_;  // as last read, good or not
    StockPrices prices_;
};

/// The answer of a quote service for the symbol: twelve fields in one line. Fields that no price
/// file tells are "N/A", all but the symbol and the price "0.00" when there is no price.
std::string QuoteLine(const std::string& symbol, const std::optional<StockPrice>& price);

}  // namespace clb
