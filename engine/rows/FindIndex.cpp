#include "engine/rows/FindIndex.h"

#include <algorithm>
#include <bit>
#include <string_view>

namespace clb {
namespace {

/// Distributes neighbouring numbers over the whole table.
std::uint64_t Mixed(std::uint64_t x)
{
    x ^= x >> 32;
    x *= 0xD6E8FEB86659FD93ULL;
    x ^= x >> 32;
    x *= 0xD6E8FEB86659FD93ULL;
    return x ^ (x >> 32);
}

std::uint64_t Bits(double number)
{
    return std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number);
}

}  // namespace

std::uint64_t HashOf(const Value& value)
{
    if (const auto* text = std::get_if<std::string>(&value))
        return Mixed(std::hash<std::string_view>()(*text));
    if (const auto* number = std::get_if<std::int32_t>(&value))
        return Mixed(static_cast<std::uint64_t>(static_cast<std::int64_t>(*number)));
    if (const auto* money = std::get_if<Money>(&value))
        return Mixed(static_cast<std::uint64_t>(money->Scaled()));
    if (const auto* real = std::get_if<double>(&value))
        return Mixed(Bits(*real));
    if (const auto* single = std::get_if<float>(&value))
        return Mixed(Bits(static_cast<double>(*single)));
    if (const auto* date = std::get_if<Date>(&value))
        return Mixed(
            static_cast<std::uint64_t>(std::int64_t{date->Days()} * 86400 + date->Seconds()));
    if (const auto* yes = std::get_if<bool>(&value))
        return Mixed(*yes ? 1 : 2);
    return 0;
}

std::size_t FindIndex::Locate(std::uint64_t hash) const
{
    const std::size_t mask = table_.size() - 1;
    std::size_t at = hash & mask;
    while (table_[at].list != kFree && table_[at].hash != hash)
        at = (at + 1) & mask;
    return at;
}

void FindIndex::Reserve(std::size_t count)
{
    if (const std::size_t size = std::bit_ceil(count + count / 2 + 1); size > table_.size())
        Grow(size);
}

void FindIndex::Grow(std::size_t size)
{
    std::vector<Entry> old(std::max<std::size_t>(64, size));
    old.swap(table_);
    for (const Entry& entry : old)
        if (entry.list != kFree)
            table_[Locate(entry.hash)] = entry;
}

void FindIndex::Add(std::uint64_t hash, std::size_t slot)
{
    if (3 * (used_ + 1) > 2 * table_.size())
        Grow(table_.size() * 2);
    Entry& entry = table_[Locate(hash)];
    const auto place = static_cast<std::uint32_t>(slot);
    if (entry.list == kFree) {
        ++used_;
        entry = {hash, place, kSingle};
    } else if (entry.list == kSingle && entry.slot == kNone) {
        entry.slot = place;
    } else {
        if (entry.list == kSingle) {
            lists_.push_back({entry.slot});
            entry.list = static_cast<std::uint32_t>(lists_.size() - 1);
        }
        Slots& slots = lists_[entry.list];
        slots.insert(std::upper_bound(slots.begin(), slots.end(), place), place);
    }
}

void FindIndex::Remove(std::uint64_t hash, std::size_t slot)
{
    if (table_.empty())
        return;
    Entry& entry = table_[Locate(hash)];
    const auto place = static_cast<std::uint32_t>(slot);
    if (entry.list == kFree)
        return;
    if (entry.list == kSingle) {
        if (entry.slot == place)
            entry.slot = kNone;
        return;
    }
    Slots& slots = lists_[entry.list];
    const auto found = std::lower_bound(slots.begin(), slots.end(), place);
    if (found != slots.end() && *found == place)
        slots.erase(found);
}

std::size_t FindIndex::Find(std::uint64_t hash, std::size_t from,
                            const std::function<bool(std::size_t)>& accept) const
{
    if (table_.empty())
        return kNotFound;
    const Entry& entry = table_[Locate(hash)];
    if (entry.list == kFree)
        return kNotFound;
    if (entry.list == kSingle)
        return entry.slot != kNone && entry.slot >= from && accept(entry.slot) ? entry.slot
                                                                               : kNotFound;
    const Slots& slots = lists_[entry.list];
    auto at = from > kNone
                  ? slots.end()
                  : std::lower_bound(slots.begin(), slots.end(), static_cast<std::uint32_t>(from));
    for (; at != slots.end(); ++at)
        if (accept(*at))
            return *at;
    return kNotFound;
}

}  // namespace clb
