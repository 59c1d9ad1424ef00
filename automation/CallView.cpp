#include "automation/CallTable.h"
#include "automation/Request.h"

namespace clb {
namespace {

using Controller = frmController&;
using Arguments = CallArguments&;

std::string TextOf(const Value& value)
{
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    throw RequestError("Wrong argument: the value must be a text");
}

std::int32_t LongOf(const Value& value)
{
    if (const auto* number = std::get_if<std::int32_t>(&value))
        return *number;
    throw RequestError("Wrong argument: the value must be a whole number");
}

bool FlagOf(const Value& value)
{
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag;
    throw RequestError("Wrong argument: the value must be true or false");
}

Json SetViewProperty(Controller c, Arguments a)
{
    clsView& view = c.View();
    const std::string& property = a.Text(0);
    const Value& value = a.Any(1);
    if (property == "View")
        view.View(LongOf(value));
    else if (property == "Period")
        view.Period(LongOf(value));
    else if (property == "Year")
        view.Year(LongOf(value));
    else if (property == "AccountType")
        view.AccountType(TextOf(value));
    else if (property == "AccountID")
        view.AccountID(TextOf(value));
    else if (property == "HoldRefresh")
        view.HoldRefresh(FlagOf(value));
    else
        throw RequestError("Unknown property: " + property);
    return nullptr;
}

Json GetViewProperty(Controller c, Arguments a)
{
    const clsView& view = c.View();
    const std::string& property = a.Text(0);
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

}  // namespace

const OperationTable& ViewOperations()
{
    static const OperationTable operations = {
        {"ViewFromAccountType",
         {"t",
          [](Controller, Arguments a) -> Json { return clsView::ViewFromAccountType(a.Text(0)); }}},
        {"FindTreeNodeByTag",
         {"t",
          [](Controller c, Arguments a) -> Json { return c.View().FindTreeNodeByTag(a.Text(0)); }}},
        {"GetTreeNodeAccountInfo",
         {"l",
          [](Controller c, Arguments a) -> Json {
              return c.View().GetTreeNodeAccountInfo(a.Long(0));
          }}},
        {"Refresh",
         {"",
          [](Controller c, Arguments) -> Json {
              c.View().Refresh();
              return nullptr;
          }}},
        {"BuildTree",
         {"",
          [](Controller c, Arguments) -> Json {
              c.View().BuildTree();
              return nullptr;
          }}},
        {"ViewDeleteRow",
         {"", [](Controller c, Arguments) -> Json { return c.View().DeleteRow(); }}},
        {"ViewSet", {"tv", SetViewProperty}},
        {"ViewGet", {"t", GetViewProperty}},
    };
    return operations;
}

const OperationTable& GridOperations()
{
    static const OperationTable operations = {
        {"ColumnValue",
         {"l", [](Controller c, Arguments a) { return ToJson(c.Grid.ColumnValue(a.Long(0))); }}},
        {"ColumnValueSet",
         {"lv",
          [](Controller c, Arguments a) -> Json {
              c.Grid.ColumnValue(a.Long(0), a.Any(1));
              return nullptr;
          }}},
        {"ShowToolTips",
         {"b",
          [](Controller c, Arguments a) -> Json {
              c.Grid.ShowToolTips(a.Flag(0));
              return nullptr;
          }}},
        {"Col",
         {"l",
          [](Controller c, Arguments a) -> Json {
              c.Grid.Col(a.Long(0));
              return nullptr;
          }}},
        {"MoveToRowKey",
         {"v",
          [](Controller c, Arguments a) -> Json {
              c.Grid.MoveToRowKey(a.Any(0));
              return nullptr;
          }}},
        {"Refetch",
         {"",
          [](Controller c, Arguments) -> Json {
              c.Grid.Refetch();
              return nullptr;
          }}},
        {"CancelEdit",
         {"",
          [](Controller c, Arguments) -> Json {
              c.Grid.CancelEdit();
              return nullptr;
          }}},
    };
    return operations;
}

}  // namespace clb
