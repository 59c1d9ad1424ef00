#include "bench/Bare.h"

#include <stdexcept>

namespace clb {

BareStatement::BareStatement(sqlite3* database, std::string_view sql)
{
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()),
                           SQLITE_PREPARE_PERSISTENT, &raw, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(database));
    raw_.reset(raw);
}

void BareStatement::Throw() const
{
    throw std::runtime_error(sqlite3_errmsg(sqlite3_db_handle(raw_.get())));
}

BareDatabase::BareDatabase(const std::string& path)
{
    sqlite3* raw = nullptr;
    const int code =
        sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    raw_.reset(raw);
    if (code != SQLITE_OK)
        throw std::runtime_error("cannot open " + path + ": " + sqlite3_errstr(code));
    Run("PRAGMA journal_mode = DELETE; PRAGMA synchronous = EXTRA; PRAGMA cache_size = -16384");
}

void BareDatabase::Run(const std::string& script)
{
    if (sqlite3_exec(raw_.get(), script.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(raw_.get()));
}

}  // namespace clb
