#include "base/RuntimeError.h"
#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "data/Backups.h"
#include "json/ValueJson.h"
#include "platform/ProgramFolder.h"
#include "platform/SystemClock.h"

#include <filesystem>
#include <iostream>
#include <memory>

namespace clb {
namespace {

struct RestoreOptions : FolderOptions {
    std::string backup;
};

/// The file of that name or, if there is none, the folder's backup of that name.
std::string FindBackup(const Backups& backups, const std::string& word)
{
    if (std::filesystem::exists(word))
        return word;
    if (std::filesystem::exists(backups.PathOf(word)))
        return backups.PathOf(word);
    std::string known;
    for (const std::string& name : backups.Names())
        known += (known.empty() ? "" : ", ") + name;
    throw RuntimeError(errors::FileNotFound,
                       "There is no backup " + word + ". " +
                           (known.empty() ? "There are none in " : "There are " + known + " in ") +
                           std::filesystem::path(backups.PathOf(word)).parent_path().string() +
                           ".");
}

void RestoreBackup(const RestoreOptions& options)
{
    const std::string folder = ProgramFolder(PlacesOf(options.home));
    Backups backups(folder);
    const std::string file = FindBackup(backups, options.backup);
    const auto kept = backups.Restore(file, SystemClock().Now());
    if (options.json) {
        const Json before = kept ? Json(*kept) : Json();
        std::cout << ToLine({{"file", DatabasePath(folder)}, {"from", file}, {"kept", before}})
                  << '\n';
        return;
    }
    std::cout << "Restored " << DatabasePath(folder) << " from " << file << '\n';
    if (kept)
        std::cout << "The database before is " << *kept << '\n';
}

}  // namespace

void AddRestore(CLI::App& app, int&)
{
    auto options = std::make_shared<RestoreOptions>();
    Command command(app, "restore", "Put a backup in the place of the database, which is kept");
    command
        .Take("BACKUP", options->backup,
              "File, or the day of a backup in db/backup of the program folder")
        .Required()
        .Check(IsFileName());
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options] { RestoreBackup(*options); });
}

}  // namespace clb
