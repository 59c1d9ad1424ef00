#include "automation/CallTable.h"

namespace clb {
namespace {

using Controller = frmController&;
using Arguments = CallArguments&;

}  // namespace

const OperationTable& StoreOperations()
{
    static const OperationTable operations = {
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
        {"SplitTransaction",
         {"llmm",
          [](Controller c, Arguments a) -> Json {
              c.Data().SplitTransaction(a.Long(0), a.Long(1), a.Amount(2), a.Amount(3));
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

}  // namespace clb
