#include "engine/rows/Session.h"

#include <limits>
#include <new>

#include "base/Interruption.h"
#include "engine/sql/Compiler.h"
#include "engine/storage/Refusals.h"
#include "engine/storage/RowObserver.h"

namespace clb {
namespace {

/// Counters are numbers of 32 bits; the storage would go on to 64, and no program could read them.
constexpr std::int64_t kLargestNumber = std::numeric_limits<std::int32_t>::max();

}  // namespace

void Connection::State::Open(const std::string& path)
{
    database.OpenExisting(path);
    try {
        begin = database.Prepare("BEGIN IMMEDIATE", true);
        beginReading = database.Prepare("BEGIN DEFERRED", true);
        commit = database.Prepare("COMMIT", true);
        rollback = database.Prepare("ROLLBACK", true);
        ChangedElsewhere();
    } catch (...) {
        database.Close();
        throw;
    }
}

void Connection::State::RequireOpen() const
{
    if (!database.IsOpen())
        throw refuse::Closed();
}

PlanCache::Entry Connection::State::Prepare(std::string_view sql)
{
    Interruption::CheckAnywhere();
    RequireOpen();
    NoticeForeignSchema();
    if (const auto* known = cache.FindText(sql))
        return *known;

    const LexedSql lexed = Lex(sql);
    std::string shape = ShapeOf(lexed);
    PlanCache::Entry entry;
    entry.plan = cache.FindShape(shape);
    if (!entry.plan) {
        entry.plan = Compile(lexed, catalogue, database);
        if (entry.plan->kind == Plan::Kind::Ddl)
            return entry;
        cache.AddShape(std::move(shape), entry.plan);
    }
    BoundValues values;
    values.reserve(entry.plan->parameters.size());
    for (const Parameter& parameter : entry.plan->parameters)
        values.push_back(ParameterValue(parameter, lexed.literals[parameter.literal]));
    entry.values = std::make_shared<const BoundValues>(std::move(values));
    cache.AddText(sql, entry);
    return entry;
}

PlanCache::Entry Connection::State::PrepareSelect(std::string_view sql)
{
    PlanCache::Entry entry = Prepare(sql);
    if (entry.plan->kind != Plan::Kind::Select)
        throw refuse::WrongSql("Only a SELECT can be opened as a result set.");
    return entry;
}

void Connection::State::NoticeForeignSchema()
{
    if (database.InTransaction() && !reading)
        return;  // nobody else can write now
    if (!readSchemaVersion)
        readSchemaVersion = database.Prepare("PRAGMA schema_version", true);
    const ResetAtExit reset(readSchemaVersion);
    database.Step(readSchemaVersion);
    const std::int64_t version = readSchemaVersion.Integer(0);
    if (version != schemaVersion)
        ForgetSchema();
    schemaVersion = version;
}

void Connection::State::ForgetSchema()
{
    cache.Clear();
    catalogue.Forget();
    lastNumbers_.clear();
    schemaVersion = -1;
}

void Connection::State::BeginWrite()
{
    Interruption::CheckAnywhere();
    RequireTakenBack();
    if (database.InTransaction())
        return;
    // What the command wrote before is gone: the rest of it must not stand alone.
    if (LostGroup())
        database.ThrowLastTrouble();
    database.Step(begin);
    ++groups;
    pending = true;
}

void Connection::State::StepWrite(Query& query)
{
    const std::size_t seen = watch != nullptr ? watch->Seen() : 0;
    try {
        database.Step(query);
    } catch (const EngineError& error) {
        TellTakenBack(seen);
        if (whole && error.Trouble() != FileTrouble::None && database.InTransaction())
            TakeBack();
        throw;
    } catch (...) {
        TellTakenBack(seen);
        throw;
    }
}

void Connection::State::TellTakenBack(std::size_t seen) noexcept
{
    if (!database.InTransaction())
        TellLost();
    else if (watch != nullptr)
        watch->TakenBackTo(seen);
}

void Connection::State::TellLost() noexcept
{
    if (watch != nullptr)
        watch->Lost();
    for (IRowObserver* const observer : database.Observers())
        observer->Lost();
}

void Connection::State::StepInsert(Query& query, const std::string& table)
{
    const std::int64_t left = kLargestNumber - LastNumber(table);
    if (left <= 0)
        throw refuse::NoNumberLeft(table);
    StepWrite(query);
    if (database.ChangedRows() <= left)
        return;
    database.Run("DELETE FROM " + QuoteName(table) + " WHERE rowid > " +
                 std::to_string(kLargestNumber - left));
    throw refuse::NoNumberLeft(table);
}

/// The largest number that the table's counter has given, 0 before the first.
std::int64_t Connection::State::LastNumber(const std::string& table)
{
    Query& find = lastNumbers_[table];
    if (!find) {
        std::string sql = "SELECT ifnull(max(rowid), 0) AS n FROM " + QuoteName(table);
        Query keeps =
            database.Prepare("SELECT 1 FROM sqlite_master WHERE name = 'sqlite_sequence'");
        const ResetAtExit reset(keeps);
        // It also keeps numbers whose rows are gone.
        if (database.Step(keeps))
            sql += " UNION ALL SELECT ifnull(max(seq), 0) FROM sqlite_sequence WHERE name = " +
                   QuoteText(table) + " COLLATE NOCASE";
        find = database.Prepare("SELECT max(n) FROM (" + sql + ")", true);
    }
    const ResetAtExit reset(find);
    return database.Step(find) ? find.Integer(0) : 0;
}

void Connection::State::Commit()
{
    if (watch != nullptr)
        watch->BeforeCommit();
    database.Step(commit);
    if (watch != nullptr)
        watch->Committed();
    for (IRowObserver* const observer : database.Observers())
        observer->Committed();
}

void Connection::State::Settle()
{
    pending = false;
    whole = false;
    if (!database.IsOpen())
        return;
    RequireTakenBack();
    if (!database.InTransaction())
        return;
    try {
        Commit();
    } catch (...) {
        TakeBack();
        throw;
    }
}

void Connection::State::Abandon() noexcept
{
    pending = false;
    whole = false;
    if (database.IsOpen())
        TakeBack();
}

void Connection::State::TakeBack() noexcept
{
    if (database.InTransaction())
        database.RollBack(rollback);
    abandoned = database.InTransaction();
    TellLost();
    ForgetSchema();
}

void Connection::State::RequireTakenBack()
{
    if (abandoned)
        TakeBack();
    if (abandoned)
        throw std::bad_alloc();
}

void Connection::State::EndReading() noexcept
{
    reading = false;
    try {
        database.Step(commit);
    } catch (...) {
        TakeBack();
    }
}

bool Connection::State::ChangedElsewhere()
{
    if (!database.IsOpen())
        return false;
    const Database::Impatient now(database);
    try {
        const std::int64_t version = DataVersion();
        const bool changed = version != dataVersion;
        dataVersion = version;
        return changed;
    } catch (const EngineError& error) {
        if (error.Trouble() == FileTrouble::Locked)
            return false;
        throw;
    }
}

std::int64_t Connection::State::DataVersion()
{
    if (!readDataVersion)
        readDataVersion = database.Prepare("PRAGMA data_version", true);
    const ResetAtExit reset(readDataVersion);
    database.Step(readDataVersion);
    return readDataVersion.Integer(0);
}

ReadGroup::ReadGroup(const Connection& connection) : ReadGroup(connection.Internals()) {}

ReadGroup::ReadGroup(Connection::State& session)
{
    if (session.database.InTransaction())
        return;
    session.database.Step(session.beginReading);
    session.reading = true;
    session_ = &session;
}

ReadGroup::~ReadGroup()
{
    if (session_)
        session_->EndReading();
}

}  // namespace clb
