#include "engine/storage/Catalogue.h"

#include <algorithm>
#include <charconv>

#include "base/Text.h"
#include "engine/storage/Database.h"
#include "engine/storage/Refusals.h"

namespace clb {
namespace {

struct TypeWord {
    std::string_view word;
    FieldType type;
};

constexpr TypeWord kTypeWords[] = {
    {"LONG", FieldType::Long},       {"INTEGER", FieldType::Long},
    {"INT", FieldType::Long},        {"SHORT", FieldType::Long},
    {"SMALLINT", FieldType::Long},   {"BYTE", FieldType::Long},
    {"MONEY", FieldType::Money},     {"CURRENCY", FieldType::Money},
    {"DOUBLE", FieldType::Double},   {"FLOAT", FieldType::Double},
    {"NUMBER", FieldType::Double},   {"NUMERIC", FieldType::Double},
    {"SINGLE", FieldType::Single},   {"REAL", FieldType::Single},
    {"DATETIME", FieldType::Date},   {"DATE", FieldType::Date},
    {"TIME", FieldType::Date},       {"TIMESTAMP", FieldType::Date},
    {"YESNO", FieldType::Boolean},   {"BIT", FieldType::Boolean},
    {"LOGICAL", FieldType::Boolean}, {"BOOLEAN", FieldType::Boolean},
    {"TEXT", FieldType::Text},       {"VARCHAR", FieldType::Text},
    {"CHAR", FieldType::Text},       {"STRING", FieldType::Text},
    {"MEMO", FieldType::Text},       {"LONGTEXT", FieldType::Text},
};

/// Returns the type of a stored declaration such as "TEXT(50)". A type that the dialect does not
/// know counts as Text.
ColumnType TypeOfDeclaration(std::string_view declared)
{
    const std::size_t bracket = declared.find('(');
    const auto type = TypeOfWord(Trim(declared.substr(0, bracket)));
    if (!type)
        return {};
    ColumnType result = *type;
    if (bracket != std::string_view::npos && result.type == FieldType::Text)
        std::from_chars(declared.data() + bracket + 1, declared.data() + declared.size(),
                        result.width);
    return result;
}

}  // namespace

std::optional<ColumnType> TypeOfWord(std::string_view word)
{
    for (const auto counter : {"COUNTER", "AUTOINCREMENT", "IDENTITY"})
        if (EqualsIgnoringCase(word, counter))
            return ColumnType{FieldType::Long, 0, true};
    const auto found = std::find_if(std::begin(kTypeWords), std::end(kTypeWords), [&](auto& entry) {
        return EqualsIgnoringCase(word, entry.word);
    });
    if (found == std::end(kTypeWords))
        return std::nullopt;
    return ColumnType{found->type, 0, false};
}

std::string DeclaredType(const ColumnType& type)
{
    switch (type.type) {
        case FieldType::Text:
            return type.width == 0 ? "TEXT" : "TEXT(" + std::to_string(type.width) + ")";
        case FieldType::Long: return type.counter ? "INTEGER" : "LONG";
        case FieldType::Money: return "MONEY";
        case FieldType::Double: return "DOUBLE";
        case FieldType::Single: return "SINGLE";
        case FieldType::Date: return "DATETIME";
        case FieldType::Boolean: return "YESNO";
    }
    return "TEXT";
}

bool TableInfo::HasCounter() const
{
    return std::ranges::any_of(columns, [](const ColumnInfo& c) { return c.type.counter; });
}

const ColumnInfo* TableInfo::Find(std::string_view column) const
{
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const ColumnInfo& info) {
        return EqualsIgnoringCase(info.name, column);
    });
    return found == columns.end() ? nullptr : &*found;
}

const TableInfo& Catalogue::Table(std::string_view name)
{
    const TableInfo* table = Find(name);
    if (!table)
        throw refuse::NoSuchTable(name);
    return *table;
}

const TableInfo* Catalogue::Find(std::string_view name)
{
    const std::string key = ToUpperAscii(name);
    const auto found = tables_.find(key);
    if (found != tables_.end())
        return found->second.get();
    if (key.starts_with("SQLITE_"))
        return nullptr;
    auto table = Load(name);
    if (!table)
        return nullptr;
    return tables_.emplace(key, std::move(table)).first->second.get();
}

std::unique_ptr<TableInfo> Catalogue::Load(std::string_view name)
{
    // A virtual table has no page of its own.
    Query find = database_->Prepare(
        "SELECT m.name, EXISTS(SELECT 1 FROM sqlite_master t WHERE t.type = 'trigger' AND "
        "t.tbl_name = m.name COLLATE NOCASE), (SELECT wr FROM pragma_table_list(m.name) "
        "WHERE schema = 'main') FROM sqlite_master m WHERE m.type = 'table' AND "
        "m.rootpage > 0 AND m.name = ?1 COLLATE NOCASE");
    find.BindText(1, name);
    if (!database_->Step(find))
        return nullptr;
    auto table = std::make_unique<TableInfo>();
    table->name = find.Text(0);
    table->triggers = find.Integer(1) != 0;
    table->identities = find.Integer(2) == 0;

    Query columns = database_->Prepare(
        "SELECT name, type, \"notnull\", dflt_value, pk FROM pragma_table_info(?1)");
    columns.BindText(1, table->name);
    while (database_->Step(columns)) {
        ColumnInfo column;
        column.name = columns.Text(0);
        column.type = TypeOfDeclaration(columns.Text(1));
        column.notNull = columns.Integer(2) != 0;
        column.defaultSql = columns.Text(3);
        column.keyPosition = static_cast<int>(columns.Integer(4));
        // The storage numbers a column by itself only if it is declared exactly like this.
        column.type.counter =
            column.keyPosition == 1 && EqualsIgnoringCase(columns.Text(1), "INTEGER");
        table->columns.push_back(std::move(column));
    }
    table->placeholder = table->columns.size() == 1 && table->columns[0].name == kPlaceholder;
    if (table->placeholder)
        table->columns.clear();
    const auto keys = std::count_if(table->columns.begin(), table->columns.end(),
                                    [](const ColumnInfo& c) { return c.keyPosition > 0; });
    if (keys > 1)
        for (ColumnInfo& column : table->columns)
            column.type.counter = false;
    return table;
}

std::string QuoteName(std::string_view name)
{
    return "\"" + Replace(name, "\"", "\"\"") + "\"";
}

std::string QuoteText(std::string_view text)
{
    return "'" + Replace(text, "'", "''") + "'";
}

}  // namespace clb
