#include "engine/storage/Database.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <new>
#include <optional>
#include <utility>

#include "base/Interruption.h"
#include "engine/storage/Functions.h"
#include "engine/storage/Refusals.h"
#include "engine/storage/StorageErrors.h"
#include "engine/storage/Waiting.h"

namespace clb {
namespace {

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

}  // namespace

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
        throw storage_errors::NoDatabase(path);
}

void Database::RequireWritable()
{
    if (sqlite3_db_readonly(raw_, "main") == 1)
        throw storage_errors::OfFile(SQLITE_READONLY, 0, path_);
    std::error_code ignored;
    const auto file = std::filesystem::weakly_canonical(path_, ignored);
    if (faccessat(AT_FDCWD, file.parent_path().c_str(), W_OK | X_OK, AT_EACCESS) != 0)
        throw storage_errors::FolderTakesNoFiles(path_);
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
        if (storage_errors::IsOutOfMemory(code))
            throw std::bad_alloc();
        throw(code & 0xFF) == SQLITE_CANTOPEN
            ? storage_errors::OfSystem(system, path)
                  .value_or(refuse::File(path, "cannot be opened.", FileTrouble::Unreadable))
            : storage_errors::OfFile(code, system, path);
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
    if (storage_errors::IsOutOfMemory(code) ||
        storage_errors::IsOutOfMemory(sqlite3_errcode(raw_))) {
        failure_.reset();
        troubleIsMemory_ = true;
        throw std::bad_alloc();
    }
    if (failure_)
        throw EngineError(*std::exchange(failure_, std::nullopt));
    const int kind = code & 0xFF;
    if (kind == SQLITE_INTERRUPT || kind == SQLITE_BUSY)
        Interruption::CheckAnywhere();
    if (storage_errors::IsAboutFile(kind)) {
        troubleIsMemory_ = true;  // until the error is made
        fileError_ = storage_errors::OfFile(code, sqlite3_system_errno(raw_), path_);
        troubleIsMemory_ = false;
        ThrowLastTrouble();
    }
    throw storage_errors::OfQuery(kind, code, message);
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
