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
/// Whether and how its rows may be changed. There is one user, so both writing kinds save at
/// Update.
enum class LockKind { ReadOnly, Pessimistic, Optimistic };

/// 0-based position of the field of this name, without regard to case. Throws EngineError when
/// there is none.
std::size_t IndexOfField(const std::vector<Field>& fields, std::string_view name);

/// The rows of one SELECT, with a current row. Which rows belong is fixed at opening; a row added
/// through the set joins at its end, whatever the condition says. A SELECT of columns from one
/// table is updatable: it carries each row's identity unseen. Fields are addressed by name (without
/// regard to case) or by 0-based position.
///
/// The connection must outlive an open result set. No statement of the database stays open between
/// two calls. Operations on a closed set, on no current row, or with an unknown field throw
/// EngineError; so does every refusal of the database.
class Recordset {
public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    /// Runs the SELECT and stands on its first row. Throws EngineError, also when already open.
    void Open(std::string_view sql, Connection& connection, CursorKind cursor, LockKind lock);
    /// Drops a row being added and unsaved changes. Closing a closed set does nothing.
    void Close();
    [[nodiscard]] bool IsOpen() const;
    /// Runs the same SELECT again and stands on its first row; unsaved changes are dropped.
    void Requery();
    /// Grows with every Open, Requery and Close; tells a reader by row number that the rows were
    /// replaced.
    [[nodiscard]] std::uint64_t Generation() const;

    [[nodiscard]] const std::vector<Field>& Fields() const;
    /// 0-based position of the field. Throws EngineError when there is none of that name.
    [[nodiscard]] std::size_t FieldIndex(std::string_view name) const;

    /// Exact number of rows, added ones included, deleted ones not.
    [[nodiscard]] std::int32_t RecordCount() const;
    /// Before the first row; past the last one; both on an empty set.
    [[nodiscard]] bool AtBeginning() const;
    [[nodiscard]] bool AtEnd() const;
    [[nodiscard]] bool Empty() const { return AtBeginning() && AtEnd(); }
    /// Unsaved changes are saved first, as by MoveNext, Find and MoveTo. On an empty set it throws.
    void MoveFirst();
    /// Unsaved changes of the row that is left are saved first. Past the end it throws.
    void MoveNext();

    /// Value of a field in the current row, or in the row being added or changed. The reference is
    /// good until the next call that moves, changes or reads another row.
    [[nodiscard]] const Value& Get(std::size_t field) const;
    [[nodiscard]] const Value& Get(std::string_view name) const { return Get(FieldIndex(name)); }
    /// Sets a field of the current row or of the row being added; saved by Update. The value is
    /// converted to the column's type. Throws EngineError for an expression, a read-only set, a
    /// value of the wrong type, a text longer than its column, and the counter of a row that is
    /// saved.
    void Set(std::size_t field, Value value);
    void Set(std::string_view name, Value value) { Set(FieldIndex(name), std::move(value)); }

    /// Begins a new row; its fields read null until set.
    void AddNew();
    /// Saves the fields that were set, then reads the row again (numbers given by the database and
    /// expressions included). A new row becomes the current row. After an error the unsaved values
    /// stay.
    void Update();
    /// Forgets unsaved values; a row being added is dropped and the former row is current again.
    void CancelUpdate();
    /// Deletes the current row; the place stays, MoveNext goes to the row that followed.
    void Delete();

    /// Searches from the current row (itself included) towards the end for one comparison,
    /// "Field operator literal" with = <> < > <= >= or LIKE; a quote inside a text literal is
    /// doubled. Stands on the row found, else past the end. Throws EngineError for any other
    /// criterion, and past the end.
    void Find(std::string_view criterion);

    /// Reading and standing by number, for a grid: rows as in displayed order, 0-based, deleted
    /// ones left out. At does not move the current row and gives what is saved; its reference is
    /// good as long as Get's. MoveTo takes RecordCount for the place past the end.
    [[nodiscard]] const Value& At(std::size_t row, std::size_t field) const;
    void MoveTo(std::size_t row);
    /// Reads what is stored of a row now, for At: another program may have changed it. Throws
    /// EngineError (RowVanished) when the row is gone.
    void Reread(std::size_t row);
    /// Unseen identity of a row of an updatable set: the same for the same stored row in every set
    /// over its table. 0 in other sets.
    [[nodiscard]] std::size_t Identity(std::size_t row) const;
    /// Number of the current row; the row that followed, on a deleted one; RecordCount past the
    /// end.
    [[nodiscard]] std::size_t Position() const;

private:
    friend class Connection;
    void OpenUntraced(std::string_view sql, Connection& connection, LockKind lock);

    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace clb
