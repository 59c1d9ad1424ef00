// Made transactions for the statement files of the benchmarks.
#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <random>
#include <string>

#include "base/Date.h"

namespace clb {

inline constexpr std::array kMadeNames = {
    "CORNER GROCERY",     "RIVERSIDE PHARMACY", "CITY WATER WORKS",  "NORTH END BAKERY",
    "GREEN LANE GARAGE",  "HARBOUR BOOKS",      "OLD MILL HARDWARE", "STATION CAFE",
    "PARK STREET CLINIC", "COUNTY ELECTRIC",    "MAPLE HILL SCHOOL", "BLUE DOOR RESTAURANT"};
inline constexpr std::array kMadeMemos = {
    "", "CARD PURCHASE", "STANDING ORDER", "REF 00417 THANK YOU",
    "POINT OF SALE PURCHASE, CARD ENDING IN 4417, TERMINAL 0092 AT THE MAIN ENTRANCE"};

/// One transaction.
struct MadeRow {
    Date date;
    std::string amount;  ///< with a point and two decimals
    std::int64_t cents = 0;
    std::string identifier;
    std::string check;  ///< number of a cheque; empty if it is none
    std::string name;
    std::string memo;  ///< may be empty

    /// Year, month and day with this between them.
    [[nodiscard]] std::string Day(const char* between) const;
};

/// Makes ten years of transactions in order of date, each with its own identifier; one in ten is a
/// cheque, one a payment in, and some memos are longer than what the program keeps. The same count
/// always gives the same rows.
class MadeRows {
public:
    explicit MadeRows(std::int32_t count) : count_(count) {}
    /// The next one; nothing after the last.
    std::optional<MadeRow> Next();

private:
    std::uint32_t Below(std::uint32_t limit)
    {
        return static_cast<std::uint32_t>(random_() % limit);
    }

    std::int32_t count_;
    std::int32_t number_ = 0;
    std::mt19937 random_{20060305};
};

/// The day of a transaction with this number from 0, of so many.
[[nodiscard]] Date MadeDay(std::int32_t number, std::int32_t count);

}  // namespace clb
