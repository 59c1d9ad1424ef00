// Which files an import reads, and a copy of the data to try it on.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "files/TemporaryFolder.h"

namespace clb {

/// A file that an import reads.
struct FoundFile {
    std::string path;
    /// Named by the user, or by its own name, as a statement. Another file is only listed if it
    /// turns out to be none.
    bool isNamed = true;
};

/// A file of a folder that is no statement.
struct OtherFile {
    std::string path;
    std::string why;  ///< a sentence
};

struct FoundFiles {
    std::vector<FoundFile> files;
    std::vector<OtherFile> others;
};

/// The files that the command's arguments name. A folder yields the statements in it and in its
/// subfolders, sorted by path: files that are named as statements, such as *.ofx, files that begin
/// as one, and tables and archives, whose content decides. Any other argument is a file itself.
/// Skips folders that cannot be read.
[[nodiscard]] FoundFiles FindStatements(const std::vector<std::string>& words);

/// Whether the file's name has an ending that only statements have, such as ".ofx".
[[nodiscard]] bool IsNamedStatement(const std::string& path);

/// A copy of a program folder's database, to try an import on. The destructor removes it. The
/// original is only read.
class TrialFolder {
public:
    /// home: as for OpenFolder. If the user has no data yet, the copy is an empty database. Throws
    /// RuntimeError if the copy cannot be made.
    explicit TrialFolder(const std::optional<std::string>& home);

    [[nodiscard]] const std::string& Path() const { return folder_.Path(); }

private:
    void CopyDatabase(const std::string& folder) const;

    TemporaryFolder folder_;
};

}  // namespace clb
