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

/// A column's type in the dialect. A counter is a Long that the database numbers by itself.
struct ColumnType {
    FieldType type = FieldType::Text;
    std::size_t width = 0;  ///< characters of a Text; 0 = unlimited
    bool counter = false;
};

/// The type that a word such as "MONEY" or "TEXT" (any case) names; nothing for other words.
std::optional<ColumnType> TypeOfWord(std::string_view word);
/// The type as the stored schema declares it; "LONG", "TEXT(50)".
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
    bool placeholder = false;  ///< has no columns of its own, only the hidden one

    /// Null when there is none of that name (without regard to case).
    [[nodiscard]] const ColumnInfo* Find(std::string_view column) const;
    [[nodiscard]] bool HasCounter() const;
};

/// A table without columns keeps this one in the storage, which does not do without; the catalogue
/// leaves it out.
inline constexpr std::string_view kPlaceholder = "clb_placeholder";

/// The tables of the database as its own schema declares them, read when first asked for.
class Catalogue {
public:
    explicit Catalogue(Database& database) : database_(&database) {}

    /// Throws EngineError when there is no such table. The result lives until Forget.
    const TableInfo& Table(std::string_view name);
    /// Null when there is no such table.
    const TableInfo* Find(std::string_view name);
    /// To be called when the schema has changed.
    void Forget() { tables_.clear(); }

private:
    std::unique_ptr<TableInfo> Load(std::string_view name);

    Database* database_;
    std::unordered_map<std::string, std::unique_ptr<TableInfo>> tables_;  // by name in capitals
};

/// The name between double quotes, as the storage's SQL takes any name.
std::string QuoteName(std::string_view name);
/// The text between single quotes, as a literal of the storage's SQL.
std::string QuoteText(std::string_view text);

}  // namespace clb
