#include "app/OtherPrograms.h"
#include "automation/StateReport.h"
#include "automation/VerbTable.h"

namespace clb {
namespace {

struct Cell {
    std::size_t row = 0;
    std::int32_t column = 0;
};

std::size_t ReadRow(frmController& controller, const Request& request)
{
    CVGrid& grid = controller.Grid;
    const GridRows& rows = grid.Rows();
    const Json& row = request.At("row");
    if (row == "new") {
        if (rows.NewRow() == 0)
            throw RequestError("There is no line for a new row");
        return rows.NewRow();
    }
    const std::int32_t number = request.Long("row");
    const std::size_t now = number < 1 ? 0 : grid.RowNow(static_cast<std::size_t>(number));
    if (number >= 1 && now == 0)
        throw RequestError(controller.Others().WhyRowGone(static_cast<std::size_t>(number)));
    if (now == 0 || now > rows.Count())
        throw RequestError("No such row: " + std::to_string(number));
    return now;
}

Cell ReadCell(frmController& controller, const Request& request)
{
    const Cell cell{ReadRow(controller, request), request.Long("col")};
    if (cell.column < 1 || cell.column > controller.Grid.Columns().Count())
        throw RequestError("No such column: " + std::to_string(cell.column));
    return cell;
}

/// Moves as a click into the cell does. Returns false if the row or the control that the user is in
/// does not let the user leave.
bool GoTo(frmController& controller, const Cell& cell)
{
    GridComponent& grid = controller.Grid;
    return controller.window.Focus(grid) && grid.MoveTo(cell.row, cell.column);
}

Json Move(Session& session, const Request& request)
{
    const Cell cell = ReadCell(session.controller, request);
    return {{"moved", GoTo(session.controller, cell)}};
}

/// Types the text into the cell in edit. If the column does not take the text, cancels the edit, so
/// that no cell stays open. Returns whether it took it.
bool Type(GridComponent& grid, const std::string& text)
{
    grid.EditText(text);
    if (grid.EndEdit())
        return true;
    grid.CancelEdit();
    return false;
}

Json Edit(Session& session, const Request& request)
{
    GridComponent& grid = session.controller.Grid;
    const Cell cell = ReadCell(session.controller, request);
    const std::string text = request.Text("text");
    const bool edited = GoTo(session.controller, cell) && grid.BeginEdit(0) && Type(grid, text);
    return {{"edited", edited}};
}

Json Begin(Session& session, const Request& request)
{
    const Cell cell = ReadCell(session.controller, request);
    const bool begun = GoTo(session.controller, cell) && session.controller.Grid.BeginEdit(0);
    return {{"begun", begun}};
}

Json End(Session& session, const Request&)
{
    return {{"ended", session.controller.Grid.EndEdit()}};
}

Json Save(Session& session, const Request&)
{
    return {{"saved", session.controller.Grid.Update()}};
}

Json Escape(Session& session, const Request&)
{
    session.controller.Grid.Escape();
    return Json::object();
}

Json Tip(Session& session, const Request& request)
{
    const Cell cell = ReadCell(session.controller, request);
    const auto text = session.controller.Grid.CellTip(cell.row, cell.column);
    return {{"text", text ? Json(*text) : Json()}};
}

Json State(Session& session, const Request&)
{
    session.controller.Others().RowNumbersReported();
    return DescribeGrid(session.controller.Grid);
}

}  // namespace

const VerbTable& GridVerbs()
{
    static const VerbTable verbs = {
        {"grid", {State, false}},   {"move", {Move, true}}, {"edit", {Edit, true}},
        {"begin", {Begin, true}},   {"end", {End, true}},   {"save", {Save, true}},
        {"escape", {Escape, true}}, {"tip", {Tip, false}},
    };
    return verbs;
}

}  // namespace clb
