#include "controls/CheckList.h"

#include "base/RuntimeError.h"
#include "controls/ControlVisitor.h"

namespace clb {

CheckList::CheckList(std::string name, std::vector<std::string> columns)
    : Control(std::move(name)), columns_(std::move(columns))
{
}

void CheckList::Accept(ControlVisitor& visitor)
{
    visitor.Visit(*this);
}

void CheckList::Add(std::vector<Value> row)
{
    rows_.push_back(std::move(row));
    NotifyChanged();
}

void CheckList::Check(std::size_t row, bool ticked)
{
    if (row < 1 || row > rows_.size())
        throw RuntimeError(errors::SubscriptOutOfRange, "Subscript out of range");
    rows_[row - 1].at(0) = ticked;
    NotifyChanged();
}

}  // namespace clb
