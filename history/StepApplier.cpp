#include "history/StepApplier.h"

#include "base/Text.h"
#include "engine/storage/Catalogue.h"
#include "engine/storage/EngineError.h"
#include "history/Bookkeeping.h"
#include "history/CellValue.h"

namespace clb {
namespace {

constexpr std::ptrdiff_t kMostTouched = 8;  // rows of each table

/// Triggers would change rows that the step puts back by itself.
class WithoutTriggers {
public:
    explicit WithoutTriggers(Database& database) : database_(&database)
    {
        database_->Triggers(false);
    }
    ~WithoutTriggers() { database_->Triggers(true); }
    WithoutTriggers(const WithoutTriggers&) = delete;
    WithoutTriggers& operator=(const WithoutTriggers&) = delete;

private:
    Database* database_;
};

bool IsOf(const RowChanged& row, bool was, bool is)
{
    return row.was == was && row.is == is;
}

}  // namespace

HistoryRefusal::HistoryRefusal(const std::string& why)
    : std::runtime_error(Replace(why, std::string_view("\0", 1), "\\0"))
{
}

void StepApplier::PutBack(std::string_view part)
{
    const WithoutTriggers off(*database_);
    // What is removed first makes room in unique indexes for what comes back.
    for (const Pass pass : {Pass::Remove, Pass::Write, Pass::Insert})
        PutBack(part, pass);
}

void StepApplier::PutBack(std::string_view part, Pass pass)
{
    StepReader reader(part);
    RowChanged row;
    while (reader.NextTable()) {
        const TableShape& shape = shapes_->Of(reader.Table());
        const bool there = IsThere(shape, reader);
        while (reader.NextRow(row))
            if (there)
                PutBack(shape, row, pass);
    }
}

/// A table that was added to the book's own may be gone: the rest of the step does not need it.
bool StepApplier::IsThere(const TableShape& shape, const StepReader& reader)
{
    const bool same = !shape.identity.empty() && shape.fingerprint == reader.Fingerprint() &&
                      static_cast<int>(shape.columns.size()) == reader.Columns();
    if (!same && IsBookkeeping(reader.Table()))
        return false;
    if (shape.columns.empty() && reader.Table().starts_with("Cv"))
        return false;
    if (shape.columns.empty())
        throw HistoryRefusal("the table " + reader.Table() + " is no longer there");
    if (!same)
        throw HistoryRefusal("the columns of the table " + reader.Table() + " were changed since");
    return true;
}

void StepApplier::PutBack(const TableShape& shape, const RowChanged& row, Pass pass)
{
    if (!IsOf(row, pass != Pass::Remove, pass != Pass::Insert))
        return;
    if (IsBookkeeping(shape.name) && !Stands(shape, row))
        return;
    Touch(shape, row, pass);
    Run(shape, row,
        pass == Pass::Remove  ? Removal(shape)
        : pass == Pass::Write ? Writing(shape, row)
                              : Insertion(shape, row));
}

/// The row is looked at while it is changed: the log has just hashed what it held.
void StepApplier::Run(const TableShape& shape, const RowChanged& row, Query& query)
{
    for (std::size_t i = 0; i < row.before.size(); ++i)
        query.BindCell(static_cast<int>(i) + 2, packed::Reader(row.before[i].second).Cell());
    query.BindInteger(1, row.row);
    try {
        database_->Step(query);
    } catch (const EngineError& error) {
        if (error.Number() == engine_errors::Constraint)
            Refuse(shape, row, Stands(shape, row));
        throw;
    }
    if (database_->ChangedRows() != 1 || (row.is && log_->LastBefore() != row.hash))
        Refuse(shape, row);
}

/// The row's cells as texts; nothing if there is no such row.
NamedValues StepApplier::Stored(const TableShape& shape, std::int64_t row)
{
    NamedValues cells;
    Query find = database_->Prepare("SELECT * FROM " + QuoteName(shape.name) + " WHERE " +
                                    shape.identity + " = ?1");
    const ResetAtExit reset(find);
    find.BindInteger(1, row);
    if (database_->Step(find))
        for (std::size_t i = 0; i < shape.columns.size(); ++i)
            cells.emplace_back(shape.columns[i],
                               ValueOf(find.Cell(static_cast<int>(i)), FieldType::Text));
    return cells;
}

/// Whether the row is what the step left.
bool StepApplier::Stands(const TableShape& shape, const RowChanged& row)
{
    Query find = database_->Prepare("SELECT * FROM " + QuoteName(shape.name) + " WHERE " +
                                    shape.identity + " = ?1");
    const ResetAtExit reset(find);
    find.BindInteger(1, row.row);
    if (!database_->Step(find))
        return !row.is;
    std::string cells;
    for (std::size_t i = 0; i < shape.columns.size(); ++i)
        packed::AppendCell(cells, find.Cell(static_cast<int>(i)));
    return row.is && packed::HashOfCells(cells) == row.hash;
}

/// Names the row as it was before anything was put back: that is what the user sees. A row that
/// stands as the step left it is refused by the table, for example by a new unique index.
void StepApplier::Refuse(const TableShape& shape, const RowChanged& row, bool stands)
{
    if (database_->InTransaction())
        database_->Run(std::string("ROLLBACK TO ") + kSavepoint);
    NamedValues before;
    for (const auto& [column, cell] : row.before)
        before.emplace_back(shape.columns[static_cast<std::size_t>(column)],
                            ValueOf(packed::Reader(cell).Cell(), FieldType::Text));
    const NamedValues stored = row.is ? Stored(shape, row.row) : NamedValues();
    const bool there = !stored.empty();
    const std::string name = RowName(shape.name, row.row, there ? stored : before);
    if (stands)
        throw HistoryRefusal("the table " + shape.name + " no longer takes " + name + " as it was");
    if (!row.is)
        throw HistoryRefusal("there is another row in the place of " + name);
    throw HistoryRefusal(name + (there ? " was changed since" : " was deleted since"));
}

Query& StepApplier::Removal(const TableShape& shape)
{
    const std::string sql =
        "DELETE FROM " + QuoteName(shape.name) + " WHERE " + shape.identity + " = ?1";
    Query& query = queries_[sql];
    if (!query)
        query = database_->Prepare(sql, true);
    return query;
}

Query& StepApplier::Writing(const TableShape& shape, const RowChanged& row)
{
    std::string sql = "UPDATE " + QuoteName(shape.name) + " SET ";
    for (std::size_t i = 0; i < row.before.size(); ++i)
        sql += (i == 0 ? "" : ", ") +
               QuoteName(shape.columns[static_cast<std::size_t>(row.before[i].first)]) + " = ?" +
               std::to_string(i + 2);
    sql += " WHERE " + shape.identity + " = ?1";
    Query& query = queries_[sql];
    if (!query)
        query = database_->Prepare(sql, true);
    return query;
}

Query& StepApplier::Insertion(const TableShape& shape, const RowChanged& row)
{
    std::string columns = shape.identity;
    std::string values = "?1";
    for (std::size_t i = 0; i < row.before.size(); ++i) {
        columns += ", " + QuoteName(shape.columns[static_cast<std::size_t>(row.before[i].first)]);
        values += ", ?" + std::to_string(i + 2);
    }
    const std::string sql =
        "INSERT INTO " + QuoteName(shape.name) + " (" + columns + ") VALUES (" + values + ")";
    Query& query = queries_[sql];
    if (!query)
        query = database_->Prepare(sql, true);
    return query;
}

void StepApplier::Touch(const TableShape& shape, const RowChanged& row, Pass pass)
{
    const auto ofTable = std::count_if(touched_.begin(), touched_.end(), [&](const auto& other) {
        return other.table == shape.name;
    });
    if (ofTable < kMostTouched)
        touched_.push_back({shape.name, row.row, pass == Pass::Insert,
                            pass == Pass::Remove ? Stored(shape, row.row) : NamedValues()});
}

}  // namespace clb
