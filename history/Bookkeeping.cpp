#include "history/Bookkeeping.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace clb {
namespace {

constexpr std::array<std::string_view, 3> kTables = {"CvBalance", "CvImport", "CvFormat"};

}  // namespace

bool IsBookkeeping(std::string_view table)
{
    return std::ranges::any_of(
        kTables, [table](std::string_view known) { return EqualsIgnoringCase(table, known); });
}

}  // namespace clb
