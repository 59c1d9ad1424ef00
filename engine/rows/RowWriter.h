// Saves and reads single rows of a result set.
#pragma once
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "engine/rows/RowStore.h"
#include "engine/rows/Session.h"

namespace clb {

/// The values of a row's fields, and which of them were set.
struct RowChange {
    std::vector<Value> values;
    std::vector<bool> set;

    void Clear(std::size_t fields);
    [[nodiscard]] bool Any() const;
    [[nodiscard]] bool All() const;
};

/// Neighbouring fields of a result set.
struct FieldRange {
    std::size_t first = 0;
    std::size_t count = 0;
};

/// Reads the fields of the query's current row. Throws EngineError with the cell's place if a cell
/// does not hold a value of its type. rowId is used for the place if the rows are from one table.
void TakeFields(const Plan& plan, const Query& row, FieldRange range, std::int64_t rowId,
                Value* fields);

/// Saves and reads single rows of a result set's only table. The queries are kept in the plan, one
/// for each set of fields that was written.
class RowWriter {
public:
    RowWriter(Connection::State& session, Plan& plan) : session_(&session), plan_(&plan) {}

    /// Returns the new row's identity.
    std::int64_t Insert(const RowChange& change);
    /// Throws EngineError if the row no longer exists.
    void Update(std::int64_t rowId, const RowChange& change);
    void Delete(std::int64_t rowId);
    /// Fills in these fields of the rows, one row after the other. Skips rows that no longer exist.
    RowStore::Rows Read(std::span<const std::int64_t> rowIds, const BoundValues& values,
                        FieldRange range, Value* fields);

    /// Reads the identities of the result set's rows in order, if the plan has a query for them.
    std::vector<std::int64_t> Identities(const BoundValues& values);
    /// Passes each existing row to `visit`, with its index among the identities and the query that
    /// is at the row.
    using Visitor = std::function<void(std::size_t row, const Query& query)>;
    void Visit(std::span<const std::int64_t> rowIds, const BoundValues& values,
               const Visitor& visit);

private:
    /// Whether the database's counter numbers the new row.
    [[nodiscard]] bool IsNumbered(const RowChange& change) const;
    Query& InsertFor(const std::vector<bool>& set);
    Query& UpdateFor(const std::vector<bool>& set);
    void VisitStretch(std::span<const std::int64_t> rowIds, const BoundValues& values,
                      const Visitor& visit);
    Query& Reader(Query& reader, const std::string& sql, const BoundValues& values);
    static int BindChange(Query& query, const RowChange& change);

    Connection::State* session_;
    Plan* plan_;
};

}  // namespace clb
