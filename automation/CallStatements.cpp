#include "automation/CallTable.h"

namespace clb {
namespace {

using Controller = frmController&;
using Arguments = CallArguments&;

}  // namespace

const OperationTable& StatementOperations()
{
    static const OperationTable operations = {
        {"ImportFile",
         {"",
          [](Controller c, Arguments) -> Json {
              c.Import().ImportFile();
              return nullptr;
          }}},
        {"WriteOFX",
         {"t",
          [](Controller c, Arguments a) -> Json {
              c.Export().WriteOFX(a.Text(0));
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

}  // namespace clb
