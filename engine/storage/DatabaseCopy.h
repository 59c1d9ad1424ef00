#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace clb {

/// Copies the database to a new file, as it stands between two commands even while another program
/// writes it. The copy is for the user alone and is on the disk when this returns. Throws
/// EngineError, also when the new file exists; nothing half copied stays.
void CopyDatabase(const std::string& from, const std::string& to);

/// A line of the storage's own check of a file. Throws std::bad_alloc when the line tells only that
/// there was no memory to load a page, which is no fault of the file.
std::string FaultIn(std::string_view line);

/// What is wrong with the inner order of a database file, in the storage's words; empty when it is
/// sound. Throws EngineError when the file cannot be read as a database at all.
std::vector<std::string> FaultsOf(const std::string& path);

/// Whether a file has the header of a database and the size that its header names. Reads 100 bytes:
/// finds empty files, files cut short and files of other programs, but no damaged pages. False for
/// what cannot be read.
bool LooksWhole(const std::string& path);
/// Whether a file begins as every database does. False for what cannot be read.
bool HasDatabaseHeader(const std::string& path);

/// Makes the content of a file or folder, and its name, durable. A disk that cannot do so counts as
/// done. Throws EngineError when the disk refuses.
void FlushToDisk(const std::string& path);
/// Gives a finished file another name in its folder, which is durable when this returns. Replaces
/// nothing: throws EngineError when the name is taken, or cannot be written.
void NameFinished(const std::string& from, const std::string& to);

/// Puts the database file `fresh`, of the same folder, in the place of the one at path, in one
/// step. What was at path, damaged or not, is copied to the new file `kept` before; there need not
/// have been any. Throws EngineError when another program has the file open or locked, or something
/// cannot be written; then path is as it was and `fresh` is still there.
void ReplaceDatabase(const std::string& path, const std::string& fresh, const std::string& kept);

}  // namespace clb
