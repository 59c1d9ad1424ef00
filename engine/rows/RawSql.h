#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/storage/Catalogue.h"

namespace clb {

class Connection;
class Statement;

/// A database as the storage keeps it: statements in the storage's own SQL, and cells as they are,
/// whatever their columns declare. For looking at files that other programs may have filled with
/// anything, and for mending them; everything else goes through Connection. No statement is handed
/// to a connection's sink for traces.
class RawSql {
public:
    enum class Kind { Nothing, Integer, Real, Text, Blob };

    /// The row that a SELECT stands on. Columns are 0-based.
    class Row {
    public:
        explicit Row(const Statement& statement) : statement_(&statement) {}

        [[nodiscard]] Kind KindOf(int column) const;
        [[nodiscard]] bool IsNull(int column) const { return KindOf(column) == Kind::Nothing; }
        [[nodiscard]] std::int64_t Integer(
            int column) const;  ///< 0 for a cell that is not a number
        [[nodiscard]] double Real(int column) const;
        /// Text, or a blob's bytes; a number as text. Valid until the next row.
        [[nodiscard]] std::string_view Text(int column) const;
        /// What the cell holds in words: "the text '12,50'".
        [[nodiscard]] std::string Describe(int column) const;

    private:
        const Statement* statement_;
    };

    /// Opens a file to look at it; a file that may not be written will do. Throws EngineError.
    explicit RawSql(const std::string& path);
    /// Works inside the connection, which is borrowed: it sees what the pending group has written.
    explicit RawSql(Connection& connection);
    /// The bytes of a database file, in memory.
    static RawSql OfImage(std::string_view bytes);
    ~RawSql();
    RawSql(RawSql&&) noexcept;

    /// From now on every statement sees the same state of the file, until this object ends. Other
    /// programs wait with their writing meanwhile. Not for a borrowed connection.
    void Hold();
    /// Runs one SELECT or PRAGMA and hands each of its rows on. Throws EngineError, also after some
    /// rows when the file is damaged.
    void Select(const std::string& sql, const std::function<void(const Row&)>& take);
    /// Runs one statement that writes, in the connection's pending group; ?1 and on are the values.
    /// Returns the number of rows that it changed. Throws EngineError, also without a connection.
    std::int64_t Write(const std::string& sql, const std::vector<Value>& values = {});
    /// The table as the file declares it; null when there is none. Lives as long as this object.
    const TableInfo* Find(std::string_view table);

private:
    RawSql();

    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace clb
