#include "controls/GridMarks.h"

#include <algorithm>

#include "controls/GridRows.h"

namespace clb {

void GridMarks::Toggle(const GridRows& rows, std::size_t row, std::size_t from)
{
    const std::size_t identity = rows.Identity(row);
    if (identity == 0)
        return;
    if (marked_.empty() && from != 0 && from != identity)
        marked_.insert(from);
    if (marked_.erase(identity) == 0)
        marked_.insert(identity);
    anchor_ = identity;
    changed_.emit();
}

void GridMarks::Extend(const GridRows& rows, std::size_t row, std::size_t from)
{
    if (marked_.empty() || anchor_ == 0)
        anchor_ = from;
    const std::size_t begun = rows.OfIdentity(anchor_);
    if (begun == 0)
        return Toggle(rows, row, from);
    marked_.clear();
    for (std::size_t at = std::min(begun, row); at <= std::max(begun, row); ++at)
        if (const std::size_t identity = rows.Identity(at); identity != 0)
            marked_.insert(identity);
    changed_.emit();
}

void GridMarks::Clear()
{
    anchor_ = 0;
    if (marked_.empty())
        return;
    marked_.clear();
    changed_.emit();
}

}  // namespace clb
