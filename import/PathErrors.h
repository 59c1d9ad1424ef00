// The errors of reading and repairing a statement file.
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

/// Throws if the path is not a regular file. Reading a pipe or a device might never end.
void RequireRegularFile(const std::string& path);

}  // namespace clb
