// The tables and columns of a database, as its own schema declares them.
#pragma once
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Value.h"

namespace clb {

class Database;

/// A column's type in the dialect. The database itself numbers a counter, which is a Long.
struct ColumnType {
    FieldType type = FieldType::Text;
    std::size_t width = 0;  ///< characters of a Text; 0 = unlimited
    bool counter = false;
};

/// Returns the type that a word such as "MONEY" or "TEXT" (any case) names, or nothing for other
/// words.
std::optional<ColumnType> TypeOfWord(std::string_view word);
/// Returns the type as the stored schema declares it: "LONG", "TEXT(50)".
std::string DeclaredType(const ColumnType& type);

struct ColumnInfo {
    std::string name;
    ColumnType type;
    bool notNull = false;
    std::string defaultSql;  ///< as stored; empty: none
    int keyPosition = 0;     ///< 1-based place in the primary key; 0 outside it
};

struct TableInfo {
    std::string name;
    std::vector<ColumnInfo> columns;
    bool triggers = false;     ///< some trigger runs when its rows change
    bool placeholder = false;  ///< has no columns but the hidden one
    bool identities = true;    ///< its rows have one; a table WITHOUT ROWID has none

    /// Finds a column by its name in any case. Returns null if there is none.
    [[nodiscard]] const ColumnInfo* Find(std::string_view column) const;
    [[nodiscard]] bool HasCounter() const;
};

/// A table without columns has this one in the file, because the storage allows no empty table. The
/// catalogue leaves it out.
inline constexpr std::string_view kPlaceholder = "clb_placeholder";

/// The tables of the database as its own schema declares them, read when first asked for.
class Catalogue {
public:
    explicit Catalogue(Database& database) : database_(&database) {}

    /// Throws EngineError if there is no such table. The result lives until Forget.
    const TableInfo& Table(std::string_view name);
    /// Returns null if there is no such table.
    const TableInfo* Find(std::string_view name);
    /// Call this after the schema has changed.
    void Forget() { tables_.clear(); }

private:
    std::unique_ptr<TableInfo> Load(std::string_view name);

    Database* database_;
    std::unordered_map<std::string, std::unique_ptr<TableInfo>> tables_;  // by name in capitals
};

/// Puts a name between double quotes, so that the storage's SQL accepts any name.
std::string QuoteName(std::string_view name);
/// Puts a text between single quotes, as a literal of the storage's SQL.
std::string QuoteText(std::string_view text);

}  // namespace clb
