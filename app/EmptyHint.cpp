#include "app/EmptyHint.h"

#include "app/frmController.h"
#include "base/Text.h"
#include "views/MenuNames.h"

namespace clb {
namespace {

EmptyHint HintFrom(const EmptyText& empty, const std::string& month)
{
    EmptyHint hint{Replace(empty.title, "{month}", month), empty.text, {}};
    for (const EmptyText::Way& way : empty.ways)
        hint.ways.push_back({way.caption, way.item});
    return hint;
}

bool IsEmpty(CVGrid& grid)
{
    const GridRows& rows = grid.Rows();
    return rows.Count() == (rows.NewRow() == 0 ? 0U : 1U) && !grid.Dirty() && !grid.Editing();
}

}  // namespace

std::optional<EmptyHint> HintFor(frmController& window)
{
    if (!window.Loaded() || !IsEmpty(window.Grid))
        return std::nullopt;
    if (const std::string& why = window.View().WhyEmpty(); !why.empty())
        return EmptyHint{"This view could not be read", why + " Choose it again to read it.", {}};
    if (!window.View().Definition().empty)
        return std::nullopt;
    EmptyHint hint = HintFrom(*window.View().Definition().empty,
                              window.cmbPeriod.Text() + " " + window.txtYear.Text());
    std::erase_if(hint.ways, [&window](const EmptyHint::Way& way) {
        // A new row can also be begun while the grid is on its empty line.
        return way.item != command_name::kNew && !window.menus.Find(way.item)->Enabled();
    });
    return hint;
}

}  // namespace clb
