#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>

#include "base/RuntimeError.h"
#include "check/DatabaseCheck.h"
#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/Table.h"
#include "data/Backups.h"
#include "engine/storage/EngineError.h"
#include "json/ValueJson.h"
#include "platform/ProgramFolder.h"
#include "platform/SystemClock.h"

namespace clb {
namespace {

struct RestoreOptions : FolderOptions {
    std::string backup;
};

RuntimeError NoFile(const std::string& path, const std::string& what)
{
    return {errors::FileNotFound, "The file '" + path + "' " + what};
}

/// Throws RuntimeError if the path cannot be followed.
bool Exists(const std::string& path)
{
    std::error_code error;
    const std::filesystem::file_type type = std::filesystem::status(path, error).type();
    if (type == std::filesystem::file_type::none)
        throw NoFile(path, "cannot be read: " + error.message() + ".");
    return type != std::filesystem::file_type::not_found;
}

/// The file of that name or, if there is none, the folder's backup of that name.
std::string FindBackup(const Backups& backups, const std::string& word)
{
    if (Exists(word))
        return word;
    // No backup of the folder has a name with a folder in it.
    if (word.find('/') != std::string::npos)
        throw NoFile(word, "does not exist.");
    if (Exists(backups.PathOf(word)))
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

/// The general advice on a damaged file is to restore a backup. Here the damaged file is itself a
/// backup, so the advice is left out.
std::optional<std::string> Restore(Backups& backups, const std::string& file)
{
    try {
        return backups.Restore(file, SystemClock().Now());
    } catch (const EngineError& error) {
        const std::string what = error.what();
        if (error.Trouble() != FileTrouble::Damaged || what.find(file) == std::string::npos)
            throw;
        throw EngineError(error.Number(),
                          what + " The database is as it was. Restore another backup.");
    }
}

/// What the check finds in the restored database. The file may come from somebody else.
std::vector<std::string> FaultsIn(const std::string& folder)
{
    std::vector<std::string> faults;
    try {
        for (const Finding& finding : CheckDatabase(folder).findings)
            faults.push_back(Printable(finding.text));
    } catch (const EngineError&) {
        // Another program has taken the restored database already.
    }
    return faults;
}

void PrintFaults(const std::vector<std::string>& faults)
{
    constexpr std::size_t kMostShown = 5;
    if (faults.empty())
        return;
    std::cout << "It is not in order; \"clb check\" tells what that means:\n";
    for (std::size_t at = 0; at < std::min(faults.size(), kMostShown); ++at)
        std::cout << "   " << faults[at] << '\n';
    if (faults.size() > kMostShown)
        std::cout << "   " << faults.size() - kMostShown << " more\n";
}

void RestoreBackup(const RestoreOptions& options)
{
    const std::string folder = HomeFolder(options.home);
    Backups backups(folder);
    const std::string file = FindBackup(backups, options.backup);
    const auto kept = Restore(backups, file);
    const std::vector<std::string> faults = FaultsIn(folder);
    if (options.json) {
        const Json before = kept ? Json(*kept) : Json();
        std::cout << ToLine({{"file", DatabasePath(folder)},
                             {"from", file},
                             {"kept", before},
                             {"findings", faults}})
                  << '\n';
        return;
    }
    std::cout << "Restored " << DatabasePath(folder) << " from " << file << '\n';
    if (kept)
        std::cout << "The database before is " << *kept << '\n';
    PrintFaults(faults);
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
