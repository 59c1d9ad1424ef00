// Access to a database in the storage's own SQL.
#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/storage/Catalogue.h"

namespace clb {

class Connection;
class Query;

/// Access to a database in the storage's own SQL. Cells are returned as they are stored, whatever
/// type their columns declare. For checking and repairing files that other programs may have filled
/// with anything. Everything else uses Connection. These queries are not passed to the sink of
/// Connection::Trace.
class RawSql {
public:
    enum class Kind { Nothing, Integer, Real, Text, Blob };

    /// The current row of a SELECT. Columns are 0-based.
    class Row {
    public:
        explicit Row(const Query& query) : query_(&query) {}

        [[nodiscard]] Kind KindOf(int column) const;
        [[nodiscard]] bool IsNull(int column) const { return KindOf(column) == Kind::Nothing; }
        [[nodiscard]] std::int64_t Integer(
            int column) const;  ///< 0 for a cell that is not a number
        /// Nothing for a cell that is not a whole number.
        [[nodiscard]] std::optional<std::int64_t> WholeNumber(int column) const;
        [[nodiscard]] double Real(int column) const;
        /// Returns a text, the bytes of a blob, or a number as text. Valid until the next row.
        [[nodiscard]] std::string_view Text(int column) const;
        /// Describes the contents of the cell in words: "the text '12,50'".
        [[nodiscard]] std::string Describe(int column) const;

    private:
        const Query* query_;
    };

    /// Opens a file for reading. The file may be read-only. Throws EngineError.
    explicit RawSql(const std::string& path);
    /// Uses a connection, which it borrows. Sees what the pending group has written.
    explicit RawSql(Connection& connection);
    /// Opens the bytes of a database file in memory.
    static RawSql OfImage(std::string_view bytes);
    ~RawSql();
    RawSql(RawSql&&) noexcept;

    /// Makes all following queries see the same state of the file, until this object is destroyed.
    /// Other programs must wait with their writing. Not for a borrowed connection.
    void Hold();
    /// Runs one SELECT or PRAGMA and passes each row to `take`. Throws EngineError, in a damaged
    /// file also after some rows.
    void Select(const std::string& sql, const std::function<void(const Row&)>& take);
    /// Runs one query that writes, in the connection's pending group. The values are bound to ?1,
    /// ?2 and so on. Returns the number of changed rows. Throws EngineError, also if there is no
    /// connection.
    std::int64_t Write(const std::string& sql, const std::vector<Value>& values = {});
    /// Returns the table as the file declares it, or null. The result lives as long as this object.
    const TableInfo* Find(std::string_view table);

private:
    RawSql();

    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace clb
