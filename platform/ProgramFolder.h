// Finds the program folder and makes new ones.
#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace clb {

/// Where the program folder may be. Paths have no trailing slash and are empty if unknown.
struct FolderPlaces {
    std::optional<std::string> home;  ///< named by the user
    std::string executableFolder;     ///< the folder of the running program
    std::string dataHome;             ///< the user's folder for programs' data
};

/// Chooses the program folder: the one that the user named; else the executable's folder if it
/// holds db/clb.mdb (a portable copy); else "corvane-ledgerbook" in the user's data folder.
[[nodiscard]] std::string ProgramFolder(const FolderPlaces& places);

/// The places of the running program. dataHome is $XDG_DATA_HOME if that is an absolute path, else
/// ~/.local/share.
[[nodiscard]] FolderPlaces PlacesOf(const std::optional<std::string>& home);

/// Whether the folder holds a database.
[[nodiscard]] bool HoldsDatabase(const std::string& folder);
/// Whether the folder has never held a database: there is no file of that name and no backup. A
/// database that has gone missing must not be replaced by an empty one.
[[nodiscard]] bool IsUnused(const std::string& folder);
/// The path of the folder's database.
[[nodiscard]] std::string DatabasePath(const std::string& folder);

/// Makes a program folder with the given database and the manual. Makes missing folders. Only the
/// user can read them and the database. Throws PortError: FileAlreadyExists if the folder already
/// holds a database (which stays as it is), PathAccess if something cannot be written (no
/// half-written file stays).
void DeliverFolder(const std::string& folder, std::string_view database);

/// Removes unfinished files, copies of the database and temporary folders that earlier runs left in
/// the program folder and in the system's folder for temporary files. Called when a program that
/// opens the folder's book starts.
void RemoveProgramLeftovers(const std::string& folder) noexcept;

}  // namespace clb
