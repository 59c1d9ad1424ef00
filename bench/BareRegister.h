#pragma once
#include <cstdint>
#include <string>

#include "base/Date.h"
#include "bench/Bare.h"

namespace clb {

/// The reference of a register: the statements of one account's month, prepared once, every value
/// read out and none kept.
class BareRegister {
public:
    /// Borrows the database.
    explicit BareRegister(BareDatabase& database);

    struct Result {
        std::int32_t rows = 0;
        std::int64_t balance = 0;  ///< at the month's end, 1/10000 units
        std::uint64_t read = 0;    ///< made of all values, so that reading them is not left out
    };
    Result Read(const std::string& account, Month month);

private:
    BareStatement rows_;
    BareStatement opening_;
    BareStatement past_;
};

}  // namespace clb
