#include "automation/CallOperations.h"

#include "automation/CallArguments.h"
#include "automation/Request.h"
#include "base/modCommon.h"

#include <map>
#include <string_view>

namespace clb
{
namespace
{

using Call = Json (*)(frmController&, CallArguments&);
struct Operation {
    const char* kinds;  ///< of its arguments, see CallArguments
    Call call;
};
using Operations = std::map<std::string_view, Operation>;
using Controller = frmController&;
using Arguments = CallArguments&;

const Operations& StoreOperations()
{
    static const Operations operations = {
        {"ToSqlString",
         {"t",
          [](Controller, Arguments a) -> Json { return clsDatabase::ToSqlString(a.Text(0)); }}},
        {"TruncateString",
         {"tl",
          [](Controller, Arguments a) -> Json {
              return clsDatabase::TruncateString(a.Text(0), a.Long(1));
          }}},
        {"GetNextSequence",
         {"", [](Controller c, Arguments) -> Json { return c.Data().GetNextSequence(); }}},
        {"RowExists",
         {"tt",
          [](Controller c, Arguments a) -> Json {
              return c.Data().RowExists(a.Text(0), a.Text(1));
          }}},
        {"CanFind",
         {"tt",
          [](Controller c, Arguments a) -> Json {
              Recordset rows;
              c.Data().Fill(rows, a.Text(0), false);
              return clsDatabase::CanFind(rows, a.Text(1));
          }}},
        {"CreateBudgetEntry",
         {"tlltm",
          [](Controller c, Arguments a) -> Json {
              c.Data().CreateBudgetEntry(a.Text(0), a.Long(1), a.Long(2), a.Text(3), a.Amount(4));
              return nullptr;
          }}},
        {"CopyBudget",
         {"llll",
          [](Controller c, Arguments a) -> Json {
              c.Data().CopyBudget(a.Long(0), a.Long(1), a.Long(2), a.Long(3));
              return nullptr;
          }}},
        {"MoveMonth",
         {"lll",
          [](Controller c, Arguments a) -> Json {
              c.Data().MoveMonth(a.Long(0), a.Long(1), a.Long(2));
              return nullptr;
          }}},
        {"CalcTotals",
         {"|mm",
          [](Controller c, Arguments a) -> Json {
              c.Data().CalcTotals(a.Amount(0), a.Amount(1));
              return nullptr;
          }}},
        {"UpdateBalance",
         {"lt",
          [](Controller c, Arguments a) -> Json {
              c.Data().UpdateBalance(a.Long(0), a.Text(1));
              return nullptr;
          }}},
        {"ValidRow",
         {"|lt",
          [](Controller c, Arguments a) -> Json {
              return c.Data().ValidRow(a.Long(0), a.Text(1));
          }}},
        {"DeleteRow",
         {"b", [](Controller c, Arguments a) -> Json { return c.Data().DeleteRow(a.Flag(0)); }}},
    };
    return operations;
}

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

const Operations& ViewOperations()
{
    static const Operations operations = {
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
        {"ViewSet", {"tv", SetViewProperty}},
        {"ViewGet", {"t", GetViewProperty}},
    };
    return operations;
}

const Operations& GridOperations()
{
    static const Operations operations = {
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

const Operations& ImportOperations()
{
    static const Operations operations = {
        {"ImportFile",
         {"",
          [](Controller c, Arguments) -> Json {
              c.Import().ImportFile();
              return nullptr;
          }}},
        {"DetectFileFormat",
         {"t",
          [](Controller, Arguments a) -> Json { return modImport::DetectFileFormat(a.Text(0)); }}},
        {"FixLineEndings",
         {"t",
          [](Controller, Arguments a) -> Json {
              modImport::FixLineEndings(a.Text(0));
              return nullptr;
          }}},
        {"FindTag",
         {"ltt",
          [](Controller, Arguments a) -> Json {
              return statement_tags::FindTag(a.Long(0), a.Text(1), a.Text(2));
          }}},
        {"GetTagValue",
         {"ltt",
          [](Controller, Arguments a) -> Json {
              return statement_tags::GetTagValue(a.Long(0), a.Text(1), a.Text(2));
          }}},
        {"GetTagBlock",
         {"ltt",
          [](Controller, Arguments a) -> Json {
              return statement_tags::GetTagBlock(a.Long(0), a.Text(1), a.Text(2));
          }}},
    };
    return operations;
}

const Operations& CommonOperations()
{
    static const Operations operations = {
        {"TimeZoneOffset",
         {"",
          [](Controller c, Arguments) -> Json {
              return modCommon::TimeZoneOffset(c.Outside().clock.Zone());
          }}},
        {"Max",
         {"ll",
          [](Controller, Arguments a) -> Json { return modCommon::Max(a.Long(0), a.Long(1)); }}},
        {"Min",
         {"ll",
          [](Controller, Arguments a) -> Json { return modCommon::Min(a.Long(0), a.Long(1)); }}},
    };
    return operations;
}

const Operation& FindOperation(const std::string& name)
{
    for (const Operations* group : {&StoreOperations(), &ViewOperations(), &GridOperations(),
                                    &ImportOperations(), &CommonOperations()}) {
        const auto found = group->find(name);
        if (found != group->end())
            return found->second;
    }
    throw RequestError("Unknown operation: " + name);
}

}  // namespace

Json CallOperation(frmController& controller, const std::string& name, const Json& given)
{
    const Operation& operation = FindOperation(name);
    CallArguments arguments(given, operation.kinds);
    Json result = operation.call(controller, arguments);
    return {{"result", std::move(result)}, {"args", arguments.ToJson()}};
}

}  // namespace clb
