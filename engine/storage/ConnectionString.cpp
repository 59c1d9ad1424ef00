#include "engine/storage/ConnectionString.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "base/Text.h"
#include "engine/storage/EngineError.h"

namespace clb {
namespace {

bool IsKey(std::string_view text)
{
    return !Trim(text).empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) {
        return std::isalnum(c) != 0 || c == ' ' || c == ':' || c == '_';
    });
}

/// The setting from here to the ";" before the next setting.
std::string_view TakeSetting(std::string_view& rest)
{
    for (std::size_t at = rest.find(';'); at != std::string_view::npos;
         at = rest.find(';', at + 1)) {
        const auto after = rest.substr(at + 1);
        const std::size_t sign = after.find('=');
        const bool next = sign != std::string_view::npos && IsKey(after.substr(0, sign));
        if (!next && !Trim(after).empty())
            continue;
        const auto setting = rest.substr(0, at);
        rest = after;
        return setting;
    }
    return std::exchange(rest, {});
}

}  // namespace

std::string DataSourceOf(std::string_view connectionString)
{
    while (!connectionString.empty()) {
        const auto setting = TakeSetting(connectionString);
        const std::size_t sign = setting.find('=');
        if (sign == std::string_view::npos ||
            !EqualsIgnoringCase(Trim(setting.substr(0, sign)), "Data Source"))
            continue;
        return Replace(Trim(setting.substr(sign + 1)), "\\", "/");
    }
    throw EngineError(engine_errors::Unavailable, "The connection string names no data source.");
}

}  // namespace clb
