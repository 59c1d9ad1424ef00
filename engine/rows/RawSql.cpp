#include "engine/rows/RawSql.h"

#include <sqlite3.h>

#include <new>

#include "engine/rows/Session.h"
#include "engine/storage/Refusals.h"

namespace clb {

struct RawSql::State {
    Database own;
    Connection::State* session = nullptr;  ///< null: this object owns the database
    Database& database;
    Catalogue catalogue;

    State() : database(own), catalogue(own) {}
    explicit State(Connection::State& borrowed)
        : session(&borrowed), database(borrowed.database), catalogue(borrowed.database)
    {
    }
};

RawSql::Kind RawSql::Row::KindOf(int column) const
{
    switch (sqlite3_column_type(query_->Raw(), column)) {
        case SQLITE_INTEGER: return Kind::Integer;
        case SQLITE_FLOAT: return Kind::Real;
        case SQLITE_TEXT: return Kind::Text;
        case SQLITE_BLOB: return Kind::Blob;
        default: return Kind::Nothing;
    }
}

std::int64_t RawSql::Row::Integer(int column) const
{
    return WholeNumber(column).value_or(0);
}

std::optional<std::int64_t> RawSql::Row::WholeNumber(int column) const
{
    if (sqlite3_column_type(query_->Raw(), column) != SQLITE_INTEGER)
        return std::nullopt;
    return sqlite3_column_int64(query_->Raw(), column);
}

double RawSql::Row::Real(int column) const
{
    return sqlite3_column_double(query_->Raw(), column);
}

std::string_view RawSql::Row::Text(int column) const
{
    const auto* text = sqlite3_column_text(query_->Raw(), column);
    if (!text && sqlite3_errcode(sqlite3_db_handle(query_->Raw())) == SQLITE_NOMEM)
        throw std::bad_alloc();
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(query_->Raw(), column));
    return {reinterpret_cast<const char*>(text), text ? size : 0};
}

std::string RawSql::Row::Describe(int column) const
{
    return query_->Describe(column);
}

RawSql::RawSql() : state_(std::make_unique<State>()) {}

RawSql::RawSql(const std::string& path) : RawSql()
{
    state_->own.OpenToRead(path);
}

RawSql::RawSql(Connection& connection) : state_(std::make_unique<State>(connection.Internals()))
{
    connection.Internals().RequireOpen();
}

RawSql RawSql::OfImage(std::string_view bytes)
{
    RawSql image;
    image.state_->own.OpenImage(bytes);
    return image;
}

RawSql::~RawSql() = default;
RawSql::RawSql(RawSql&&) noexcept = default;

void RawSql::Hold()
{
    state_->database.Run("BEGIN");
}

void RawSql::Select(const std::string& sql, const std::function<void(const Row&)>& take)
{
    Query query = state_->database.Prepare(sql);
    const Row row(query);
    while (state_->database.Step(query))
        take(row);
}

std::int64_t RawSql::Write(const std::string& sql, const std::vector<Value>& values)
{
    if (!state_->session)
        throw refuse::SetNotUpdatable();
    state_->session->BeginWrite();
    Query query = state_->database.Prepare(sql);
    query.BindAll(values);
    state_->session->StepWrite(query);
    return state_->database.ChangedRows();
}

const TableInfo* RawSql::Find(std::string_view table)
{
    return state_->catalogue.Find(table);
}

}  // namespace clb
