#pragma once
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "engine/rows/Connection.h"
#include "engine/sql/Plan.h"
#include "engine/sql/PlanCache.h"
#include "engine/storage/Catalogue.h"
#include "engine/storage/ChangeWatch.h"
#include "engine/storage/Database.h"

namespace clb {

/// What a connection is made of; result sets work on it.
struct Connection::State {
    Database database;
    Catalogue catalogue{database};
    PlanCache cache;
    std::function<void(std::string_view)> trace;
    IChangeWatch* watch = nullptr;    ///< of the rows that change; borrowed
    std::int64_t schemaVersion = -1;  ///< of the catalogue and the cache; -1: not known
    bool reading = false;             ///< a ReadGroup lives
    bool pending = false;             ///< the pending group was opened and not settled
    std::uint64_t groups = 0;         ///< how many pending groups were opened so far
    bool whole = false;               ///< it was opened ahead: it is kept whole or not at all
    Query readSchemaVersion;
    // Prepared by Open, so that a group can be ended when there is no memory for it.
    Query begin;
    Query beginReading;
    Query commit;
    Query rollback;
    bool abandoned = false;  ///< the open group could not be taken back: it is never committed
    Query readDataVersion;
    std::int64_t dataVersion = -1;  ///< of the storage when it was last asked; -1: not known

    /// Opens the file and prepares what begins and ends groups. Throws EngineError.
    void Open(const std::string& path);
    /// The compiled query and its values. Notices first when another program has changed the
    /// schema. Throws EngineError.
    PlanCache::Entry Prepare(std::string_view sql);
    /// The same for a query whose rows are to be read. Throws EngineError for any but a SELECT.
    PlanCache::Entry PrepareSelect(std::string_view sql);
    /// Opens the pending group unless it is open. Throws the error that made the storage give up
    /// the group, where it did.
    void BeginWrite();
    /// Runs a query that writes, behind BeginWrite. Trouble with the file gives up a group that
    /// is kept whole or not at all. Throws EngineError.
    void StepWrite(Query& query);
    /// Runs an INSERT into a table whose counter numbers the new rows. Throws EngineError, with
    /// nothing changed, when the counter has too few numbers left.
    void StepInsert(Query& query, const std::string& table);
    /// Whether the pending group was given up with all that was in it.
    [[nodiscard]] bool LostGroup() const { return pending && !database.InTransaction(); }
    void Settle();
    void Abandon() noexcept;
    /// Takes the pending group back. What else the command writes until Settle is refused.
    void GiveUp() noexcept { TakeBack(); }
    /// Tells the watch what the storage has taken back after a query that failed: the query, or the
    /// whole group. seen: how many changes the watch had seen before the query.
    void TellTakenBack(std::size_t seen) noexcept;
    bool ChangedElsewhere();
    /// A number that another program's writing changes. Throws EngineError.
    std::int64_t DataVersion();
    void Commit();
    /// Ends the transaction of a ReadGroup, in which nothing was written.
    void EndReading() noexcept;
    /// To be called after each change of the schema.
    void ForgetSchema();
    void RequireOpen() const;

private:
    void NoticeForeignSchema();
    /// Tells everyone who watches that the group is lost.
    void TellLost() noexcept;
    /// Takes the open group back; a group that cannot be taken back is marked as abandoned.
    void TakeBack() noexcept;
    /// Tries again to take an abandoned group back. Throws std::bad_alloc when it stays.
    void RequireTakenBack();
    std::int64_t LastNumber(const std::string& table);

    std::map<std::string, Query> lastNumbers_;  ///< by table
};

}  // namespace clb
