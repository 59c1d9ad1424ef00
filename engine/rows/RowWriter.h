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

/// The fields of the row that the statement gave. Throws EngineError, with the cell's place, for a
/// cell that does not hold what its type says. rowId is asked for where the rows are one table's.
void TakeFields(const Plan& plan, const Statement& row, FieldRange range, std::int64_t rowId,
                Value* fields);

/// Saves and reads single rows of a result set's one table. The statements are kept in the plan,
/// one for each set of fields that was written.
class RowWriter {
public:
    RowWriter(Connection::State& session, Plan& plan) : session_(&session), plan_(&plan) {}

    /// Gives the new row's identity.
    std::int64_t Insert(const RowChange& change);
    /// Throws EngineError when the row is gone.
    void Update(std::int64_t rowId, const RowChange& change);
    void Delete(std::int64_t rowId);
    /// Fills these fields of the rows, one row behind the other, those that are gone left out.
    RowStore::Rows Read(std::span<const std::int64_t> rowIds, const BoundValues& values,
                        FieldRange range, Value* fields);

    /// The identities of the result set's rows in order, where the plan can ask for them alone.
    std::vector<std::int64_t> Identities(const BoundValues& values);
    /// Hands each of the rows that is there to visit, with its place among the identities and the
    /// statement that stands on it.
    using Visitor = std::function<void(std::size_t row, const Statement& statement)>;
    void Visit(std::span<const std::int64_t> rowIds, const BoundValues& values,
               const Visitor& visit);

private:
    /// Whether the database's counter numbers the new row.
    [[nodiscard]] bool IsNumbered(const RowChange& change) const;
    Statement& InsertFor(const std::vector<bool>& set);
    Statement& UpdateFor(const std::vector<bool>& set);
    void VisitStretch(std::span<const std::int64_t> rowIds, const BoundValues& values,
                      const Visitor& visit);
    Statement& Reader(Statement& reader, const std::string& sql, const BoundValues& values);
    int BindChange(Statement& statement, const RowChange& change);

    Connection::State* session_;
    Plan* plan_;
};

}  // namespace clb
