#include "automation/CallOperations.h"

#include <array>
#include <map>

#include "automation/Bind.h"
#include "automation/CallProperties.h"
#include "base/modCommon.h"

namespace clb {
namespace {

using Operations = std::map<std::string_view, Operation>;

bool CanFind(clsDatabase& data, const std::string& sql, const std::string& criterion)
{
    Recordset rows;
    data.Fill(rows, sql, false);
    return clsDatabase::CanFind(rows, criterion);
}

Value ColumnValue(CVGrid& grid, std::int32_t column)
{
    return grid.ColumnValue(column);
}

void SetColumnValue(CVGrid& grid, std::int32_t column, const Value& value)
{
    grid.ColumnValue(column, value);
}

void ShowToolTips(CVGrid& grid, bool show)
{
    grid.ShowToolTips(show);
}

std::int32_t TimeZoneOffset(frmController& controller)
{
    return modCommon::TimeZoneOffset(controller.GivenPorts().clock.Zone());
}

Operations StoreOperations()
{
    return {
        {"CalcTotals", Bind(&clsDatabase::CalcTotals, MayOmit{2})},
        {"CanFind", Bind(&CanFind)},
        {"CopyBudget", Bind(&clsDatabase::CopyBudget)},
        {"CreateBudgetEntry", Bind(&clsDatabase::CreateBudgetEntry)},
        {"DeleteRow", Bind(&clsDatabase::DeleteRow)},
        {"GetNextSequence", Bind(&clsDatabase::GetNextSequence)},
        {"MoveMonth", Bind(&clsDatabase::MoveMonth)},
        {"RowExists", Bind(&clsDatabase::RowExists)},
        {"SplitTransaction", Bind(&clsDatabase::SplitTransaction)},
        {"ToSqlString", Bind(&clsDatabase::ToSqlString)},
        {"TruncateString", Bind(&clsDatabase::TruncateString)},
        {"UpdateBalance", Bind(&clsDatabase::UpdateBalance)},
        {"ValidRow", Bind(&clsDatabase::ValidRow, MayOmit{2})},
    };
}

Operations ViewOperations()
{
    return {
        {"BuildTree", Bind(&clsView::BuildTree)},
        {"CancelEdit", Bind(&CVGrid::CancelEdit)},
        {"Col", Bind(static_cast<void (CVGrid::*)(std::int32_t)>(&CVGrid::Col))},
        {"ColumnValue", Bind(&ColumnValue)},
        {"ColumnValueSet", Bind(&SetColumnValue)},
        {"FindTreeNodeByTag", Bind(&clsView::FindTreeNodeByTag)},
        {"GetTreeNodeAccountInfo", Bind(&clsView::GetTreeNodeAccountInfo)},
        {"MoveToRowKey", Bind(&CVGrid::MoveToRowKey)},
        {"Refetch", Bind(&CVGrid::Refetch)},
        {"Refresh", Bind(&clsView::Refresh)},
        {"ShowToolTips", Bind(&ShowToolTips)},
        {"ViewDeleteRow", Bind(&clsView::DeleteRow)},
        {"ViewFromAccountType", Bind(&clsView::ViewFromAccountType)},
        {"ViewGet", Bind(&ViewProperty)},
        {"ViewSet", Bind(&SetViewProperty)},
    };
}

/// Statement files, quotes, settings, file dialogs and small routines.
Operations OtherOperations()
{
    return {
        {"DetectFileFormat", Bind(&modImport::DetectFileFormat)},
        {"Filter", Bind(&FilterReadBack)},
        {"FindTag", Bind(&statement_tags::FindTag)},
        {"FixLineEndings", Bind(&modImport::FixLineEndings)},
        {"GetTagBlock", Bind(&statement_tags::GetTagBlock)},
        {"GetTagValue", Bind(&statement_tags::GetTagValue)},
        {"ImportFile", Bind(&modImport::ImportFile)},
        {"IniGetLong", Bind(&clsIni::GetLong)},
        {"IniGetString", Bind(&clsIni::GetString, MayOmit{1})},
        {"IniWriteLong", Bind(&clsIni::WriteLong)},
        {"IniWriteString", Bind(&clsIni::WriteString)},
        {"Max", Bind(&modCommon::Max)},
        {"Min", Bind(&modCommon::Min)},
        {"OpenSave", Bind(&AskForFile)},
        {"Quote", Bind(&QuoteProperties)},
        {"TimeZoneOffset", Bind(&TimeZoneOffset)},
        {"WriteOFX", Bind(&modExport::WriteOFX)},
    };
}

const Operation& FindOperation(const std::string& name)
{
    static const std::array groups = {StoreOperations(), ViewOperations(), OtherOperations()};
    for (const Operations& group : groups) {
        const auto found = group.find(name);
        if (found != group.end())
            return found->second;
    }
    throw RequestError("Unknown operation: " + name);
}

}  // namespace

Json CallOperation(frmController& controller, const std::string& name, const Json& arguments)
{
    return FindOperation(name)(controller, arguments);
}

}  // namespace clb
