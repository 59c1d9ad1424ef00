// The headers of QIF.
#pragma once
#include <cstdint>
#include <string_view>

namespace clb {

/// A line that begins with '!'.
struct QifHeader {
    enum class Kind : std::uint8_t {
        Type,     ///< "!Type:Bank": a list of this type follows
        Account,  ///< "!Account": names of accounts follow
        Clear,    ///< "!Clear:AutoSwitch"
        Other     ///< an option
    };
    Kind kind = Kind::Other;
    std::string_view name{};  ///< of a type
};
/// Reads a header, in any case.
[[nodiscard]] QifHeader ReadQifHeader(std::string_view line);

/// What a type of list holds.
struct QifType {
    const char* account = "Bank";  ///< the program's account type
    bool investment = false;       ///< trades
    bool isList = false;           ///< no transactions: categories, prices, ...
};
/// Finds a type by its name. A name that is not known is a list of a bank account's transactions.
[[nodiscard]] QifType FindQifType(std::string_view name);

}  // namespace clb
