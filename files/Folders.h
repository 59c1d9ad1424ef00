#pragma once
#include <string>
#include <vector>

namespace clb {

/// Makes a folder for the user alone (mode 0700). One that is there already stays as it is. Throws
/// FileError.
void MakePrivateFolder(const std::string& path);
/// The same with all folders on the way that are missing.
void MakePrivateFolders(const std::string& path);

/// The folder that holds the file; "." for a name without one.
std::string FolderOf(const std::string& path);
/// The names of what is in a folder, "." and ".." too; none when it cannot be read. The standard
/// library's iterator ends the program when it has no memory and an error code is asked for.
std::vector<std::string> NamesIn(const std::string& folder);
/// Makes the names in a folder durable: call it after a file has been made, renamed or removed.
/// Throws FileError when the disk reports an error.
void SyncFolder(const std::string& folder);
/// Whether something has the name. A link counts, wherever it leads.
bool IsThere(const std::string& path);
/// Makes the bytes of a file, or the names in a folder, durable. Throws FileError when it cannot be
/// opened or the disk reports an error.
void SyncFile(const std::string& path);
/// Gives a file another name in its folder. Replaces nothing: throws FileError (FileAlreadyExists)
/// when something has the name.
void RenameToNew(const std::string& from, const std::string& to);

}  // namespace clb
