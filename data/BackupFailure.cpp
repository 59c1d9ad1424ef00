#include "data/BackupFailure.h"

#include <algorithm>
#include <sstream>

namespace clb {
namespace {

constexpr const char* kDamaged = "damaged";
constexpr const char* kFailed = "failed";

}  // namespace

std::string BackupFailure::Text() const
{
    const std::string last =
        lastGood.empty() ? "there is no good one" : "the last good one is of " + Day();
    return "The daily backup failed; " + last + ". " + reason;
}

std::string BackupFailure::Lines() const
{
    std::string line = reason;
    std::replace(line.begin(), line.end(), '\n', ' ');
    return std::string(damaged ? kDamaged : kFailed) + "\n" + lastGood + "\n" + line + "\n";
}

std::optional<BackupFailure> BackupFailure::FromLines(const std::string& lines)
{
    std::istringstream in(lines);
    std::string kind;
    BackupFailure failure;
    std::getline(in, kind);
    std::getline(in, failure.lastGood);
    std::getline(in, failure.reason);
    if (!in || in.eof() || (kind != kDamaged && kind != kFailed))
        return std::nullopt;
    failure.damaged = kind == kDamaged;
    return failure;
}

}  // namespace clb
