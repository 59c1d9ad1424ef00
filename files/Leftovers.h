// Removes the temporary files of programs that have ended.
#pragma once
#include <string>

namespace clb {

// Temporary files and folders have the process number in their names, so that a later start
// recognises what a killed program has left.

/// The prefix of a file that is being written: ".clb-1234-". Six letters or digits follow.
std::string UnfinishedFront();
/// The prefix of a temporary folder: "clb-1234-". The same follows.
std::string TemporaryFront();

/// Removes the unfinished files and temporary folders of ended programs from a folder. Keeps what
/// belongs to other users and what cannot be removed.
void RemoveLeftovers(const std::string& folder) noexcept;
/// The same for the system's folder of temporary files.
void RemoveTemporaryLeftovers() noexcept;

/// The name of a copy until this process has checked it: "PATH.new-1234".
std::string UnfinishedName(const std::string& path);
/// Removes the unfinished copies of ended programs for this path, and their journals. Keeps what
/// belongs to other users.
void RemoveUnfinishedOf(const std::string& path);
/// The same for all databases in a folder: files whose names end in ".mdb".
void RemoveUnfinishedIn(const std::string& folder);

}  // namespace clb
