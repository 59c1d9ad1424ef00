#pragma once
#include <string>
#include <string_view>

#include "base/RuntimeError.h"

namespace clb {

/// The PathAccess error of a path that the system would not write, for the reason errno gave.
PortError CannotWrite(const std::string& path, int error);

/// A file that is being made, for the user alone; unless it is kept, it is removed. All members
/// throw PortError (PathAccess) when the system refuses.
class NewFile {
public:
    /// Throws PortError (FileAlreadyExists) when there is one of that name.
    explicit NewFile(std::string path);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    void Write(std::string_view bytes);
    /// Closes it and lets it stay.
    void Keep();
    /// The same, once its bytes are on the disk.
    void KeepForGood();

private:
    std::string path_;
    int handle_;
};

}  // namespace clb
