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

/// What an open result set is made of.
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
    /// A field that was searched: where its values stand, and the values alone, so that a search
    /// need not read the rows whole. Deleted rows stay in both.
    struct Searched {
        std::size_t field = 0;
        FindIndex index;
        RowStore column;
    };
    std::vector<std::unique_ptr<Searched>> searched;  // per field, made when first searched
    std::uint64_t generation = 0;

    void RequireOpen() const;
    void RequireWritable() const;
    /// The current row is there and is no deleted one.
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
    /// Whether there are none, or so many that only their identities were put in order and loaded.
    bool LoadIdentities();
    std::size_t FindEqual(std::size_t from, const Value& sought, std::size_t field);
    /// Null for a row that another statement has deleted.
    const Value* ValuesIfThere(std::size_t at);
    /// The row's value of a searched field; null for a row that another statement has deleted.
    const Value* ValueIfThere(std::size_t at, Searched& in);
    Searched& SearchedField(std::size_t field);
    void AddToSearched(std::size_t at);
    void AddTo(Searched& in, std::size_t at);
    void RemoveFromSearched(std::size_t at);
    [[nodiscard]] RowStore::Fetch Fetcher(FieldRange range) const;
};

}  // namespace clb
