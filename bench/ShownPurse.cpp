#include "bench/ShownPurse.h"

#include <stdexcept>

#include "data/ViewColumns.h"
#include "views/NodeTag.h"

namespace clb {

Money AmountOf(std::int32_t turn)
{
    return Money::FromScaled(-(std::int64_t{turn} % 30'000 + 1) * 100);
}

ShownPurse::ShownPurse(const std::string& folder, LedgerSize size) : program_(folder, forms_)
{
    program_.ChooseMonth(LastPurseMonth(size));
    program_.PressNode(node_tag::OfAccount(vwAccount, LedgerPurse()));
}

std::size_t ShownPurse::Rows()
{
    return program_.Window().Grid.Rows().NewRow() - 1;
}

Cost ShownPurse::Save(std::size_t row, Money amount)
{
    const std::string text = amount.Grouped();
    const Stopwatch watch;
    GridComponent& grid = program_.Window().Grid;
    grid.MoveTo(row + 1, Register::Amount);
    grid.Editing(true);
    grid.EditText(text);
    if (!grid.Update())
        throw std::runtime_error("the row was refused");
    program_.Window().Settle();
    return watch.Elapsed();
}

const std::string& ShownPurse::Balance()
{
    return program_.Window().txtTotal.Text();
}

void ShownPurse::WithoutHistory()
{
    program_.Window().Data().Database().Watch(nullptr);
}

}  // namespace clb
