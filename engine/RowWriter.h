#pragma once
#include "engine/Session.h"

#include <cstdint>
#include <vector>

namespace clb {

/// The values of a row's fields, and which of them were set.
struct RowChange {
    std::vector<Value> values;
    std::vector<bool> set;

    void Clear(std::size_t fields);
    bool Any() const;
    bool All() const;
};

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
    /// Fills the fields of the row. Throws EngineError when it is gone.
    void Read(std::int64_t rowId, const BoundValues& values, Value* fields);

private:
    Statement& InsertFor(const std::vector<bool>& set);
    Statement& UpdateFor(const std::vector<bool>& set);
    int BindChange(Statement& statement, const RowChange& change);

    Connection::State* session_;
    Plan* plan_;
};

}  // namespace clb
