#include "engine/rows/RowWalk.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <span>

#include "engine/rows/RowWriter.h"
#include "engine/rows/Session.h"
#include "engine/sql/Plan.h"

namespace clb {

const std::vector<Field>& WalkedRow::Fields() const
{
    return plan_.readOnlyFields;
}

std::size_t WalkedRow::FieldIndex(std::string_view name) const
{
    return IndexOfField(Fields(), name);
}

Value WalkedRow::Get(std::size_t field) const
{
    Value value;
    const std::int64_t rowId =
        plan_.carriesRowId ? query_.Integer(static_cast<int>(plan_.fields.size())) : 0;
    TakeFields(plan_, query_, {field, 1}, rowId, &value);
    return value;
}

std::string_view WalkedRow::Text(std::size_t field) const
{
    if (plan_.fields[field].type != FieldType::Text)
        return {};
    return query_.TextView(static_cast<int>(field));
}

bool WalkedRow::IsNull(std::size_t field) const
{
    return sqlite3_column_type(query_.Raw(), static_cast<int>(field)) == SQLITE_NULL;
}

bool WalkedRow::HoldsText(std::size_t field) const
{
    return sqlite3_column_type(query_.Raw(), static_cast<int>(field)) == SQLITE_TEXT;
}

namespace {

/// Many whole rows take longer to put in order than to be read by their identities.
void WalkIdentities(Connection::State& session, Plan& plan, const BoundValues& values,
                    const std::function<void(const WalkedRow&)>& take)
{
    RowWriter reader(session, plan);
    const std::vector<std::int64_t> identities = reader.Identities(values);
    std::span<const std::int64_t> left(identities);
    while (!left.empty()) {
        const auto block = left.first(std::min(left.size(), RowStore::kBlockRows));
        reader.Visit(block, values,
                     [&](std::size_t, const Query& query) { take(WalkedRow(plan, query)); });
        left = left.subspan(block.size());
    }
}

void WalkQuery(Connection::State& session, Plan& plan, const BoundValues& values,
               const std::function<void(const WalkedRow&)>& take)
{
    const ResetAtExit reset(plan.query);
    plan.query.BindAll(values);
    const WalkedRow row(plan, plan.query);
    while (session.database.Step(plan.query))
        take(row);
}

}  // namespace

void WalkRows(Connection& connection, std::string_view sql,
              const std::function<void(const WalkedRow&)>& take)
{
    Connection::State& session = connection.Internals();
    if (session.trace)
        session.trace(sql);
    const ReadGroup group(session);
    const auto entry = session.PrepareSelect(sql);
    if (entry.plan->identitiesSql.empty())
        WalkQuery(session, *entry.plan, *entry.values, take);
    else
        WalkIdentities(session, *entry.plan, *entry.values, take);
}

}  // namespace clb
