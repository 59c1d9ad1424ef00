#include "data/SchemaVersion.h"

#include "base/Numeric.h"
#include "engine/rows/Connection.h"
#include "engine/storage/EngineError.h"

namespace clb {
namespace {

std::int16_t ReadSchemaVersion(Connection& connection)
{
    if (const auto version = SchemaVersionOf(connection))
        return *version;
    connection.Execute("CREATE TABLE _SchemaVersion (0 LONG)");
    return 0;
}

}  // namespace

std::optional<std::int16_t> SchemaVersionOf(Connection& connection)
{
    try {
        Recordset records = connection.Execute("SELECT * FROM _SchemaVersion");
        if (records.Fields().empty())
            throw EngineError(engine_errors::ItemNotFound,
                              "The table _SchemaVersion has no column that names the version.");
        return NarrowTo<std::int16_t>(ParseLong(records.Fields().front().name));
    } catch (const EngineError& error) {
        if (error.Number() != engine_errors::NoSuchTable)
            throw;
    }
    return std::nullopt;
}

std::int16_t UpgradeSchema(Connection& connection)
{
    std::int16_t version = SchemaVersionOf(connection).value_or(0);
    if (version != 0 && version != 1)
        return version;
    // Another program may be upgrading the same file.
    connection.Lock();
    version = ReadSchemaVersion(connection);
    if (version != 0 && version != 1)
        return version;
    if (version == 0)
        connection.Execute("ALTER TABLE Loan ALTER COLUMN InterestRate Single");
    connection.Execute("ALTER TABLE Account ADD COLUMN BudgetInclude YESNO NOT NULL DEFAULT YES");
    connection.Execute("UPDATE Account SET BudgetInclude = YES");
    connection.Execute("ALTER TABLE _SchemaVersion DROP COLUMN " + std::to_string(version));
    // The new version is fixed, whatever the old one was.
    connection.Execute("ALTER TABLE _SchemaVersion ADD  COLUMN 2 LONG");
    return kSchemaVersion;
}

}  // namespace clb
