// Which files an import reads, and copies of them to try it on.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "files/TemporaryFolder.h"

namespace clb {

/// Whether the name ends in .qif, in capitals or not.
[[nodiscard]] bool IsQif(const std::string& path);

/// The files that the command's arguments name. A folder yields the *.ofx, *.qfx, *.ofc and *.qif
/// files in it and in its subfolders, in capitals or not, sorted by name. Any other argument is a
/// file itself. Skips folders that cannot be read.
[[nodiscard]] std::vector<std::string> FindStatements(const std::vector<std::string>& words);

/// A copy of a program folder's database and of statement files, to try an import on. The
/// destructor removes it. The originals are only read.
class TrialFolder {
public:
    /// home: as for OpenFolder. If the user has no data yet, the copy is an empty database. Throws
    /// RuntimeError if the copy cannot be made.
    explicit TrialFolder(const std::optional<std::string>& home);

    [[nodiscard]] const std::string& Path() const { return folder_.Path(); }
    /// Copies a file, removes the previous copy, and returns the copy's path. If the file cannot be
    /// copied, returns its own path: it cannot be imported either.
    [[nodiscard]] std::string CopyStatement(const std::string& path) const;

private:
    void CopyDatabase(const std::string& folder) const;

    TemporaryFolder folder_;
};

}  // namespace clb
