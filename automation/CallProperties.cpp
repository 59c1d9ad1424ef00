#include "automation/CallProperties.h"

#include "app/clsOpenSave.h"
#include "automation/Request.h"
#include "quotes/clsStockQuote.h"

namespace clb {
namespace {

/// The value as the property's type. Throws RequestError if it is of another.
template <class Type>
const Type& ReadAs(const Value& value, const char* kind)
{
    if (const auto* as = std::get_if<Type>(&value))
        return *as;
    throw RequestError(std::string("Wrong argument: the value must be ") + kind);
}

struct TextProperty {
    const char* name;
    std::string clsOpenSave::*member;
};
constexpr TextProperty kTextProperties[] = {
    {"FileExt", &clsOpenSave::FileExt},         {"InitDir", &clsOpenSave::InitDir},
    {"FileTitle", &clsOpenSave::FileTitle},     {"FileName", &clsOpenSave::FileName},
    {"DialogTitle", &clsOpenSave::DialogTitle}, {"DefaultExt", &clsOpenSave::DefaultExt},
};

struct LongProperty {
    const char* name;
    std::int32_t clsOpenSave::*member;
};
constexpr LongProperty kLongProperties[] = {
    {"hWnd", &clsOpenSave::hWnd},
    {"MaxFileSize", &clsOpenSave::MaxFileSize},
    {"Flags", &clsOpenSave::Flags},
    {"FilterIndex", &clsOpenSave::FilterIndex},
};

void SetProperty(clsOpenSave& dialog, const std::string& name, const Request& values)
{
    if (name == "Filter")
        return dialog.Filter(values.Text("Filter"));
    for (const TextProperty& property : kTextProperties)
        if (name == property.name) {
            dialog.*property.member = values.Text(property.name);
            return;
        }
    for (const LongProperty& property : kLongProperties)
        if (name == property.name) {
            dialog.*property.member = values.Long(property.name);
            return;
        }
    throw RequestError("Unknown property: " + name);
}

Json Properties(const clsOpenSave& dialog)
{
    Json values{{"Filter", dialog.Filter()}};
    for (const TextProperty& property : kTextProperties)
        values[property.name] = dialog.*property.member;
    for (const LongProperty& property : kLongProperties)
        values[property.name] = dialog.*property.member;
    return values;
}

}  // namespace

void SetViewProperty(clsView& view, const std::string& property, const Value& value)
{
    constexpr const char* kText = "a text";
    constexpr const char* kNumber = "a whole number";
    if (property == "View")
        view.View(ReadAs<std::int32_t>(value, kNumber));
    else if (property == "Period")
        view.Period(ReadAs<std::int32_t>(value, kNumber));
    else if (property == "Year")
        view.Year(ReadAs<std::int32_t>(value, kNumber));
    else if (property == "AccountType")
        view.AccountType(ReadAs<std::string>(value, kText));
    else if (property == "AccountID")
        view.AccountID(ReadAs<std::string>(value, kText));
    else if (property == "HoldRefresh")
        view.HoldRefresh(ReadAs<bool>(value, "true or false"));
    else
        throw RequestError("Unknown property: " + property);
}

Json ViewProperty(clsView& view, const std::string& property)
{
    if (property == "View")
        return view.View();
    if (property == "Period")
        return view.Period();
    if (property == "Year")
        return view.Year();
    if (property == "AccountType")
        return view.AccountType();
    if (property == "AccountID")
        return view.AccountID();
    throw RequestError("No readable property: " + property);
}

Json AskForFile(frmController& controller, const std::string& kind, const Json& properties)
{
    clsOpenSave dialog(controller.GivenPorts().files);
    for (const auto& property : properties.items())
        SetProperty(dialog, property.key(), Request(properties));
    if (kind != "open" && kind != "save")
        throw RequestError("Wrong argument: argument 1 must be \"open\" or \"save\"");
    Json result{{"chosen", kind == "open" ? dialog.GetFileName() : dialog.ShowSave()}};
    result.update(Properties(dialog));
    return result;
}

std::string FilterReadBack(frmController& controller, const std::string& filter)
{
    clsOpenSave dialog(controller.GivenPorts().files);
    dialog.Filter(filter);
    return dialog.Filter();
}

Json QuoteProperties(frmController& controller, const std::string& symbol)
{
    clsStockQuote quote(controller.GivenPorts().http, controller.QuoteService());
    quote.Symbol(symbol);
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

}  // namespace clb
