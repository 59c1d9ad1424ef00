#include "app/EmptyHint.h"

#include "app/Greeting.h"
#include "app/StatementWords.h"
#include "app/frmController.h"
#include "base/Text.h"
#include "engine/rows/RawSql.h"
#include "engine/storage/EngineError.h"
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

/// A driven window shows the hint of its view instead.
bool Greets(frmController& window)
{
    return window.GivenPorts().showsResults && window.View().View() == vwNetWorth &&
           IsFresh(window.Data());
}

bool IsEmpty(CVGrid& grid)
{
    const GridRows& rows = grid.Rows();
    return rows.Count() == (rows.NewRow() == 0 ? 0U : 1U) && !grid.Dirty() && !grid.Editing();
}

/// The latest month in which the shown account has transactions.
std::optional<Month> LatestMonth(frmController& window)
{
    std::optional<Month> latest;
    if (!window.View().Definition().transactions)
        return latest;
    try {
        RawSql(window.Data().Database())
            .Select("SELECT Year, Period FROM Trans WHERE AccountID = '" +
                        clsDatabase::ToSqlString(window.View().AccountID()) +
                        "' AND Period BETWEEN 1 AND 12 ORDER BY Year DESC, Period DESC LIMIT 1",
                    [&latest](const RawSql::Row& row) {
                        latest = Month{static_cast<std::int32_t>(row.Integer(0)),
                                       static_cast<std::int32_t>(row.Integer(1))};
                    });
    } catch (const EngineError&) {
        return std::nullopt;  // a hint less; commands that read the rows report the error
    }
    return latest;
}

}  // namespace

void ShowLatestMonth(frmController& window)
{
    if (const auto latest = LatestMonth(window))
        window.ShowMonth(*latest);
}

std::optional<EmptyHint> HintFor(frmController& window)
{
    if (!window.Loaded() || !IsEmpty(window.Grid))
        return std::nullopt;
    if (const std::string& why = window.View().WhyEmpty(); !why.empty())
        return EmptyHint{"This view could not be read", why + " Choose it again to read it.", {}};
    if (Greets(window))
        return Greeting();
    if (!window.View().Definition().empty)
        return std::nullopt;
    EmptyHint hint = HintFrom(*window.View().Definition().empty,
                              window.cmbPeriod.Text() + " " + window.txtYear.Text());
    std::erase_if(hint.ways, [&window](const EmptyHint::Way& way) {
        // A new row can also be begun while the grid is on its empty line.
        return way.item != command_name::kNew && !window.menus.Find(way.item)->Enabled();
    });
    if (const auto latest = LatestMonth(window))
        hint.ways.insert(hint.ways.begin(),
                         {"Go to " + statement_words::MonthsText(*latest, *latest), kLatestMonth});
    return hint;
}

}  // namespace clb
