// A temporary folder.
#pragma once
#include <string>

namespace clb {

/// A folder in the system's folder of temporary files, which only the user can read. Removed with
/// its contents on destruction.
class TemporaryFolder {
public:
    /// Also removes what ended programs have left there. Throws FileError.
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }
    /// Returns the path of a file or folder in it.
    [[nodiscard]] std::string Path(const std::string& name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

}  // namespace clb
