#include "history/HistoryJson.h"

#include <limits>

namespace clb {
namespace {

Json CellsJson(const std::optional<NamedValues>& cells)
{
    if (!cells)
        return nullptr;
    Json json = Json::object();
    for (const auto& [column, value] : *cells)
        json[column] = ToJson(value);
    return json;
}

}  // namespace

Json ToJson(const Step& step)
{
    return {{"step", step.number},
            {"at", step.at},
            {"what", step.what},
            {"rows", step.rows},
            {"undone", step.undone}};
}

Json ToJson(const std::vector<Step>& steps)
{
    Json json = Json::array();
    for (const Step& step : steps)
        json.push_back(ToJson(step));
    return json;
}

std::vector<Step> NewestSteps(HistoryReader& history, std::int64_t most)
{
    std::vector<Step> steps;
    history.Visit([&](const Step& step) {
        if (static_cast<std::int64_t>(steps.size()) < most)
            steps.push_back(step);
        return static_cast<std::int64_t>(steps.size()) < most;
    });
    return steps;
}

Json ChangesJson(HistoryReader& history, const Step& step)
{
    Json changes = Json::array();
    for (const RowStory& row : history.Rows(step, std::numeric_limits<std::size_t>::max()))
        changes.push_back({{"table", row.table},
                           {"row", row.row},
                           {"was", CellsJson(row.was)},
                           {"is", CellsJson(row.is)}});
    return changes;
}

Json StepReply(HistoryReader& history, const Step& step)
{
    const Json changes = ChangesJson(history, step);
    Json shown = ToJson(step);
    shown["changes"] = changes;
    return {{"steps", Json::array({shown})}, {"changes", changes}};
}

}  // namespace clb
