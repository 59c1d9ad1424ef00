#include "files/Folders.h"

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <memory>

#include "files/Descriptor.h"
#include "files/FileError.h"

namespace clb {
namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

/// Renames on file systems that cannot check for an existing name while renaming. Some of them
/// cannot link either. Returns 0 or errno.
int LinkOrRename(const std::string& from, const std::string& to)
{
    if (::link(from.c_str(), to.c_str()) == 0) {
        ::unlink(from.c_str());
        return 0;
    }
    if (errno == EEXIST || IsThere(to))
        return EEXIST;
    return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

}  // namespace

namespace fs = std::filesystem;

void MakePrivateFolder(const std::string& path)
{
    if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST)
        throw CannotWrite(path, errno);
}

void MakePrivateFolders(const std::string& path)
{
    std::error_code unknown;
    if (path.empty() || fs::is_directory(path, unknown))
        return;
    MakePrivateFolders(fs::path(path).parent_path().string());
    MakePrivateFolder(path);
}

std::string FolderOf(const std::string& path)
{
    const std::string folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

std::vector<std::string> NamesIn(const std::string& folder)
{
    std::vector<std::string> names;
    const std::unique_ptr<DIR, CloseFolder> open(::opendir(folder.c_str()));
    while (const dirent* const entry = open ? ::readdir(open.get()) : nullptr)
        names.emplace_back(entry->d_name);
    return names;
}

bool Sync(const Descriptor& file)
{
    return ::fsync(file.Number()) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
}

void SyncFolder(const std::string& folder)
{
    const Descriptor open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // A folder that may be written but not read cannot be opened. The system writes it later.
    if (open.IsOpen() && !Sync(open))
        throw CannotWrite(folder, errno);
}

bool IsThere(const std::string& path)
{
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0;
}

void SyncFile(const std::string& path)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.IsOpen() || !Sync(file))
        throw CannotWrite(path, errno);
}

void RenameToNew(const std::string& from, const std::string& to)
{
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return;
    int reason = errno;
    if (reason == EINVAL || reason == ENOSYS)
        reason = LinkOrRename(from, to);
    if (reason == EEXIST)
        throw AlreadyThere(to);
    if (reason != 0)
        throw CannotWrite(to, reason);
}

}  // namespace clb
