#include "bench/MadeRows.h"

#include <cstdio>

namespace clb {
namespace {

constexpr std::int32_t kDays = 3653;  // 2000 to 2009
constexpr const char* kFirstDay = "2000-01-01";

}  // namespace

Date MadeDay(std::int32_t number, std::int32_t count)
{
    const auto days = std::int64_t{number} * kDays / count;
    return Date::FromDays(Date::FromIso(kFirstDay)->Days() + static_cast<std::int32_t>(days));
}

std::string MadeRow::Day(const char* between) const
{
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%04d%s%02d%s%02d", date.Year(), between, date.Month(),
                  between, date.Day());
    return text.data();
}

std::optional<MadeRow> MadeRows::Next()
{
    if (number_ == count_)
        return std::nullopt;
    MadeRow row;
    row.date = MadeDay(number_, count_);
    const std::uint32_t kind = Below(10);
    const bool in = kind == 1;
    const std::uint32_t cents = Below(100);
    const std::uint32_t units = Below(in ? 3000 : 300);
    std::array<char, 40> amount{};
    std::snprintf(amount.data(), amount.size(), "%s%u.%02u", in ? "" : "-", units, cents);
    row.amount = amount.data();
    row.cents = (in ? 1 : -1) * (std::int64_t{units} * 100 + cents);
    row.identifier = row.Day("") + "." + std::to_string(1000000 + number_);
    if (kind == 0)
        row.check = std::to_string(100 + number_ % 9000);
    row.name = kMadeNames[Below(kMadeNames.size())];
    row.name += " #" + std::to_string(100 + Below(800));
    row.memo = kMadeMemos[Below(kMadeMemos.size())];
    ++number_;
    return row;
}

}  // namespace clb
