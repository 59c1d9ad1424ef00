#include "app/UnseenRows.h"

#include "app/frmController.h"

namespace clb {

void UnseenRows::Connect()
{
    window_.Grid.JudgeRows([this](std::size_t row) { return IsUnseen(row); });
    window_.Grid.RowColChange().connect([this](std::int32_t, std::int32_t) { Visit(); });
}

bool UnseenRows::IsUnseen(std::size_t row) const
{
    if (!rows_.Any() || !window_.View().Definition().transactions)
        return false;
    const std::size_t identity = window_.Grid.Rows().Identity(row);
    return identity != 0 && !seen_.contains(identity) &&
           rows_.Has(static_cast<std::int64_t>(identity));
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
