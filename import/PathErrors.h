#pragma once
#include <string>

#include "base/RuntimeError.h"

namespace clb {

inline RuntimeError FileNotFound()
{
    return {errors::FileNotFound, "File not found"};
}

inline RuntimeError FileAlreadyExists()
{
    return {errors::FileAlreadyExists, "File already exists"};
}

inline RuntimeError PathAccessError(const std::string& path)
{
    return {errors::PathAccess, "Path/File access error: " + path};
}

/// Throws unless the path names a regular file: what is no file has no end to read to.
void RequireRegularFile(const std::string& path);

}  // namespace clb
