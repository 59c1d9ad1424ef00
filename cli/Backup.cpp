#include <iostream>
#include <memory>

#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "data/Backups.h"
#include "json/ValueJson.h"
#include "platform/ProgramFolder.h"
#include "platform/SystemClock.h"

namespace clb {
namespace {

struct BackupOptions : FolderOptions {
    std::string file;
};

void MakeBackup(const BackupOptions& options)
{
    Backups backups(HomeFolder(options.home));
    std::string made = options.file;
    if (made.empty())
        made = backups.Make(SystemClock().Now());
    else
        backups.CopyTo(made);
    if (options.json)
        std::cout << ToLine({{"file", made}}) << '\n';
    else
        std::cout << "Made " << made << '\n';
}

}  // namespace

void AddBackup(CLI::App& app, int&)
{
    auto options = std::make_shared<BackupOptions>();
    Command command(app, "backup", "Copy the database to a safe place");
    command
        .Take("FILE", options->file,
              "File to write, which must not be there (default: one of today in db/backup of the "
              "program folder)")
        .Check(IsFileName());
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options] { MakeBackup(*options); });
}

}  // namespace clb
