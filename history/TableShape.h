// What a step needs to know of a table to put its rows back.
#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace clb {

class Database;

/// The columns of a table, as they are stored.
struct TableShape {
    std::string name;
    std::vector<std::string> columns;  ///< in their order; empty: there is no such table
    /// Name by which queries reach a row's identity; empty if they cannot: the table has no
    /// identities, or columns that are computed.
    std::string identity;
    /// A number for the names and order of the columns.
    std::uint64_t fingerprint = 0;

    /// Place of the column, without regard to case; -1 if there is none.
    [[nodiscard]] int Find(std::string_view column) const;
};

/// The shapes of a database's tables, each read once.
class TableShapes {
public:
    explicit TableShapes(Database& database) : database_(&database) {}
    /// Throws EngineError. The result lives until Forget.
    const TableShape& Of(const std::string& table);
    /// To be called when tables may have changed.
    void Forget() { shapes_.clear(); }

private:
    Database* database_;
    std::map<std::string, TableShape> shapes_;
};

}  // namespace clb
