// The schema version of a database file, and the update of older files.
#pragma once
#include <cstdint>
#include <optional>

namespace clb {

class Connection;

/// The schema version that this program works with and brings older files to.
inline constexpr std::int16_t kSchemaVersion = 2;

/// The version of a database file; nothing if the file has never had one. Throws RuntimeError if
/// the version is not a 16-bit number.
std::optional<std::int16_t> SchemaVersionOf(Connection& connection);

/// Brings a file of version 0 or 1 up to kSchemaVersion, in the pending group; other files are not
/// touched. Returns the version that the file then has. Throws EngineError.
std::int16_t UpgradeSchema(Connection& connection);

}  // namespace clb
