// Writes files completely or not at all.
#pragma once
#include <sys/types.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "files/Descriptor.h"

namespace clb {

/// What to do if the name already exists.
enum class Existing {
    Replace,  ///< the new file gets its permissions; for a link, replaces the file that it leads to
    ReplaceName,  ///< the new file gets default permissions; for a link, replaces the link itself
    Refuse
};

/// A file that is written under a temporary name and renamed only when it is complete and on the
/// disk. If anything fails before, the old file is unchanged and nothing else is left.
///
/// Only the user can read a new file (mode 0600). A pipe or device is written directly. All members
/// throw FileError if a system call fails.
class WholeFile {
public:
    /// Also removes unfinished files of ended programs from the folder. Throws FileAlreadyExists if
    /// the name exists and must not be replaced.
    explicit WholeFile(const std::string& path, Existing existing = Existing::Replace);
    /// Removes the file unless it was renamed.
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    /// The temporary name, for callers that open the file themselves.
    [[nodiscard]] const std::string& Path() const { return path_; }
    /// Appends bytes.
    void Write(std::string_view bytes);

    /// Synchronises the bytes to the disk, then renames the file in one step. A power loss can
    /// still undo the renaming until the folder is synchronised.
    void TakePlace();
    /// The same, and synchronises the folder.
    void Keep();

private:
    void Open();
    void TakeOverRights() const;

    std::string target_;  ///< the name, links resolved
    std::string path_;
    Existing existing_;
    bool special_;  ///< the target is a pipe or a device: path_ is the target
    Descriptor file_;
};

/// Writes a whole file and replaces an existing one. Throws FileError.
void ReplaceFile(const std::string& path, std::string_view bytes);
/// Writes a whole file under a name that must not exist. Throws FileError.
void CreateFile(const std::string& path, std::string_view bytes);

}  // namespace clb
