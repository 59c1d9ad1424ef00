#include "platform/ProgramFolder.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <new>
#include <system_error>

#include "files/Folders.h"
#include "files/Leftovers.h"
#include "files/WholeFile.h"
#include "platform/HelpFolder.h"

namespace clb {
namespace fs = std::filesystem;
namespace {

std::string Environment(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string UserHome()
{
    std::string home = Environment("HOME");
    if (!home.empty())
        return home;
    const passwd* user = getpwuid(getuid());
    return user && user->pw_dir ? user->pw_dir : "/";
}

}  // namespace

std::string DatabasePath(const std::string& folder)
{
    return folder + "/db/clb.mdb";
}

bool HoldsDatabase(const std::string& folder)
{
    std::error_code ignored;
    return !folder.empty() && fs::is_regular_file(DatabasePath(folder), ignored);
}

bool IsUnused(const std::string& folder)
{
    std::error_code ignored;
    return !folder.empty() && !fs::exists(fs::symlink_status(DatabasePath(folder), ignored)) &&
           !fs::exists(folder + "/db/backup", ignored);
}

FolderPlaces PlacesOf(const std::optional<std::string>& home)
{
    std::error_code failed;
    const fs::path executable = fs::read_symlink("/proc/self/exe", failed);
    const std::string dataHome = Environment("XDG_DATA_HOME");
    const bool usable = !dataHome.empty() && dataHome.front() == '/';
    return {home, failed ? "" : executable.parent_path().string(),
            usable ? dataHome : UserHome() + "/.local/share"};
}

std::string ProgramFolder(const FolderPlaces& places)
{
    if (places.home)
        return *places.home;
    if (HoldsDatabase(places.executableFolder))
        return places.executableFolder;
    return places.dataHome + "/corvane-ledgerbook";
}

void DeliverFolder(const std::string& folder, std::string_view database)
{
    const fs::path target = fs::absolute(folder).lexically_normal();
    MakePrivateFolders((target / "db").string());
    CreateFile(DatabasePath(target.string()), database);
    DeliverHelp(target.string());
}

void RemoveProgramLeftovers(const std::string& folder) noexcept
{
    RemoveTemporaryLeftovers();
    try {
        for (const char* place : {"", "/db", "/Help", "/db/backup"})
            RemoveLeftovers(folder + place);
        for (const char* place : {"/db", "/db/backup"})
            RemoveUnfinishedIn(folder + place);
    } catch (const std::bad_alloc&) {
        return;  // The next start tries again.
    }
}

}  // namespace clb
