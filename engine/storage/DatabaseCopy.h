// Makes and checks copies of a database file, and puts one in its place.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace clb {

/// Copies a database to a new file. The copy is a consistent state, even while another program
/// writes. Only the user can read the copy, and it is on the disk when this returns. Throws
/// EngineError, also if the new file exists. A failed copy leaves no file.
void CopyDatabase(const std::string& from, const std::string& to);

/// Returns a line of the storage's own integrity check. Throws std::bad_alloc if the line only
/// reports that there was no memory to load a page, which is not a fault of the file.
std::string FaultIn(std::string_view line);

/// Runs the storage's integrity check and returns its findings. Empty if the file is sound. Throws
/// EngineError if the file cannot be read as a database at all.
std::vector<std::string> FaultsOf(const std::string& path);

/// Whether a file has the header of a database and the size that the header gives. Reads only 100
/// bytes: it detects empty files, truncated files and files of other programs, but not damaged
/// pages. Returns false if the file cannot be read.
bool LooksWhole(const std::string& path);
/// Whether a file starts with the magic bytes of a database. Returns false if it cannot be read.
bool HasDatabaseHeader(const std::string& path);

/// Synchronises a file or folder, and its name, to the disk. Does nothing on a disk that does not
/// support this. Throws EngineError if the disk reports an error.
void FlushToDisk(const std::string& path);
/// Renames a finished file within its folder. The new name is on the disk when this returns. Never
/// replaces a file: throws EngineError if the name is taken or cannot be written.
void NameFinished(const std::string& from, const std::string& to);

/// Replaces the file at `path` by the database file `fresh` of the same folder, in one step. The
/// old file, damaged or not, is first copied to the new file `kept`; there may be no old file.
/// Throws EngineError if another program has the file open or locked, or if something cannot be
/// written. In that case the file at `path` is unchanged and `fresh` still exists.
void ReplaceDatabase(const std::string& path, const std::string& fresh, const std::string& kept);

}  // namespace clb
