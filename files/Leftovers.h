#pragma once
#include <string>

namespace clb {

// What this program makes for a while has the number of its process in its name, so that a later
// start can tell what a program that was killed has left.

/// How the names of files begin that are being written: ".clb-1234-", and six letters or digits
/// follow.
std::string UnfinishedFront();
/// How the names of temporary folders begin: "clb-1234-", followed likewise.
std::string TemporaryFront();

/// Removes the unfinished files and temporary folders of programs that have ended from a folder.
/// Leaves what belongs to other users, and what cannot be removed.
void RemoveLeftovers(const std::string& folder) noexcept;
/// The same for the system's folder for temporary files.
void RemoveTemporaryLeftovers() noexcept;

/// The name that a copy has in this process until it is checked: "PATH.new-1234".
std::string UnfinishedName(const std::string& path);
/// Removes the unfinished copies for this path that ended programs have left, and their journals.
/// Leaves what belongs to other users.
void RemoveUnfinishedOf(const std::string& path);
/// Removes the same from a folder for all databases in it: files whose names end in ".mdb".
void RemoveUnfinishedIn(const std::string& folder);

}  // namespace clb
