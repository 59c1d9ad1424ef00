#pragma once
#include <string>

namespace clb {

/// A folder for the user alone where the system keeps temporary files. Removes itself and all that
/// is in it on destruction.
class TemporaryFolder {
public:
    /// Also removes what ended programs have left there. Throws FileError.
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }
    /// Path of a file or folder in it.
    [[nodiscard]] std::string Path(const std::string& name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

}  // namespace clb
