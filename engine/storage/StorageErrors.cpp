#include "engine/storage/StorageErrors.h"

#include <sqlite3.h>

#include <cerrno>

#include "engine/storage/Functions.h"
#include "engine/storage/Refusals.h"

namespace clb::storage_errors {
namespace {

/// Returns the text after the last colon and space. "NOT NULL constraint failed: Account.Type" ends
/// with the field.
std::string Subject(const std::string& message)
{
    const std::size_t colon = message.rfind(": ");
    return colon == std::string::npos ? message : message.substr(colon + 2);
}

EngineError ConstraintError(int extended, const std::string& message)
{
    if (extended == SQLITE_CONSTRAINT_NOTNULL)
        return {engine_errors::Constraint,
                "You must enter a value in the '" + Subject(message) + "' field."};
    if (extended == SQLITE_CONSTRAINT_UNIQUE || extended == SQLITE_CONSTRAINT_PRIMARYKEY ||
        extended == SQLITE_CONSTRAINT_ROWID)
        return {engine_errors::Constraint,
                "The changes were not made because they would create duplicate values in '" +
                    Subject(message) + "'."};
    return {engine_errors::Constraint, message};
}

EngineError JournalError(const std::string& path)
{
    return refuse::File(path,
                        "cannot be written: its journal '" + path + "-journal' cannot be opened.",
                        FileTrouble::Unreadable);
}

EngineError TooBig()
{
    return refuse::WrongSql("The statement or one of its values is too big.");
}

}  // namespace

EngineError NoDatabase(const std::string& path)
{
    return refuse::File(path, "is damaged or is no database.", FileTrouble::Damaged);
}

EngineError FolderTakesNoFiles(const std::string& path)
{
    return refuse::File(path, "is in a folder that takes no new files.",
                        FileTrouble::FolderReadOnly);
}

std::optional<EngineError> OfSystem(int system, const std::string& path)
{
    switch (system) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG: return refuse::CannotWrite(path, system);
        case EROFS: return refuse::File(path, "is read-only.", FileTrouble::ReadOnly);
        case EMFILE:
        case ENFILE:
            return refuse::File(path, "cannot be opened: too many files are open.",
                                FileTrouble::Unreadable);
        case ENOLCK:
            return refuse::File(path, "cannot be locked on its disk.", FileTrouble::Unreadable);
        case EISDIR: return JournalError(path);  // the database itself is a file
        default: return std::nullopt;
    }
}

namespace {

EngineError ReadOnlyErrorOf(int extended, const std::string& path)
{
    switch (extended) {
        case SQLITE_READONLY_DBMOVED:
            return refuse::File(path, "was replaced or removed by another program.",
                                FileTrouble::Replaced);
        case SQLITE_READONLY_DIRECTORY: return FolderTakesNoFiles(path);
        default: return refuse::File(path, "is read-only.", FileTrouble::ReadOnly);
    }
}

/// The file itself is open, so the journal next to it is what cannot be opened.
EngineError JournalErrorOf(int system, const std::string& path)
{
    if (system == ENOENT)
        return ReadOnlyErrorOf(SQLITE_READONLY_DBMOVED, path);
    return OfSystem(system, path).value_or(JournalError(path));
}

}  // namespace

EngineError OfFile(int extended, int system, const std::string& path)
{
    switch (extended & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return refuse::File(path, "is locked by another program.", FileTrouble::Locked);
        case SQLITE_READONLY: return ReadOnlyErrorOf(extended, path);
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB: return NoDatabase(path);
        case SQLITE_FULL: return refuse::CannotWrite(path, ENOSPC);
        case SQLITE_PERM:
            return refuse::File(path, "cannot be locked: the system does not permit it.",
                                FileTrouble::Unreadable);
        case SQLITE_CANTOPEN: return JournalErrorOf(system, path);
        default:
            return OfSystem(system, path)
                .value_or(
                    refuse::File(path, "cannot be read or written.", FileTrouble::Unreadable));
    }
}

EngineError OfQuery(int kind, int extended, const std::string& message)
{
    switch (kind) {
        case SQLITE_CONSTRAINT: return ConstraintError(extended, message);
        case SQLITE_AUTH: return refuse::WrongSql("The statement is not allowed.");
        case SQLITE_TOOBIG: return TooBig();
        default: break;
    }
    if (message == kIntegerOverflow)
        return refuse::Overflow();
    return refuse::WrongSql(message);
}

bool IsAboutFile(int kind)
{
    switch (kind) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_READONLY:
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
        case SQLITE_FULL:
        case SQLITE_IOERR:
        case SQLITE_PERM:
        case SQLITE_CANTOPEN: return true;
        default: return false;
    }
}

bool IsOutOfMemory(int code)
{
    return (code & 0xFF) == SQLITE_NOMEM || code == SQLITE_IOERR_NOMEM;
}

}  // namespace clb::storage_errors
