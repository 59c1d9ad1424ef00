#include "controls/RowList.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "controls/ControlVisitor.h"

namespace clb {

RowList::RowList(std::string name, std::vector<std::string> columns, std::vector<std::size_t> right)
    : Control(std::move(name)), columns_(std::move(columns)), right_(std::move(right))
{
}

void RowList::Accept(ControlVisitor& visitor)
{
    visitor.Visit(*this);
}

bool RowList::IsRight(std::size_t column) const
{
    return std::find(right_.begin(), right_.end(), column) != right_.end();
}

void RowList::Fill(std::vector<Line> lines)
{
    lines_ = std::move(lines);
    chosen_ = 0;
    filled_.emit();
    NotifyChanged();
}

void RowList::Choose(std::size_t line)
{
    if (line > lines_.size() || (line != 0 && lines_[line - 1].IsHeading()))
        throw RuntimeError(errors::SubscriptOutOfRange, "Subscript out of range");
    if (chosen_ == line)
        return;
    chosen_ = line;
    NotifyChanged();
    choice_.emit();
}

void RowList::Activate(std::size_t line)
{
    Choose(line);
    if (line != 0)
        activated_.emit();
}

}  // namespace clb
