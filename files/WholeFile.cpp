#include "files/WholeFile.h"

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "base/Interruption.h"
#include "files/FileError.h"
#include "files/Folders.h"
#include "files/Leftovers.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;

/// Resolves links in the path. The last link may lead to a file that does not exist yet.
std::string Resolved(const std::string& path)
{
    fs::path target = path;
    for (int links = 0; links < kMostLinks; ++links) {
        std::error_code none;
        const fs::path next = fs::read_symlink(target, none);
        if (none)
            return target.string();
        target = target.parent_path() / next;
    }
    throw CannotWrite(path, ELOOP);
}

bool IsSpecial(const std::string& path)
{
    std::error_code failure;
    const fs::file_status status = fs::status(path, failure);
    return fs::exists(status) && !fs::is_regular_file(status);
}

/// Rejects a file that the program may not write, although its folder permits replacing it.
void RequireWritable(const std::string& path)
{
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0 && errno != ENOENT)
        throw CannotWrite(path, errno);
}

}  // namespace

WholeFile::WholeFile(const std::string& path, Existing existing)
    : target_(path), existing_(existing), special_(existing == Existing::Replace && IsSpecial(path))
{
    if (existing == Existing::Refuse && IsThere(path))
        throw AlreadyThere(path);
    if (special_) {
        path_ = path;
        return;
    }
    if (existing == Existing::Replace) {
        target_ = Resolved(path);
        RequireWritable(target_);
    }
    const std::string folder = FolderOf(target_);
    RemoveLeftovers(folder);
    path_ = folder + "/" + UnfinishedFront() + "XXXXXX";
    file_ = Descriptor(::mkostemp(path_.data(), O_CLOEXEC));
    if (!file_.IsOpen())
        throw CannotWrite(path, errno);
}

WholeFile::~WholeFile()
{
    if (!special_ && !path_.empty())
        ::unlink(path_.c_str());
}

/// A pipe is opened at the first write, because opening waits for its reader.
void WholeFile::Open()
{
    if (file_.IsOpen())
        return;
    file_ = Descriptor(::open(path_.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
    if (file_.IsOpen())
        return;
    const int reason = errno;
    Interruption::Check();
    throw CannotWrite(target_, reason);
}

void WholeFile::Write(std::string_view bytes)
{
    Open();
    while (!bytes.empty()) {
        const ssize_t written = ::write(file_.Number(), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            throw CannotWrite(target_, errno);
        if (written < 0)
            Interruption::Check();
        else
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void WholeFile::TakeOverRights() const
{
    struct stat former {};
    if (::stat(target_.c_str(), &former) != 0)
        return;
    // Only some users may change the owner, so the group is tried separately.
    const auto nobody = static_cast<uid_t>(-1);
    [[maybe_unused]] const bool given =
        ::fchown(file_.Number(), former.st_uid, former.st_gid) == 0 ||
        ::fchown(file_.Number(), nobody, former.st_gid) == 0;
    if (::fchmod(file_.Number(), former.st_mode & 07777) != 0)
        throw CannotWrite(target_, errno);
}

void WholeFile::TakePlace()
{
    if (special_) {
        if (!file_.Close())
            throw CannotWrite(target_, errno);
        return;
    }
    if (existing_ == Existing::Replace)
        TakeOverRights();
    if (!Sync(file_) || !file_.Close())
        throw CannotWrite(target_, errno);
    if (existing_ == Existing::Refuse)
        RenameToNew(path_, target_);
    else if (::rename(path_.c_str(), target_.c_str()) != 0)
        throw CannotWrite(target_, errno);
    path_.clear();
}

void WholeFile::Keep()
{
    const std::string folder = FolderOf(target_);
    TakePlace();
    if (!special_)
        SyncFolder(folder);
}

void ReplaceFile(const std::string& path, std::string_view bytes)
{
    WholeFile file(path);
    file.Write(bytes);
    file.Keep();
}

void CreateFile(const std::string& path, std::string_view bytes)
{
    WholeFile file(path, Existing::Refuse);
    file.Write(bytes);
    file.Keep();
}

}  // namespace clb
