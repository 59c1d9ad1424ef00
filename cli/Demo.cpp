#include <iostream>
#include <memory>

#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "data/DemoHousehold.h"
#include "json/ValueJson.h"
#include "platform/ProgramFolder.h"
#include "platform/SystemClock.h"

namespace clb {
namespace {

struct DemoOptions : FolderOptions {
    std::string folder;
};

void MakeDemo(const DemoOptions& options)
{
    DeliverFolder(options.folder, DemoDatabase(Date::FromDays(SystemClock().Now().Days())));
    if (options.json)
        std::cout << ToLine({{"folder", options.folder}}) << '\n';
    else
        std::cout << "Made a household to try things on: " << DatabasePath(options.folder) << '\n';
}

}  // namespace

void AddDemo(CLI::App& app, int&)
{
    auto options = std::make_shared<DemoOptions>();
    Command command(app, "demo", "Make a program folder with a small household's books in it");
    command.Take("DIR", options->folder, "Folder to make; it may exist")
        .Required()
        .Check(IsFolderName());
    AddJson(command, *options);
    command.Run([options] { MakeDemo(*options); });
}

}  // namespace clb
