#include <iostream>
#include <memory>

#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "data/EmptyDatabase.h"
#include "json/ValueJson.h"
#include "platform/ProgramFolder.h"

namespace clb {
namespace {

struct NewOptions : FolderOptions {
    std::string folder;
};

void MakeFolder(const NewOptions& options)
{
    DeliverFolder(options.folder, EmptyDatabase());
    if (options.json)
        std::cout << ToLine({{"folder", options.folder}}) << '\n';
    else
        std::cout << "Made " << DatabasePath(options.folder) << '\n';
}

}  // namespace

void AddNew(CLI::App& app, int&)
{
    auto options = std::make_shared<NewOptions>();
    Command command(app, "new", "Make a program folder with an empty database in it");
    command.Take("DIR", options->folder, "Folder to make; it may exist")
        .Required()
        .Check(IsFolderName());
    AddJson(command, *options);
    command.Run([options] { MakeFolder(*options); });
}

}  // namespace clb
