#include "automation/Recorder.h"

#include "app/OtherPrograms.h"

namespace clb {

Recorder::Recorder(frmController& controller, EventLog& log) : controller_(controller), log_(log)
{
    FollowWindow(controller);
    FollowEdits(controller.Grid);
    FollowFetches(controller.Grid);
    connections_.push_back(
        controller.Opened().connect([this, &controller] { FollowView(controller.View()); }));
}

Recorder::~Recorder()
{
    for (sigc::connection& connection : connections_)
        connection.disconnect();
}

void Recorder::FollowWindow(frmController& controller)
{
    connections_.push_back(
        controller.statusBar.PanelChanged().connect([this, &controller](std::size_t panel) {
            if (panel == 1)
                Log({{"event", "status"}, {"text", controller.statusBar.Panel(1)}});
        }));
    connections_.push_back(controller.window.EnabledChanged().connect([this, &controller] {
        Log({{"event", "enabled"}, {"value", controller.window.Enabled()}});
    }));
    connections_.push_back(controller.Grid.RedrawChanged().connect([this](bool painting) {
        Log({{"event", "redraw"}, {"value", painting}});
    }));
}

void Recorder::FollowView(clsView& view)
{
    connections_.push_back(view.Refreshed().connect([this] { Log({{"event", "refresh"}}); }));
    connections_.push_back(view.TreeBuilt().connect([this] { Log({{"event", "tree"}}); }));
}

void Recorder::FollowEdits(CVGrid& grid)
{
    connections_.push_back(
        grid.AfterDelete().connect([this] { LogGrid("AfterDelete", Json::array()); }));
    connections_.push_back(grid.AfterEdit().connect([this](std::int32_t row, std::int32_t column) {
        LogGrid("AfterEdit", Json::array({row, column}));
    }));
    connections_.push_back(
        grid.AfterUpdate().connect([this] { LogGrid("AfterUpdate", Json::array()); }));
    connections_.push_back(grid.BeforeDelete().connect(
        [this](const bool& cancel) { LogGrid("BeforeDelete", Json::array({cancel})); }));
    connections_.push_back(grid.BeforeEdit().connect(
        [this](std::int32_t row, std::int32_t column, std::int16_t key, const bool& cancel) {
            LogGrid("BeforeEdit", Json::array({row, column, key, cancel}));
        }));
    connections_.push_back(grid.BeforeUpdate().connect(
        [this](const bool& cancel) { LogGrid("BeforeUpdate", Json::array({cancel})); }));
}

void Recorder::FollowFetches(CVGrid& grid)
{
    connections_.push_back(grid.FetchColumnData().connect(
        [this](std::int32_t row, std::int32_t column, const Value& given, const Value& value) {
            LogGrid("FetchColumnData", Json::array({row, column, ToJson(given), ToJson(value)}));
        }));
    connections_.push_back(
        grid.RowColChange().connect([this](std::int32_t row, std::int32_t column) {
            LogGrid("RowColChange", Json::array({row, column}));
        }));
    connections_.push_back(
        grid.FetchCellTip().connect([this](std::int32_t first, std::int32_t second,
                                           std::int32_t third, const std::string& text) {
            LogGrid("FetchCellTip", Json::array({first, second, third, text}));
        }));
    connections_.push_back(grid.FetchGroupFooterText().connect(
        [this](std::int16_t level, std::int32_t column, const std::string& text) {
            LogGrid("FetchGroupFooterText", Json::array({level, column, text}));
        }));
}

void Recorder::Log(Json event)
{
    if (!controller_.Others().Following())
        log_.Add(std::move(event));
}

void Recorder::LogGrid(const char* name, Json arguments)
{
    Log({{"event", "grid"}, {"name", name}, {"args", std::move(arguments)}});
}

}  // namespace clb
