#include "platform/NewFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace clb {

PortError CannotWrite(const std::string& path, int error)
{
    return {errors::PathAccess, "Cannot write " + path + ": " + std::strerror(error)};
}

NewFile::NewFile(std::string path)
    : path_(std::move(path)),
      handle_(open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600))
{
    if (handle_ >= 0)
        return;
    if (errno == EEXIST)
        throw PortError(errors::FileAlreadyExists, "File already exists: " + path_);
    throw CannotWrite(path_, errno);
}

NewFile::~NewFile()
{
    if (handle_ < 0)
        return;
    close(handle_);
    unlink(path_.c_str());
}

void NewFile::Write(std::string_view bytes)
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

void NewFile::Keep()
{
    close(std::exchange(handle_, -1));
}

void NewFile::KeepForGood()
{
    if (fsync(handle_) != 0)
        throw CannotWrite(path_, errno);
    Keep();
}

}  // namespace clb
