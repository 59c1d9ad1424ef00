#pragma once
#include <cstdint>
#include <optional>

namespace clb {

class Connection;

/// The schema version that this program works with and brings older files to.
inline constexpr std::int16_t kSchemaVersion = 2;

/// The version that a database file has; nothing when it has never had one. Throws RuntimeError for
/// a version that is no number of 16 bits.
std::optional<std::int16_t> SchemaVersionOf(Connection& connection);

}  // namespace clb
