#include "platform/ProgramFolder.h"

#include "base/RuntimeError.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

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
    const std::string home = Environment("HOME");
    if (!home.empty())
        return home;
    const passwd* user = getpwuid(getuid());
    return user && user->pw_dir ? user->pw_dir : "/";
}

PortError CannotWrite(const std::string& path, int error)
{
    return {errors::PathAccess, "Cannot write " + path + ": " + std::strerror(error)};
}

void MakeFolders(const fs::path& folder)
{
    if (folder.empty() || fs::is_directory(folder))
        return;
    MakeFolders(folder.parent_path());
    if (mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST)
        throw CannotWrite(folder.string(), errno);
}

/// A file being written; what is left unfinished is removed.
class NewFile {
public:
    explicit NewFile(std::string path)
        : path_(std::move(path)),
          handle_(open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600))
    {
        if (handle_ >= 0)
            return;
        if (errno == EEXIST)
            throw PortError(errors::FileAlreadyExists, "File already exists: " + path_);
        throw CannotWrite(path_, errno);
    }
    ~NewFile()
    {
        if (handle_ < 0)
            return;
        close(handle_);
        unlink(path_.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    void Write(std::string_view bytes)
    {
        while (!bytes.empty()) {
            const ssize_t written = write(handle_, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR)
                continue;
            if (written < 0)
                throw CannotWrite(path_, errno);
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    void Finish()
    {
        if (fsync(handle_) != 0)
            throw CannotWrite(path_, errno);
        close(handle_);
        handle_ = -1;
    }

private:
    std::string path_;
    int handle_;
};

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
    MakeFolders(target / "db");
    NewFile file(DatabasePath(target.string()));
    file.Write(database);
    file.Finish();
}

}  // namespace clb
