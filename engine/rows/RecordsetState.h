// The state of an open result set.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "engine/rows/FindIndex.h"
#include "engine/rows/LiveRows.h"
#include "engine/rows/Recordset.h"
#include "engine/rows/RowStore.h"
#include "engine/rows/RowWriter.h"
#include "engine/rows/Session.h"
#include "engine/sql/Criterion.h"

namespace clb {

/// The state of an open result set.
struct Recordset::State {
    enum class Edit { None, Changing, Adding };

    Connection::State* session = nullptr;  // null: closed
    std::string sql;
    bool readOnly = true;
    std::shared_ptr<Plan> plan;
    std::shared_ptr<const BoundValues> values;
    LiveRows live;
    RowStore rows;
    std::size_t slot = 0;  // current row; live.Slots() is the place past the end
    Edit edit = Edit::None;
    RowChange change;
    /// A field that was searched: an index of its values, and the values, so that a search does not
    /// read whole rows. Both keep deleted rows.
    struct Searched {
        std::size_t field = 0;
        FindIndex index;
        RowStore column;
    };
    std::vector<std::unique_ptr<Searched>> searched;  // one per field, made by the first search
    std::uint64_t generation = 0;

    void RequireOpen() const;
    void RequireWritable() const;
    /// Whether the current row exists and is not deleted.
    void RequireRow() const;
    [[nodiscard]] const std::vector<Field>& Fields() const;

    void Run();
    void Close();
    void DropEdit() { edit = Edit::None; }
    void BeginChange();
    void SaveEdit();
    void SaveNew();
    void SaveChanged();
    void DeleteRow();
    /// Reads the stored values of the row at this slot again.
    void RefreshRow(std::size_t at);

    std::size_t FindFrom(std::size_t from, const Criterion& criterion, std::size_t field);

private:
    void Load();
    /// Whether there are no rows, or so many that only their identities were sorted and loaded.
    bool LoadIdentities();
    std::size_t FindEqual(std::size_t from, const Value& sought, std::size_t field);
    /// Returns null for a row that another query has deleted.
    const Value* ValuesIfThere(std::size_t at);
    /// Returns the row's value of a searched field, or null for a row that another query has
    /// deleted.
    const Value* ValueIfThere(std::size_t at, Searched& in);
    Searched& SearchedField(std::size_t field);
    void AddToSearched(std::size_t at);
    void AddTo(Searched& in, std::size_t at);
    void RemoveFromSearched(std::size_t at);
    [[nodiscard]] RowStore::Fetch Fetcher(FieldRange range) const;
};

}  // namespace clb
