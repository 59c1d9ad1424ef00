// The storage declares its hook only if it is asked to.
#define SQLITE_ENABLE_PREUPDATE_HOOK
#include "engine/storage/ChangeWatch.h"

#include <sqlite3.h>

#include <new>

#include "engine/storage/Database.h"
#include "engine/storage/PackedCells.h"
#include "engine/storage/RowObserver.h"

namespace clb {
namespace {

void Append(std::string& cells, int code, sqlite3_value* value)
{
    if (code == SQLITE_RANGE)  // a computed column, which is not stored
        return packed::AppendCell(cells, StoredCell());
    if (code != SQLITE_OK || value == nullptr)
        throw std::bad_alloc();  // the calls have no other reason to fail
    packed::AppendCell(cells, value);
}

ChangingRow::Kind KindOf(int operation)
{
    switch (operation) {
        case SQLITE_INSERT: return ChangingRow::Kind::Insert;
        case SQLITE_UPDATE: return ChangingRow::Kind::Update;
        default: return ChangingRow::Kind::Delete;
    }
}

}  // namespace

int ChangingRow::Columns() const
{
    return sqlite3_preupdate_count(database_);
}

void ChangingRow::AppendBefore(std::string& cells, int column) const
{
    sqlite3_value* value = nullptr;
    const int code = sqlite3_preupdate_old(database_, column, &value);
    Append(cells, code, value);
}

void ChangingRow::AppendAfter(std::string& cells, int column) const
{
    sqlite3_value* value = nullptr;
    const int code = sqlite3_preupdate_new(database_, column, &value);
    Append(cells, code, value);
}

void Database::Changing(void* self, sqlite3* raw, int operation, const char* database,
                        const char* table, std::int64_t before, std::int64_t after)
{
    auto& own = *static_cast<Database*>(self);
    if (std::string_view(database) != "main")
        return;  // a temporary table of the storage's own
    try {
        if (own.watch_ != nullptr)
            own.watch_->Changing({raw, KindOf(operation), table, before, after});
        for (IRowObserver* const observer : own.observers_)
            observer->RowChanging(table, before, after);
    } catch (...) {
        own.FailForMemory();
    }
}

void Database::Watch(IChangeWatch* watch)
{
    watch_ = watch;
    SetHook();
}

void Database::AddObserver(IRowObserver& observer)
{
    observers_.push_back(&observer);
    SetHook();
}

void Database::RemoveObserver(const IRowObserver& observer) noexcept
{
    std::erase(observers_, &observer);
    SetHook();
}

void Database::SetHook() noexcept
{
    using Hook =
        void (*)(void*, sqlite3*, int, const char*, const char*, sqlite3_int64, sqlite3_int64);
    const Hook hook = [](void* self, sqlite3* raw, int operation, const char* database,
                         const char* table, sqlite3_int64 before, sqlite3_int64 after) {
        Changing(self, raw, operation, database, table, before, after);
    };
    sqlite3_preupdate_hook(raw_, SeesChanges() ? hook : nullptr, this);
}

}  // namespace clb
