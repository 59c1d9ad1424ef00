#include "files/FileError.h"

#include <cerrno>
#include <cstring>

namespace clb {

FileError CannotWrite(const std::string& path, int reason)
{
    return {errors::PathAccess, "Cannot write " + path + ": " + std::strerror(reason), reason};
}

FileError CannotRead(const std::string& path, int reason)
{
    const bool missing = reason == ENOENT || reason == ENOTDIR;
    return {missing ? errors::FileNotFound : errors::PathAccess,
            "Cannot read " + path + ": " + std::strerror(reason), reason};
}

FileError AlreadyThere(const std::string& path)
{
    return {errors::FileAlreadyExists, "File already exists: " + path, EEXIST};
}

}  // namespace clb
