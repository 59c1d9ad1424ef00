#include "automation/StateReport.h"

namespace clb {
namespace {

/// The lines of all menus, those of added menus last.
std::vector<const MenuItem*> Lines(MenuBar& menus)
{
    std::vector<const MenuItem*> lines;
    for (const bool added : {false, true})
        for (const Menu& menu : menus.Menus())
            if (menu.Added() == added)
                for (const MenuItem& item : menu.Items())
                    lines.push_back(&item);
    return lines;
}

Json DescribeMenus(MenuBar& menus)
{
    Json items = Json::object();
    for (const MenuItem* const line : Lines(menus)) {
        const MenuItem& item = *line;
        if (!item.Separator())
            items[item.Name()] = {{"caption", item.Caption()}, {"enabled", item.Enabled()}};
    }
    return items;
}

Json MenuOrder(MenuBar& menus)
{
    Json names = Json::array();
    for (const MenuItem* const line : Lines(menus))
        names.push_back(line->Name());
    return names;
}

Json DescribeToolbar(const Toolbar& toolbar)
{
    Json buttons = Json::object();
    for (const Toolbar::Button& button : toolbar.Buttons())
        buttons[button.key] = button.enabled;
    return buttons;
}

Json Texts(const ListBox& list)
{
    Json texts = Json::array();
    for (const ListBox::Item& item : list.Items())
        texts.push_back(item.text);
    return texts;
}

Json DescribeColumn(const GridColumns& columns, std::int32_t index)
{
    const GridColumn& column = columns.Item(index);
    Json values;
    Json popup;
    if (column.popup) {
        values = Json::array();
        popup = {{"type", column.popup->type},
                 {"rows", column.popup->rows},
                 {"width", column.popup->width}};
    }
    for (const GridValueItem& item : column.valueItems)
        values.push_back(ToJson(item.value));
    return {{"index", index},
            {"key", column.key},
            {"caption", column.caption},
            {"type", TypeName(column.dataType)},
            {"hidden", column.hidden},
            {"readOnly", column.readOnly},
            {"position", columns.Position(index)},
            {"width", column.width},
            {"alignment", column.alignment},
            {"headingAlignment", column.headingAlignment},
            {"values", values},
            {"popup", popup},
            {"calculated", column.Calculated()}};
}

Json Cells(GridComponent& grid, std::size_t row)
{
    Json cells = Json::array();
    for (std::int32_t column = 1; column <= grid.Columns().Count(); ++column)
        cells.push_back(ToJson(grid.CellValue(row, column)));
    return cells;
}

Json DescribeRow(GridComponent& grid, std::size_t row)
{
    Json described{{"row", row}};
    switch (grid.Rows().Kind(row)) {
        case GridRowKind::Data:
            described["kind"] = "data";
            described["key"] = ToJson(grid.Rows().Key(row));
            described["values"] = Cells(grid, row);
            break;
        case GridRowKind::GroupHeading:
            described["kind"] = "group";
            described["text"] = grid.Rows().HeadingText(row);
            break;
        case GridRowKind::GroupFooter:
            described["kind"] = "footer";
            described["text"] = grid.FooterText(row);
            break;
        case GridRowKind::NewRow:
            described["kind"] = "new";
            described["values"] = Cells(grid, row);
            break;
    }
    return described;
}

Json DescribePlace(const Control& control)
{
    const Bounds& place = control.Place();
    return {
        {"left", place.left}, {"top", place.top}, {"width", place.width}, {"height", place.height}};
}

}  // namespace

Json DescribeWindow(frmController& controller)
{
    const Control* focus = controller.window.Focus();
    return {{"caption", controller.window.Caption()},
            {"enabled", controller.window.Enabled()},
            {"pointer", controller.GivenPorts().pointer.Pointer()},
            {"status", controller.statusBar.Panel(1)},
            {"totals",
             {{"label", controller.lblTotal.Caption()},
              {"first", controller.txtTotal.Text()},
              {"second", controller.txtTotal2.Text()}}},
            {"period", controller.cmbPeriod.Index() + 1},
            {"year", controller.txtYear.Text()},
            {"focus", focus ? Json(focus->Name()) : Json()},
            {"menus", DescribeMenus(controller.menus)},
            {"menuOrder", MenuOrder(controller.menus)},
            {"toolbar", DescribeToolbar(controller.toolbar)},
            {"months", Texts(controller.cmbPeriod)},
            {"view", controller.View().View()},
            {"accountType", controller.View().AccountType()},
            {"accountID", controller.View().AccountID()}};
}

Json DescribeTree(const Tree& tree)
{
    Json nodes = Json::array();
    for (std::int32_t index = 1; index <= tree.Count(); ++index) {
        const TreeNode& node = tree.Node(index);
        nodes.push_back({{"index", index},
                         {"text", node.text},
                         {"key", node.key},
                         {"tag", node.tag},
                         {"parent", node.parent},
                         {"expanded", node.expanded},
                         {"selected", tree.Selected() == index},
                         {"image", node.image},
                         {"selectedImage", node.selectedImage}});
    }
    return {{"nodes", nodes}};
}

Json DescribeGrid(CVGrid& grid)
{
    GridComponent& component = grid;
    Json columns = Json::array();
    for (std::int32_t index = 1; index <= grid.Columns().Count(); ++index)
        columns.push_back(DescribeColumn(grid.Columns(), index));
    Json rows = Json::array();
    for (std::size_t row = 1; row <= grid.Rows().Count(); ++row)
        rows.push_back(DescribeRow(component, row));
    return {{"columns", columns},
            {"rows", rows},
            {"current", {{"row", component.Row()}, {"col", component.Col()}}},
            {"editing", component.Editing()},
            {"dirty", component.Dirty()},
            {"showToolTips", grid.ShowToolTips()}};
}

Json DescribeLayout(const frmController& controller)
{
    return {{"TreeView", DescribePlace(controller.TreeView)},
            {"Grid", DescribePlace(controller.Grid)},
            {"Toolbar", DescribePlace(controller.toolbar)},
            {"StatusBar", DescribePlace(controller.statusBar)},
            {"lblTotal", DescribePlace(controller.lblTotal)},
            {"txtTotal", DescribePlace(controller.txtTotal)},
            {"txtTotal2", DescribePlace(controller.txtTotal2)}};
}

}  // namespace clb
