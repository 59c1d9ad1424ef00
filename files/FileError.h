// The exception of files and folders.
#pragma once
#include <string>

#include "base/RuntimeError.h"

namespace clb {

/// The error of a file or folder that could not be read or written.
class FileError : public PortError {
public:
    /// number: one of clb::errors. reason: errno.
    FileError(std::int32_t number, const std::string& message, int reason)
        : PortError(number, message), reason_(reason)
    {
    }
    /// The errno of the system call that failed.
    [[nodiscard]] int Reason() const { return reason_; }

private:
    int reason_;
};

/// "Cannot write PATH: No space left on device" (PathAccess).
FileError CannotWrite(const std::string& path, int reason);
/// "Cannot read PATH: Permission denied" (PathAccess, or FileNotFound for a missing file).
FileError CannotRead(const std::string& path, int reason);
/// "File already exists: PATH" (FileAlreadyExists).
FileError AlreadyThere(const std::string& path);

}  // namespace clb
