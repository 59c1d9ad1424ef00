// Reads a month's register without the program.
#pragma once
#include <cstdint>
#include <string>

#include "base/Date.h"
#include "bench/Bare.h"

namespace clb {

/// The reference of a register: the statements of one account's month, prepared once. Every value
/// is read and none is kept.
class BareRegister {
public:
    /// Borrows the database.
    explicit BareRegister(BareDatabase& database);

    struct Result {
        std::int32_t rows = 0;
        std::int64_t balance = 0;  ///< at the end of the month, in 1/10000 units
        std::uint64_t read =
            0;  ///< made from all values, so that the compiler cannot leave out reading them
    };
    Result Read(const std::string& account, Month month);

private:
    BareStatement rows_;
    BareStatement opening_;
    BareStatement past_;
};

}  // namespace clb
