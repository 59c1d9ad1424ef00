#include "statements/messages/References.h"

namespace clb {
namespace {

constexpr std::uint64_t kPrime = 1099511628211ULL;

/// FNV-1a, 64 bits.
std::uint64_t Hashed(std::uint64_t hash, std::string_view text)
{
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
    return (hash ^ 0xFFU) * kPrime;  // so that "ab", "c" differs from "a", "bc"
}

std::uint64_t Start(std::size_t number)
{
    return (14695981039346656037ULL ^ number) * kPrime;
}

}  // namespace

void References::Add(std::size_t account, std::string_view reference)
{
    (void)rows_.Add(Hashed(Start(account), reference));
}

bool References::IsSingle(std::size_t account, std::string_view reference) const
{
    return rows_.Count(Hashed(Start(account), reference)) == 1;
}

bool RepeatedRows::Add(std::size_t statement, std::initializer_list<std::string_view> parts)
{
    std::uint64_t hash = Start(0);
    for (const std::string_view part : parts)
        hash = Hashed(hash, part);
    Seen& seen = seen_[hash];
    if (seen.statement != statement) {
        seen.statement = statement;
        seen.inStatement = 0;
    }
    ++seen.inStatement;
    if (seen.inStatement <= seen.most)
        return true;
    seen.most = seen.inStatement;
    return false;
}

}  // namespace clb
