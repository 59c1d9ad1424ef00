#pragma once
#include <sys/types.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "files/Descriptor.h"

namespace clb {

/// What to do with a file that has the name already.
enum class Existing {
    Replace,      ///< the new file takes over its rights; of a link, the file that it leads to
    ReplaceName,  ///< the new file has a new file's rights; of a link, the link itself
    Refuse
};

/// A file that is written beside its name and gets the name only when it is whole and on the disk.
/// Whatever fails before leaves the former file as it was and nothing else behind.
///
/// A new file is for the user alone (mode 0600). A pipe or device that is to be replaced is written
/// as it is.
/// All members throw FileError when the system refuses.
class WholeFile {
public:
    /// Also removes from the folder what ended programs have left unfinished. Throws
    /// FileAlreadyExists where something has the name that is not to be replaced.
    explicit WholeFile(const std::string& path, Existing existing = Existing::Replace);
    /// Removes the file unless it has got its name.
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    /// Where the bytes are until the file gets its name, for those who open it themselves.
    [[nodiscard]] const std::string& Path() const { return path_; }
    /// Appends to it.
    void Write(std::string_view bytes);

    /// Brings the bytes to the disk and gives the file its name, in one step. The name itself may
    /// be lost in a power loss until its folder is synchronised.
    void TakePlace();
    /// The same, and the name is on the disk as well.
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

/// Writes a whole file under a name, replacing the former one. Throws FileError.
void ReplaceFile(const std::string& path, std::string_view bytes);
/// Writes a whole file under a name that nothing has yet. Throws FileError.
void CreateFile(const std::string& path, std::string_view bytes);

}  // namespace clb
