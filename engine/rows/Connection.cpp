#include "engine/rows/Connection.h"

#include <utility>

#include "engine/rows/Session.h"
#include "engine/sql/Schema.h"
#include "engine/storage/ConnectionString.h"
#include "engine/storage/Refusals.h"
#include "engine/storage/RowObserver.h"
#include "files/FileError.h"
#include "files/WholeFile.h"

namespace clb {
namespace {

void RunWrite(Connection::State& state, const PlanCache::Entry& entry)
{
    state.BeginWrite();
    Query& query = entry.plan->query;
    for (std::size_t i = 0; i < entry.values->size(); ++i)
        query.Bind(static_cast<int>(i) + 1, (*entry.values)[i]);
    if (entry.plan->numberedTable.empty())
        state.StepWrite(query);
    else
        state.StepInsert(query, entry.plan->numberedTable);
}

/// The table that a query makes, changes or removes, or whose index it does.
const std::string& TableOf(const DdlQuery& ddl)
{
    return std::visit([](const auto& query) -> const std::string& { return query.table; }, ddl);
}

void RunDdl(Connection::State& state, const DdlQuery& ddl)
{
    state.BeginWrite();
    const std::size_t seen = state.watch != nullptr ? state.watch->Seen() : 0;
    try {
        ApplyDdl(ddl, state.catalogue, state.database);
    } catch (...) {
        state.TellTakenBack(seen);
        state.ForgetSchema();
        throw;
    }
    state.ForgetSchema();
    if (state.watch != nullptr)
        state.watch->TableChanged(TableOf(ddl));
    for (IRowObserver* const observer : state.database.Observers())
        observer->TableChanged(TableOf(ddl));
}

}  // namespace

Connection::Connection() : state_(std::make_unique<State>()) {}
Connection::~Connection() = default;
Connection::Connection(Connection&&) noexcept = default;
Connection& Connection::operator=(Connection&&) noexcept = default;

void Connection::Open(std::string_view connectionString)
{
    if (IsOpen())
        throw refuse::AlreadyOpen();
    state_->Open(DataSourceOf(connectionString));
}

bool Connection::IsOpen() const
{
    return state_ && state_->database.IsOpen();
}

Recordset Connection::Execute(std::string_view sql)
{
    Recordset result;
    State& state = *state_;
    if (state.trace)
        state.trace(sql);
    const auto entry = state.Prepare(sql);
    if (entry.plan->kind == Plan::Kind::Ddl)
        RunDdl(state, *entry.plan->ddl);
    else if (entry.plan->kind == Plan::Kind::Write)
        RunWrite(state, entry);
    else
        result.OpenUntraced(sql, *this, LockKind::ReadOnly);
    return result;
}

void Connection::Group()
{
    state_->RequireOpen();
    state_->BeginWrite();
    state_->whole = true;
}

void Connection::Lock()
{
    state_->RequireOpen();
    state_->BeginWrite();
}

bool Connection::Locked() const
{
    return state_->database.IsOpen() && state_->database.InTransaction();
}

void Connection::Abandon() noexcept
{
    state_->Abandon();
}

bool Connection::ChangedElsewhere()
{
    return state_->ChangedElsewhere();
}

Connection::Contents Connection::ContentsNow()
{
    state_->RequireOpen();
    Contents contents;
    contents.groups = state_->groups;
    // First, so that what is written in between changes it.
    contents.header = state_->database.HeaderUnlocked();
    contents.elsewhere = state_->DataVersion();
    return contents;
}

bool Connection::IsUnchanged(const Contents& since)
{
    state_->RequireOpen();
    if (state_->groups != since.groups)
        return false;
    const std::string header = state_->database.HeaderUnlocked();
    return (!header.empty() && header == since.header) || state_->DataVersion() == since.elsewhere;
}

bool Connection::WrittenElsewhere(const Contents& since)
{
    state_->RequireOpen();
    const std::string header = state_->database.HeaderUnlocked();
    if (!header.empty() && header == since.header)
        return false;
    const Database::Impatient now(state_->database);
    try {
        return state_->DataVersion() != since.elsewhere;
    } catch (const EngineError& error) {
        if (error.Trouble() == FileTrouble::Locked)
            return false;
        throw;
    }
}

void Connection::Settle()
{
    state_->Settle();
}

void Connection::Watch(IChangeWatch* watch)
{
    const bool saw = state_->database.SeesChanges();
    state_->database.Watch(watch);
    state_->watch = watch;
    if (!saw)
        state_->cache.Clear();
}

void Connection::AddObserver(IRowObserver& observer)
{
    const bool saw = state_->database.SeesChanges();
    state_->database.AddObserver(observer);
    // The storage may have compiled them to remove all rows of a table at once, without a report.
    if (!saw)
        state_->cache.Clear();
}

void Connection::RemoveObserver(const IRowObserver& observer) noexcept
{
    state_->database.RemoveObserver(observer);
}

bool Connection::LostGroup() const
{
    return state_->LostGroup();
}

bool Connection::Traced() const
{
    return static_cast<bool>(state_->trace);
}

void Connection::Trace(std::function<void(std::string_view)> sink)
{
    state_->trace = std::move(sink);
}

Connection::Untraced::Untraced(Connection& connection)
    : connection_(connection), sink_(std::exchange(connection.state_->trace, nullptr))
{
}

Connection::Untraced::~Untraced()
{
    connection_.state_->trace = std::move(sink_);
}

void Connection::CreateFile(const std::string& path, const std::string& script)
{
    try {
        WholeFile file(path, Existing::Refuse);
        Database database;
        database.Create(file.Path());
        database.Run(script);
        database.Close();
        file.Keep();
    } catch (const FileError& error) {
        throw refuse::CannotWrite(path, error.Reason());
    }
}

Connection::State& Connection::Internals() const
{
    return *state_;
}

}  // namespace clb
