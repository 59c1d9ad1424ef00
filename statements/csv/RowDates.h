// What the dates of a table say of the order of day, month and year, and of the rows.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "statements/csv/RowBalanceChain.h"
#include "statements/form/DateTexts.h"

namespace clb {

/// Collects the dates of the rows in the order of the file.
class RowDates {
public:
    /// Which way the days of a file go.
    enum class Direction { None, Rising, Falling };

    /// Takes the date of a row, and another date of it, such as the value date, if it has one.
    void Add(std::string_view date, std::string_view other);

    /// The orders that remain, the likeliest first: two dates of a row lie near each other, and
    /// rows that follow the balance are in the order of time.
    [[nodiscard]] std::vector<DateText::Order> Possible(
        const std::vector<BalanceStep>& steps) const;
    /// The orders that read any date, those that read most first. For dates that contradict.
    [[nodiscard]] std::vector<DateText::Order> Readable() const;
    [[nodiscard]] Direction DirectionIn(DateText::Order order) const;

private:
    struct Counts {
        std::size_t readable = 0;
        std::size_t rises = 0;
        std::size_t falls = 0;
        std::int32_t farthest = 0;  ///< days between the two dates of a row, at most
        std::optional<Date> last{};
    };
    static void Count(Counts& counts, std::optional<Date> day, std::optional<Date> second,
                      bool hasSecond);
    void Keep(std::vector<DateText::Order>& orders,
              const std::function<bool(const Counts&)>& wanted) const;
    [[nodiscard]] const Counts& Of(DateText::Order order) const
    {
        return counts_[static_cast<std::size_t>(order)];
    }

    // A row with the dates of the row before says nothing new.
    bool started_ = false;
    std::string date_;
    std::string other_;
    DateOrders orders_;
    std::array<Counts, 3> counts_;
};

}  // namespace clb
