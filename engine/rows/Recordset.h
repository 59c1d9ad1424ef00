// Result sets.
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Value.h"
#include "engine/sql/Field.h"

namespace clb {

class Connection;

/// How a result set moves.
enum class CursorKind { ForwardOnly, Keyset };
/// Whether its rows may be changed. There is one user, so both writing kinds save at Update.
enum class LockKind { ReadOnly, Pessimistic, Optimistic };

/// Returns the 0-based position of the field of this name, in any case. Throws EngineError if there
/// is none.
std::size_t IndexOfField(const std::vector<Field>& fields, std::string_view name);

/// The rows of one SELECT, with a current row. Opening fixes which rows are in the set. A row added
/// through the set is appended, even if it does not meet the condition. A SELECT of columns from
/// one table is updatable: the set has each row's identity, which is not visible. Fields are
/// addressed by name (in any case) or by 0-based position.
///
/// The connection must outlive an open result set. No query of the storage stays open between two
/// calls. Operations on a closed set, without a current row, or with an unknown field throw
/// EngineError. So do all errors of the storage.
class Recordset {
public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    /// Runs the SELECT and moves to its first row. Throws EngineError, also if the set is open
    /// already.
    void Open(std::string_view sql, Connection& connection, CursorKind cursor, LockKind lock);
    /// Discards a row being added and unsaved changes. Does nothing on a closed set.
    void Close();
    [[nodiscard]] bool IsOpen() const;
    /// Runs the same SELECT again and moves to its first row. Discards unsaved changes.
    void Requery();
    /// Increases with every Open, Requery and Close, so that a reader by row number notices new
    /// rows.
    [[nodiscard]] std::uint64_t Generation() const;

    [[nodiscard]] const std::vector<Field>& Fields() const;
    /// Returns the 0-based position of the field. Throws EngineError if there is none of this name.
    [[nodiscard]] std::size_t FieldIndex(std::string_view name) const;

    /// The exact number of rows, including added ones and without deleted ones.
    [[nodiscard]] std::int32_t RecordCount() const;
    /// Whether the set is before its first row, or past its last one. An empty set is both.
    [[nodiscard]] bool AtBeginning() const;
    [[nodiscard]] bool AtEnd() const;
    [[nodiscard]] bool Empty() const { return AtBeginning() && AtEnd(); }
    /// Saves unsaved changes first, as MoveNext, Find and MoveTo do. Throws on an empty set.
    void MoveFirst();
    /// Saves unsaved changes first. Throws past the end.
    void MoveNext();

    /// Returns the value of a field in the current row, or in the row being added or changed. The
    /// reference is valid until the next call that moves, changes or reads another row.
    [[nodiscard]] const Value& Get(std::size_t field) const;
    [[nodiscard]] const Value& Get(std::string_view name) const { return Get(FieldIndex(name)); }
    /// Sets a field of the current row or of the row being added. Update saves it. Converts the
    /// value to the column's type. Throws EngineError for an expression, a read-only set, a value
    /// of the wrong type, a text longer than its column, and the counter of a saved row.
    void Set(std::size_t field, Value value);
    void Set(std::string_view name, Value value) { Set(FieldIndex(name), std::move(value)); }

    /// Begins a new row. Its fields are null until they are set.
    void AddNew();
    /// Saves the fields that were set, then reads the row again, including counters and
    /// expressions. A new row becomes the current row. After an error the unsaved values remain.
    void Update();
    /// Discards unsaved values. Discards a row being added, and the previous row becomes current
    /// again.
    void CancelUpdate();
    /// Deletes the current row. The place remains: MoveNext moves to the row that followed.
    void Delete();

    /// Searches from the current row (itself included) towards the end for one comparison, "Field
    /// operator literal" with = <> < > <= >= or LIKE; a quote inside a text literal is doubled.
    /// Moves to the row found, or past the end. Throws EngineError for any other criterion, and
    /// past the end.
    void Find(std::string_view criterion);

    /// Access by row number, for a grid: 0-based, in displayed order, without deleted rows. At does
    /// not move the current row and returns the saved value. Its reference is valid as long as that
    /// of Get. MoveTo accepts RecordCount for the place past the end.
    [[nodiscard]] const Value& At(std::size_t row, std::size_t field) const;
    void MoveTo(std::size_t row);
    /// Reads a row again for At, because another program may have changed it. Throws EngineError
    /// (RowVanished) if the row no longer exists.
    void Reread(std::size_t row);
    /// The identity of a row of an updatable set. The same stored row has the same identity in
    /// every set of its table. 0 in other sets.
    [[nodiscard]] std::size_t Identity(std::size_t row) const;
    /// The number of the current row, of the following row if the current one is deleted, or
    /// RecordCount past the end.
    [[nodiscard]] std::size_t Position() const;

private:
    friend class Connection;
    void OpenUntraced(std::string_view sql, Connection& connection, LockKind lock);

    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace clb
