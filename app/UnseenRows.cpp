#include "app/UnseenRows.h"

#include <algorithm>

#include "app/frmController.h"

namespace clb {

void UnseenRows::Connect()
{
    window_.Grid.JudgeRows([this](std::size_t row) { return IsUnseen(row); });
    window_.Grid.RowColChange().connect([this](std::int32_t, std::int32_t) { Visit(); });
}

bool UnseenRows::IsUnseen(std::size_t row) const
{
    if (imports_.empty() || !window_.View().Definition().transactions)
        return false;
    const std::size_t identity = window_.Grid.Rows().Identity(row);
    return identity != 0 && !seen_.contains(identity) &&
           std::ranges::any_of(imports_, [identity](const Import& import) {
               return import.rows.Has(static_cast<std::int64_t>(identity));
           });
}

void UnseenRows::Add(const NewRows& rows, std::int64_t step)
{
    // A row may have the identity of one that is gone.
    std::erase_if(seen_, [&rows](std::size_t identity) {
        return rows.Has(static_cast<std::int64_t>(identity));
    });
    imports_.push_back({rows, step});
}

void UnseenRows::Follow()
{
    if (imports_.empty())
        return;
    const auto newest = window_.Steps().NextToUndo();
    std::erase_if(imports_, [last = newest ? newest->number : 0](const Import& import) {
        return import.step > last;
    });
}

void UnseenRows::Visit()
{
    const std::size_t row = window_.Grid.Row();
    const bool unseen = row != 0 && IsUnseen(row);
    const std::size_t identity = unseen ? window_.Grid.Rows().Identity(row) : 0;
    if (identity == current_)
        return;
    // Screen readers say that the row is new while it is the current one.
    if (current_ != 0)
        seen_.insert(current_);
    current_ = identity;
}

}  // namespace clb
