#include "engine/storage/Query.h"

#include <sqlite3.h>

#include <limits>
#include <new>

#include "base/Text.h"
#include "engine/storage/Refusals.h"
#include "engine/storage/StorageErrors.h"
#include "engine/storage/StoredForm.h"

namespace clb {
namespace {

/// Throws if a value could not be bound. Otherwise the query would run with null in its place.
void RequireBound(int code)
{
    if (code == SQLITE_OK)
        return;
    if (storage_errors::IsOutOfMemory(code))
        throw std::bad_alloc();
    throw storage_errors::OfQuery(code, code, sqlite3_errstr(code));
}

/// Returns the result code of the storage.
int BindValue(sqlite3_stmt* raw, int parameter, const Value& value)
{
    const auto text = [&](const std::string& bytes, sqlite3_destructor_type lifetime) {
        return sqlite3_bind_text64(raw, parameter, bytes.data(), bytes.size(), lifetime,
                                   SQLITE_UTF8);
    };
    return WithStoredForm(
        value, Overloaded{
                   [&](Null) { return sqlite3_bind_null(raw, parameter); },
                   [&](std::int64_t number) { return sqlite3_bind_int64(raw, parameter, number); },
                   [&](double number) { return sqlite3_bind_double(raw, parameter, number); },
                   [&](const std::string& kept) { return text(kept, SQLITE_STATIC); },
                   [&](std::string&& iso) { return text(iso, SQLITE_TRANSIENT); },
               });
}

std::string_view ColumnText(sqlite3_stmt* query, int column)
{
    const auto* text = sqlite3_column_text(query, column);
    if (!text && sqlite3_errcode(sqlite3_db_handle(query)) == SQLITE_NOMEM)
        throw std::bad_alloc();
    if (!text)
        return {};
    return {reinterpret_cast<const char*>(text),
            static_cast<std::size_t>(sqlite3_column_bytes(query, column))};
}

}  // namespace

void Query::Finalize::operator()(sqlite3_stmt* raw) const
{
    sqlite3_finalize(raw);
}

void Query::Bind(int parameter, const Value& value)
{
    RequireBound(BindValue(raw_.get(), parameter, value));
}

void Query::BindAll(std::span<const Value> values)
{
    for (std::size_t i = 0; i < values.size(); ++i)
        Bind(static_cast<int>(i) + 1, values[i]);
}

void Query::BindText(int parameter, std::string_view text)
{
    RequireBound(sqlite3_bind_text64(raw_.get(), parameter, text.data(), text.size(),
                                     SQLITE_TRANSIENT, SQLITE_UTF8));
}

void Query::BindBlob(int parameter, std::string_view bytes)
{
    RequireBound(
        sqlite3_bind_blob64(raw_.get(), parameter, bytes.data(), bytes.size(), SQLITE_STATIC));
}

void Query::BindInteger(int parameter, std::int64_t value)
{
    RequireBound(sqlite3_bind_int64(raw_.get(), parameter, value));
}

void Query::BindCell(int parameter, const StoredCell& cell)
{
    sqlite3_stmt* const raw = raw_.get();
    if (const auto* integer = std::get_if<std::int64_t>(&cell))
        RequireBound(sqlite3_bind_int64(raw, parameter, *integer));
    else if (const auto* real = std::get_if<double>(&cell))
        RequireBound(sqlite3_bind_double(raw, parameter, *real));
    else if (const auto* text = std::get_if<std::string>(&cell))
        BindText(parameter, *text);
    else if (const auto* blob = std::get_if<Blob>(&cell))
        RequireBound(sqlite3_bind_blob64(raw, parameter, blob->bytes.data(), blob->bytes.size(),
                                         SQLITE_TRANSIENT));
    else
        RequireBound(sqlite3_bind_null(raw, parameter));
}

int Query::ParameterCount() const
{
    return sqlite3_bind_parameter_count(raw_.get());
}

Value Query::Get(int column, FieldType type) const
{
    sqlite3_stmt* const raw = raw_.get();
    const int stored = sqlite3_column_type(raw, column);
    if (stored == SQLITE_NULL)
        return Null();
    if (type == FieldType::Text)
        return std::string(ColumnText(raw, column));
    if (type == FieldType::Date) {
        if (stored == SQLITE_TEXT)
            if (const auto date = Date::FromIso(ColumnText(raw, column)))
                return *date;
        throw refuse::WrongCell(Describe(column), type);
    }
    const bool real = type == FieldType::Double || type == FieldType::Single;
    // The storage would convert anything to some number.
    if (stored != SQLITE_INTEGER && !(real && stored == SQLITE_FLOAT))
        throw refuse::WrongCell(Describe(column), type);
    switch (type) {
        case FieldType::Long: {
            const std::int64_t number = sqlite3_column_int64(raw, column);
            if (number < std::numeric_limits<std::int32_t>::min() ||
                number > std::numeric_limits<std::int32_t>::max())
                throw refuse::Overflow();
            return static_cast<std::int32_t>(number);
        }
        case FieldType::Money: return Money::FromScaled(sqlite3_column_int64(raw, column));
        case FieldType::Double: return sqlite3_column_double(raw, column);
        case FieldType::Single: return static_cast<float>(sqlite3_column_double(raw, column));
        default: return sqlite3_column_int64(raw, column) != 0;
    }
}

std::string Query::Describe(int column) const
{
    constexpr std::size_t kMostShown = 40;
    sqlite3_stmt* const raw = raw_.get();
    switch (sqlite3_column_type(raw, column)) {
        case SQLITE_NULL: return "nothing";
        case SQLITE_INTEGER: return "the number " + Text(column);
        case SQLITE_FLOAT: return "the binary fraction " + Text(column);
        case SQLITE_BLOB: return std::to_string(sqlite3_column_bytes(raw, column)) + " raw bytes";
        default: break;
    }
    const std::string_view text = ColumnText(raw, column);
    if (!IsValidUtf8(text))
        return "a text that is not valid UTF-8";
    const std::string_view shown = text.substr(0, ByteOffset(text, kMostShown));
    return "the text '" + std::string(shown) + (shown.size() < text.size() ? "...'" : "'");
}

std::string Query::Text(int column) const
{
    return std::string(TextView(column));
}

std::string_view Query::TextView(int column) const
{
    return ColumnText(raw_.get(), column);
}

std::int64_t Query::Integer(int column) const
{
    return sqlite3_column_int64(raw_.get(), column);
}

StoredCell Query::Cell(int column) const
{
    sqlite3_stmt* const raw = raw_.get();
    switch (sqlite3_column_type(raw, column)) {
        case SQLITE_INTEGER: return Integer(column);
        case SQLITE_FLOAT: return sqlite3_column_double(raw, column);
        case SQLITE_TEXT: return Text(column);
        case SQLITE_BLOB: return Blob{Text(column)};
        default: return std::monostate();
    }
}

void Query::Reset() noexcept
{
    sqlite3_reset(raw_.get());
}

}  // namespace clb
