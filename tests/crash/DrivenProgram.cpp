#include "tests/crash/DrivenProgram.h"

#include "tests/crash/TableDump.h"

namespace clb {
namespace {

std::string Shown(DrivenProgram& program)
{
    const Json window = program.Ask({{"do", "window"}});
    const Json grid = program.Ask({{"do", "grid"}});
    if (window["ok"] == false || grid["ok"] == false)
        return ToLine(window) + ToLine(grid);
    std::string text = ToLine(window["caption"]) + ToLine(window["totals"]) + "\n";
    for (const Json& row : grid["rows"])
        text += ToLine(row) + "\n";
    return text;
}

}  // namespace

std::string PortraitOf(DrivenProgram& program)
{
    program.Ask({{"do", "set"}, {"control", "txtYear"}, {"to", "2006"}});
    program.Ask({{"do", "set"}, {"control", "cmbPeriod"}, {"to", 3}});
    const Json tree = program.Ask({{"do", "tree"}});
    std::string text;
    for (const Json& node : tree["nodes"]) {
        text += ToLine(node["text"]) + ToLine(node["tag"]) + "\n";
        const Json clicked = program.Ask({{"do", "click"}, {"index", node["index"]}});
        text += ToLine(clicked) + "\n" + Shown(program);
    }
    return WithoutTicks(std::move(text));
}

bool IsEnabled(DrivenProgram& program)
{
    return program.Ask({{"do", "window"}})["enabled"] == true;
}

}  // namespace clb
