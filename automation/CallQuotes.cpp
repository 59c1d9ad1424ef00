#include "automation/CallTable.h"
#include "quotes/clsStockQuote.h"

namespace clb {
namespace {

using Controller = frmController&;
using Arguments = CallArguments&;

Json Quote(Controller c, Arguments a)
{
    clsStockQuote quote(c.Outside().http, c.QuoteService());
    quote.Symbol(a.Text(0));
    return {{"Symbol", quote.Symbol()},
            {"Quote", quote.Quote()},
            {"LastTradeDate", quote.LastTradeDate()},
            {"LastTradeTime", quote.LastTradeTime()},
            {"Change", quote.Change()},
            {"PercentageChange", quote.PercentageChange()},
            {"Opening", quote.Opening()},
            {"DayHigh", quote.DayHigh()},
            {"DayLow", quote.DayLow()},
            {"Bid", quote.Bid()},
            {"Ask", quote.Ask()},
            {"Volume", quote.Volume()}};
}

}  // namespace

const OperationTable& QuoteOperations()
{
    static const OperationTable operations = {{"Quote", {"t", Quote}}};
    return operations;
}

}  // namespace clb
