// Lets somebody see each row before a query changes it.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;

namespace clb {

/// A row that a query is about to insert, update or delete. Valid during the call that hands it
/// out.
class ChangingRow {
public:
    enum class Kind { Insert, Update, Delete };

    ChangingRow(sqlite3* database, Kind kind, std::string_view table, std::int64_t before,
                std::int64_t after)
        : database_(database), kind_(kind), table_(table), before_(before), after_(after)
    {
    }

    [[nodiscard]] Kind What() const { return kind_; }
    [[nodiscard]] std::string_view Table() const { return table_; }
    /// The row's identity before the change (not for an insertion) and after it (not for a
    /// deletion). Any number if the table's rows have no identities.
    [[nodiscard]] std::int64_t IdBefore() const { return before_; }
    [[nodiscard]] std::int64_t IdAfter() const { return after_; }
    [[nodiscard]] int Columns() const;
    /// Appends a cell as it is before or after the change, packed. A cell that is computed and not
    /// stored may come as nothing. Throws std::bad_alloc.
    void AppendBefore(std::string& cells, int column) const;
    void AppendAfter(std::string& cells, int column) const;

private:
    sqlite3* database_;
    Kind kind_;
    std::string_view table_;
    std::int64_t before_;
    std::int64_t after_;
};

/// Sees every row that queries of one connection change, those of triggers included, and the end
/// of each group of queries. Must not run a query except in BeforeCommit.
class IChangeWatch {
public:
    virtual ~IChangeWatch() = default;
    /// Called for each row. An error of memory breaks the query off.
    virtual void Changing(const ChangingRow& row) = 0;
    /// How many rows were seen; and the queries after that many have been taken back.
    [[nodiscard]] virtual std::size_t Seen() const = 0;
    virtual void TakenBackTo(std::size_t seen) noexcept = 0;
    /// A query has made, changed or removed a table with this name, or an index of it.
    virtual void TableChanged(std::string_view table) = 0;
    /// The group is about to become durable. What is written now belongs to it; an error loses the
    /// group.
    virtual void BeforeCommit() = 0;
    virtual void Committed() noexcept = 0;
    /// The group is lost with everything in it.
    virtual void Lost() noexcept = 0;
};

}  // namespace clb
