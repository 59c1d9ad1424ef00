#include "engine/storage/Database.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <limits>
#include <new>
#include <optional>
#include <utility>

#include "base/Interruption.h"
#include "base/Text.h"
#include "engine/storage/Functions.h"
#include "engine/storage/Refusals.h"
#include "engine/storage/StoredForm.h"
#include "engine/storage/Waiting.h"

namespace clb {
namespace {

constexpr const char* kNoDatabase = "is damaged or is no database.";

/// Returns the text after the last colon and space. "NOT NULL constraint failed: Account.Type" ends
/// with the field.
std::string Subject(const std::string& message)
{
    const std::size_t colon = message.rfind(": ");
    return colon == std::string::npos ? message : message.substr(colon + 2);
}

EngineError ConstraintError(int extended, const std::string& message)
{
    if (extended == SQLITE_CONSTRAINT_NOTNULL)
        return {engine_errors::Constraint,
                "You must enter a value in the '" + Subject(message) + "' field."};
    if (extended == SQLITE_CONSTRAINT_UNIQUE || extended == SQLITE_CONSTRAINT_PRIMARYKEY ||
        extended == SQLITE_CONSTRAINT_ROWID)
        return {engine_errors::Constraint,
                "The changes were not made because they would create duplicate values in '" +
                    Subject(message) + "'."};
    return {engine_errors::Constraint, message};
}

EngineError JournalError(const std::string& path)
{
    return refuse::File(path,
                        "cannot be written: its journal '" + path + "-journal' cannot be opened.",
                        FileTrouble::Unreadable);
}

/// The reason of the failed system call, or nothing if errno does not tell it.
std::optional<EngineError> SystemErrorOf(int system, const std::string& path)
{
    switch (system) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG: return refuse::CannotWrite(path, system);
        case EROFS: return refuse::File(path, "is read-only.", FileTrouble::ReadOnly);
        case EMFILE:
        case ENFILE:
            return refuse::File(path, "cannot be opened: too many files are open.",
                                FileTrouble::Unreadable);
        case ENOLCK:
            return refuse::File(path, "cannot be locked on its disk.", FileTrouble::Unreadable);
        case EISDIR: return JournalError(path);  // the database itself is a file
        default: return std::nullopt;
    }
}

EngineError FolderTakesNoFiles(const std::string& path)
{
    return refuse::File(path, "is in a folder that takes no new files.",
                        FileTrouble::FolderReadOnly);
}

EngineError ReadOnlyErrorOf(int extended, const std::string& path)
{
    switch (extended) {
        case SQLITE_READONLY_DBMOVED:
            return refuse::File(path, "was replaced or removed by another program.",
                                FileTrouble::Replaced);
        case SQLITE_READONLY_DIRECTORY: return FolderTakesNoFiles(path);
        default: return refuse::File(path, "is read-only.", FileTrouble::ReadOnly);
    }
}

/// The file itself is open, so the journal next to it is what cannot be opened.
EngineError JournalErrorOf(int system, const std::string& path)
{
    if (system == ENOENT)
        return ReadOnlyErrorOf(SQLITE_READONLY_DBMOVED, path);
    return SystemErrorOf(system, path).value_or(JournalError(path));
}

/// system: errno of the failed system call, or 0.
EngineError FileErrorOf(int extended, int system, const std::string& path)
{
    switch (extended & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return refuse::File(path, "is locked by another program.", FileTrouble::Locked);
        case SQLITE_READONLY: return ReadOnlyErrorOf(extended, path);
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB: return refuse::File(path, kNoDatabase, FileTrouble::Damaged);
        case SQLITE_FULL: return refuse::CannotWrite(path, ENOSPC);
        case SQLITE_PERM:
            return refuse::File(path, "cannot be locked: the system does not permit it.",
                                FileTrouble::Unreadable);
        case SQLITE_CANTOPEN: return JournalErrorOf(system, path);
        default:
            return SystemErrorOf(system, path)
                .value_or(
                    refuse::File(path, "cannot be read or written.", FileTrouble::Unreadable));
    }
}

EngineError TooBig()
{
    return refuse::WrongSql("The statement or one of its values is too big.");
}

EngineError ErrorOf(int kind, int extended, const std::string& message)
{
    switch (kind) {
        case SQLITE_CONSTRAINT: return ConstraintError(extended, message);
        case SQLITE_AUTH: return refuse::WrongSql("The statement is not allowed.");
        case SQLITE_TOOBIG: return TooBig();
        default: break;
    }
    if (message == kIntegerOverflow)
        return refuse::Overflow();
    return refuse::WrongSql(message);
}

/// Whether an error of this kind is about the file and not about the query.
bool IsAboutFile(int code)
{
    switch (code) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_READONLY:
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
        case SQLITE_FULL:
        case SQLITE_IOERR:
        case SQLITE_PERM:
        case SQLITE_CANTOPEN: return true;
        default: return false;
    }
}

bool IsOutOfMemory(int code)
{
    return (code & 0xFF) == SQLITE_NOMEM || code == SQLITE_IOERR_NOMEM;
}

/// Throws if a value could not be bound. Otherwise the query would run with null in its place.
void RequireBound(int code)
{
    if (code == SQLITE_OK)
        return;
    if (IsOutOfMemory(code))
        throw std::bad_alloc();
    throw code == SQLITE_TOOBIG ? TooBig() : refuse::WrongSql(sqlite3_errstr(code));
}

/// The storage calls this for everything that a query is going to do, including the triggers of the
/// file.
int Authorize(void*, int action, const char*, const char* second, const char*, const char*)
{
    switch (action) {
        case SQLITE_ATTACH:
        case SQLITE_DETACH:
        case SQLITE_CREATE_VTABLE:
        case SQLITE_DROP_VTABLE:
        case SQLITE_RECURSIVE: return SQLITE_DENY;
        case SQLITE_FUNCTION:
            for (const char* closed : {"load_extension", "fts3_tokenizer"})
                if (sqlite3_stricmp(second, closed) == 0)
                    return SQLITE_DENY;
            return SQLITE_OK;
        default: return SQLITE_OK;
    }
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

Database::~Database()
{
    Close();
}

void Database::Close()
{
    if (raw_ && InTransaction())
        sqlite3_exec(raw_, "ROLLBACK", nullptr, nullptr, nullptr);
    // Queries that outlive the database keep the handle alive. The last one frees it.
    sqlite3_close_v2(raw_);
    raw_ = nullptr;
}

void Database::RequireFile(const std::string& path)
{
    namespace fs = std::filesystem;
    std::error_code failure;
    const fs::file_status status = fs::status(path, failure);
    if (status.type() == fs::file_type::not_found)
        throw refuse::File(path, "does not exist.", FileTrouble::Missing);
    if (failure)
        throw refuse::File(path, "cannot be opened.", FileTrouble::Unreadable);
    if (fs::is_directory(status))
        throw refuse::File(path, "is a folder.", FileTrouble::Folder);
    if (!fs::is_regular_file(status) || fs::file_size(path, failure) == 0)
        throw refuse::File(path, kNoDatabase, FileTrouble::Damaged);
}

void Database::RequireWritable()
{
    if (sqlite3_db_readonly(raw_, "main") == 1)
        throw FileErrorOf(SQLITE_READONLY, 0, path_);
    std::error_code ignored;
    const auto file = std::filesystem::weakly_canonical(path_, ignored);
    if (faccessat(AT_FDCWD, file.parent_path().c_str(), W_OK | X_OK, AT_EACCESS) != 0)
        throw FolderTakesNoFiles(path_);
}

void Database::ReadFirst()
{
    Run("PRAGMA schema_version");
}

void Database::OpenExisting(const std::string& path)
{
    RequireFile(path);
    Connect(path, SQLITE_OPEN_READWRITE);
    try {
        Distrust();
        RequireWritable();
        ReadFirst();
        Configure();
    } catch (...) {
        Close();
        throw;
    }
}

void Database::OpenToRead(const std::string& path)
{
    RequireFile(path);
    Connect(path, SQLITE_OPEN_READWRITE);
    try {
        Distrust();
        ReadFirst();
        Run("PRAGMA query_only = ON; PRAGMA cell_size_check = ON");
    } catch (...) {
        Close();
        throw;
    }
}

void Database::OpenImage(std::string_view bytes)
{
    Connect(":memory:", SQLITE_OPEN_READWRITE);
    const auto size = static_cast<sqlite3_int64>(bytes.size());
    auto* const copy = static_cast<unsigned char*>(sqlite3_malloc64(bytes.size()));
    if (!copy)
        throw std::bad_alloc();
    std::copy(bytes.begin(), bytes.end(), copy);
    const int code =
        sqlite3_deserialize(raw_, "main", copy, size, size,
                            SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_READONLY);
    if (code != SQLITE_OK)
        Refuse(code);
}

void Database::Create(const std::string& path)
{
    Connect(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    Run("PRAGMA synchronous = OFF");
}

void Database::Connect(const std::string& path, int flags)
{
    path_ = path;
    const int code = sqlite3_open_v2(path.c_str(), &raw_, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code != SQLITE_OK) {
        const int system = raw_ ? sqlite3_system_errno(raw_) : 0;
        Close();
        if (IsOutOfMemory(code))
            throw std::bad_alloc();
        throw(code & 0xFF) == SQLITE_CANTOPEN
            ? SystemErrorOf(system, path)
                  .value_or(refuse::File(path, "cannot be opened.", FileTrouble::Unreadable))
            : FileErrorOf(code, system, path);
    }
    sqlite3_extended_result_codes(raw_, 1);
    WaitForOthers(raw_);
    WatchInterruption(raw_);
}

void Database::Distrust()
{
    sqlite3_db_config(raw_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(raw_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(raw_, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
    sqlite3_db_config(raw_, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    // A name that is not a column is an error. It is never read as a text.
    sqlite3_db_config(raw_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(raw_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_limit(raw_, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_set_authorizer(raw_, &Authorize, nullptr);
}

void Database::Configure()
{
    RegisterFunctions(*this);
    // EXTRA: removing the journal is what commits, so the folder is synchronised after it. With
    // FULL, a power loss soon after could bring back the journal and with it the old state.
    Run("PRAGMA synchronous = EXTRA; PRAGMA cache_size = -16384; PRAGMA mmap_size = 0");
    Run("PRAGMA cell_size_check = ON");
    Run("PRAGMA journal_mode = DELETE");
}

Database::Impatient::Impatient(Database& database) : database_(database)
{
    sqlite3_busy_timeout(database_.raw_, 0);
}

Database::Impatient::~Impatient()
{
    WaitForOthers(database_.raw_);
}

Query Database::Prepare(std::string_view sql, bool lasting)
{
    sqlite3_stmt* raw = nullptr;
    const int code = sqlite3_prepare_v3(raw_, sql.data(), static_cast<int>(sql.size()),
                                        lasting ? SQLITE_PREPARE_PERSISTENT : 0U, &raw, nullptr);
    if (code != SQLITE_OK)
        Throw(code, sqlite3_errmsg(raw_));
    return Query(raw);
}

bool Database::Step(Query& query)
{
    const int code = sqlite3_step(query.Raw());
    if (code == SQLITE_ROW && !noMemory_)
        return true;
    const ResetAtExit reset(query);
    if (std::exchange(noMemory_, false))
        Throw(SQLITE_NOMEM, "");
    if (code == SQLITE_DONE)
        return false;
    Throw(code, sqlite3_errmsg(raw_));
}

void Database::Run(const std::string& script)
{
    const int code = sqlite3_exec(raw_, script.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        Throw(code, sqlite3_errmsg(raw_));
}

void Database::Throw(int code, const char* message)
{
    // Some calls of the storage return a general code for this.
    if (IsOutOfMemory(code) || IsOutOfMemory(sqlite3_errcode(raw_))) {
        failure_.reset();
        troubleIsMemory_ = true;
        throw std::bad_alloc();
    }
    if (failure_)
        throw EngineError(*std::exchange(failure_, std::nullopt));
    const int kind = code & 0xFF;
    if (kind == SQLITE_INTERRUPT || kind == SQLITE_BUSY)
        Interruption::CheckAnywhere();
    if (IsAboutFile(kind)) {
        troubleIsMemory_ = true;  // until the error is made
        fileError_ = FileErrorOf(code, sqlite3_system_errno(raw_), path_);
        troubleIsMemory_ = false;
        ThrowLastTrouble();
    }
    throw ErrorOf(kind, code, message);
}

void Database::ThrowLastTrouble() const
{
    if (troubleIsMemory_)
        throw std::bad_alloc();
    throw EngineError(fileError_);
}

void Database::Refuse(int code)
{
    Throw(code, sqlite3_errmsg(raw_));
}

void Database::Triggers(bool run)
{
    sqlite3_db_config(raw_, SQLITE_DBCONFIG_ENABLE_TRIGGER, run ? 1 : 0, nullptr);
}

std::int64_t Database::LastRowId() const
{
    return sqlite3_last_insert_rowid(raw_);
}
std::int64_t Database::ChangedRows() const
{
    return sqlite3_changes64(raw_);
}
bool Database::InTransaction() const
{
    return sqlite3_get_autocommit(raw_) == 0;
}

std::string Database::HeaderUnlocked() const
{
    // The file's format: how it is written, at 18, and what a writer counts up, from 24 on.
    constexpr std::size_t kWrittenHow = 18;
    constexpr char kByJournal = 1;
    constexpr std::size_t kCounters = 24;
    std::array<char, 40> header{};
    sqlite3_file* file = nullptr;
    int writing = 0;
    if (sqlite3_file_control(raw_, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK ||
        !file || !file->pMethods ||
        file->pMethods->xCheckReservedLock(file, &writing) != SQLITE_OK || writing != 0 ||
        file->pMethods->xRead(file, header.data(), static_cast<int>(header.size()), 0) !=
            SQLITE_OK ||
        header[kWrittenHow] != kByJournal)
        return {};
    return {header.data() + kCounters, header.size() - kCounters};
}

void Database::RollBack(Query& rollback) noexcept
{
    if (!InTransaction())
        return;
    sqlite3_step(rollback.Raw());
    rollback.Reset();
}

}  // namespace clb
