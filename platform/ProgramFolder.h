#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace clb {

/// Where the program folder may be; paths without a trailing slash, empty when unknown.
struct FolderPlaces {
    std::optional<std::string> home;  ///< named by the user
    std::string executableFolder;     ///< where the running program stands
    std::string dataHome;             ///< the user's folder for programs' data
};

/// The program folder among the places, in this order: the one named by the user; the executable's
/// own when it holds db/clb.mdb (a portable copy); "corvane-ledgerbook" in the user's data folder.
std::string ProgramFolder(const FolderPlaces& places);

/// The places of the running program. dataHome is $XDG_DATA_HOME when that is an absolute path,
/// else
/// ~/.local/share.
FolderPlaces PlacesOf(const std::optional<std::string>& home);

/// Whether the folder holds a database.
bool HoldsDatabase(const std::string& folder);
/// Whether the folder has never held one: nothing has its name, and there are no backups. What has
/// gone missing is not replaced by an empty database.
bool IsUnused(const std::string& folder);
/// Path of the folder's database.
std::string DatabasePath(const std::string& folder);

/// Makes a program folder with the delivered database and the manual; folders that are missing are
/// made for the user alone, and so is the file. Throws PortError: FileAlreadyExists when the folder
/// holds a database already (it is left as it is), PathAccess when something cannot be written
/// (nothing half written stays).
void DeliverFolder(const std::string& folder, std::string_view database);

/// Removes the unfinished files, copies of the database and temporary folders that ended programs
/// have left, in the program folder and where the system keeps temporary files. For the start of a
/// program that opens the folder's book.
void RemoveProgramLeftovers(const std::string& folder) noexcept;

}  // namespace clb
