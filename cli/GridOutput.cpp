#include "cli/GridOutput.h"

namespace clb {
namespace {

using Indexes = std::vector<std::int32_t>;

Indexes ShownColumns(const GridColumns& columns, const Indexes& also)
{
    Indexes visible;
    for (const std::int32_t index : columns.Displayed())
        if (!columns.Item(index).hidden)
            visible.push_back(index);
    visible.insert(visible.end(), also.begin(), also.end());
    return visible;
}

bool IsFigure(FieldType type)
{
    return type == FieldType::Long || type == FieldType::Money || type == FieldType::Double ||
           type == FieldType::Single;
}

std::vector<std::string> CellTexts(CVGrid& grid, std::size_t row, const Indexes& columns)
{
    std::vector<std::string> texts;
    for (const std::int32_t column : columns)
        texts.push_back(grid.CellText(row, column));
    return texts;
}

Json RowJson(CVGrid& grid, std::size_t row, const Indexes& columns)
{
    Json values = Json::object();
    for (const std::int32_t index : columns) {
        const GridColumn& column = grid.Columns().Item(index);
        values[column.Calculated() ? column.caption : column.dbField] =
            ToJson(grid.CellValue(row, index));
    }
    return values;
}

}  // namespace

Table GridTable(CVGrid& grid, const Indexes& also)
{
    Table table;
    const Indexes columns = ShownColumns(grid.Columns(), also);
    for (const std::int32_t index : columns) {
        const GridColumn& column = grid.Columns().Item(index);
        table.AddColumn(column.caption, IsFigure(column.dataType));
    }
    for (std::size_t row = 1; row <= grid.Rows().Count(); ++row) {
        switch (grid.Rows().Kind(row)) {
            case GridRowKind::Data: table.AddRow(CellTexts(grid, row, columns)); break;
            case GridRowKind::GroupHeading: table.AddLine(grid.Rows().HeadingText(row)); break;
            case GridRowKind::GroupFooter: table.AddLine(grid.FooterText(row)); break;
            case GridRowKind::NewRow: break;
        }
    }
    return table;
}

Json GridJson(CVGrid& grid, const Indexes& also)
{
    Json rows = Json::array();
    const Indexes columns = ShownColumns(grid.Columns(), also);
    for (std::size_t row = 1; row <= grid.Rows().Count(); ++row)
        if (grid.Rows().Kind(row) == GridRowKind::Data)
            rows.push_back(RowJson(grid, row, columns));
    return rows;
}

}  // namespace clb
