#include "engine/Session.h"

#include <new>

#include "engine/Compiler.h"
#include "engine/Errors.h"

namespace clb {

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

StatementCache::Entry Connection::State::Prepare(std::string_view sql)
{
    RequireOpen();
    NoticeForeignSchema();
    if (const auto* known = cache.FindText(sql))
        return *known;

    const LexedStatement lexed = Lex(sql);
    std::string shape = ShapeOf(lexed);
    StatementCache::Entry entry;
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
    schemaVersion = -1;
}

void Connection::State::BeginWrite()
{
    RequireTakenBack();
    if (database.InTransaction())
        return;
    // What the command wrote before is gone: the rest of it must not stand alone.
    if (LostGroup())
        database.ThrowLastTrouble();
    database.Step(begin);
    pending = true;
}

void Connection::State::StepWrite(Statement& statement)
{
    try {
        database.Step(statement);
    } catch (const EngineError& error) {
        if (whole && error.Trouble() != FileTrouble::None && database.InTransaction())
            TakeBack();
        throw;
    }
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
        Commit();
    } catch (...) {
        TakeBack();
    }
}

bool Connection::State::ChangedElsewhere()
{
    if (!database.IsOpen() || database.InTransaction())
        return false;
    const Database::Impatient now(database);
    try {
        if (!readDataVersion)
            readDataVersion = database.Prepare("PRAGMA data_version", true);
        const ResetAtExit reset(readDataVersion);
        database.Step(readDataVersion);
        const std::int64_t version = readDataVersion.Integer(0);
        const bool changed = version != dataVersion;
        dataVersion = version;
        return changed;
    } catch (const EngineError& error) {
        if (error.Trouble() == FileTrouble::Locked)
            return false;
        throw;
    }
}

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
