#pragma once
#include <optional>
#include <string>
#include <vector>

#include "files/TemporaryFolder.h"

namespace clb {

/// Whether the name ends in .qif, in any case.
bool IsQif(const std::string& path);

/// The files that the words name: a word that is a folder stands for the *.ofx, *.qfx, *.ofc and
/// *.qif in it and in its subfolders, whatever their case, in order of name; any other word stands
/// for itself. Folders that may not be read are left out.
std::vector<std::string> FindStatements(const std::vector<std::string>& words);

/// A copy of a program folder's database, and of statement files, to try an import on; gone
/// afterwards. The originals are only read.
class TrialFolder {
public:
    /// home as OpenFolder takes it; where the user has no data yet, the copy is the delivered
    /// database. Throws RuntimeError when it cannot be made.
    explicit TrialFolder(const std::optional<std::string>& home);

    const std::string& Path() const { return folder_.Path(); }
    /// Path of a copy of the file, in place of the one before. What cannot be copied stands for
    /// itself: it cannot be imported either.
    std::string CopyStatement(const std::string& path) const;

private:
    void CopyDatabase(const std::string& folder) const;

    TemporaryFolder folder_;
};

}  // namespace clb
