// Any bytes as the quote service's answer: the quote has texts, and none of them is empty by
// accident.

#include <algorithm>
#include <optional>

#include "ports/IHttpClient.h"
#include "quotes/clsStockQuote.h"
#include "tests/fuzz/Fuzz.h"

namespace {

class OneAnswer : public clb::IHttpClient {
public:
    explicit OneAnswer(std::string_view answer) : answer_(answer) {}
    std::optional<std::string> Get(const std::string& /*url*/) override { return answer_; }

private:
    std::string answer_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    OneAnswer http(TextOf(data, size));
    clsStockQuote quote(http, "http://127.0.0.1:8271");
    quote.Symbol("ACME");
    const std::string_view answer = TextOf(data, size);
    if (std::count(answer.begin(), answer.end(), ',') < 11) {
        Require(quote.Symbol() == "ACME");
        Require(quote.Quote() == "0.00" && quote.Change() == "N/A" && quote.Volume() == "N/A");
    } else {
        Require(quote.Quote().find_first_of("\",") == std::string::npos);
    }
    // A volume like 1e300 is written out: at most 309 digits and the commas between them.
    constexpr std::size_t kLongestNumber = 309 + 102;
    Require(quote.Volume().size() <= 2 * size + 3 + kLongestNumber);
    return 0;
}
