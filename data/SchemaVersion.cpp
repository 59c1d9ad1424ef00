#include "data/SchemaVersion.h"

#include "base/Numeric.h"
#include "engine/Connection.h"
#include "engine/EngineError.h"

namespace clb {

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

}  // namespace clb
