// Makes, reads and synchronises folders.
#pragma once
#include <string>
#include <vector>

namespace clb {

/// Makes a folder that only the user can read (mode 0700). An existing folder stays as it is.
/// Throws FileError.
void MakePrivateFolder(const std::string& path);
/// The same, including all missing parent folders.
void MakePrivateFolders(const std::string& path);

/// Returns the folder of the file, or "." for a name without a folder.
std::string FolderOf(const std::string& path);
/// Returns all names in a folder, including "." and "..", or none if it cannot be read. The
/// standard library's iterator is not used: with an error code it ends the program if there is no
/// memory.
std::vector<std::string> NamesIn(const std::string& folder);
/// Synchronises the names in a folder to the disk. Call it after a file was made, renamed or
/// removed. Throws FileError if the disk reports an error.
void SyncFolder(const std::string& folder);
/// Whether the name exists. A link counts even if it leads nowhere.
bool IsThere(const std::string& path);
/// Synchronises the bytes of a file, or the names in a folder, to the disk. Throws FileError if it
/// cannot be opened or the disk reports an error.
void SyncFile(const std::string& path);
/// Renames a file within its folder. Never replaces a file: throws FileError (FileAlreadyExists) if
/// the name exists.
void RenameToNew(const std::string& from, const std::string& to);

}  // namespace clb
