#include "history/TableShape.h"

#include <algorithm>

#include "base/Text.h"
#include "engine/storage/Database.h"
#include "engine/storage/PackedCells.h"

namespace clb {
namespace {

/// A name of the identity that no column hides. The table is an ordinary one.
std::string IdentityOf(const TableShape& shape)
{
    for (const char* name : {"_rowid_", "rowid", "oid"})
        if (shape.Find(name) < 0)
            return name;
    return {};
}

/// Whether the table is an ordinary one, whose rows have identities.
bool HasIdentities(Database& database, const std::string& table)
{
    Query find = database.Prepare(
        "SELECT 1 FROM pragma_table_list WHERE schema = 'main' AND name = ?1 COLLATE NOCASE "
        "AND type = 'table' AND wr = 0");
    find.BindText(1, table);
    const ResetAtExit reset(find);
    return database.Step(find);
}

TableShape Read(Database& database, const std::string& table)
{
    TableShape shape{table, {}, {}, 0};
    std::string names;
    bool computed = false;
    Query columns =
        database.Prepare("SELECT name, hidden FROM pragma_table_xinfo(?1) ORDER BY cid");
    columns.BindText(1, table);
    while (database.Step(columns)) {
        shape.columns.push_back(columns.Text(0));
        computed = computed || columns.Integer(1) != 0;
        packed::AppendCell(names, StoredCell(ToUpperAscii(shape.columns.back())));
    }
    shape.fingerprint = packed::HashOfCells(names);
    if (!computed && HasIdentities(database, table))
        shape.identity = IdentityOf(shape);
    return shape;
}

}  // namespace

int TableShape::Find(std::string_view column) const
{
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const std::string& known) {
        return EqualsIgnoringCase(known, column);
    });
    return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

const TableShape& TableShapes::Of(const std::string& table)
{
    const auto found = shapes_.find(table);
    return found != shapes_.end() ? found->second
                                  : shapes_.emplace(table, Read(*database_, table)).first->second;
}

}  // namespace clb
