#pragma once
#include <string>

namespace clb {

/// Makes a folder for the user alone (mode 0700). One that is there already stays as it is. Throws
/// FileError.
void MakePrivateFolder(const std::string& path);
/// The same with all folders on the way that are missing.
void MakePrivateFolders(const std::string& path);

/// The folder that holds the file; "." for a name without one.
std::string FolderOf(const std::string& path);
/// Makes the names in a folder durable: call it after a file has been made, renamed or removed.
/// Throws FileError when the disk reports an error.
void SyncFolder(const std::string& folder);

}  // namespace clb
