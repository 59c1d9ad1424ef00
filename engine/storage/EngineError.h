// The exception of the engine, its numbers, and what can be wrong with the file.
#pragma once
#include "base/RuntimeError.h"

namespace clb {

/// What is wrong with the database file, if the error is about the file.
enum class FileTrouble {
    None,
    Missing,
    Folder,          ///< the path is a folder
    Locked,          ///< another program has locked it
    ReadOnly,        ///< the file may not be written
    FolderReadOnly,  ///< its folder is read-only, but writing needs a journal there
    Damaged,         ///< or not a database at all
    Full,            ///< no room on the disk
    Replaced,        ///< the path now names another file, or none
    Unreadable
};

/// The error of a query or of an operation on a result set, with the number and message shown to
/// the user. The failed query has changed nothing.
class EngineError : public RuntimeError {
public:
    using RuntimeError::RuntimeError;
    EngineError(std::int32_t number, const std::string& message, FileTrouble trouble)
        : RuntimeError(number, message), trouble_(trouble)
    {
    }
    [[nodiscard]] FileTrouble Trouble() const { return trouble_; }

private:
    FileTrouble trouble_ = FileTrouble::None;
};

/// Numbers of engine errors, as signed 32-bit values.
namespace engine_errors {
enum Number : std::int32_t {
    Syntax = static_cast<std::int32_t>(0x80040E14),
    NoSuchTable = static_cast<std::int32_t>(0x80040E37),
    NoSuchColumn = static_cast<std::int32_t>(0x80040E10),
    TypeMismatch = static_cast<std::int32_t>(0x80040E07),
    TextTooLong = static_cast<std::int32_t>(0x80040E57),
    Overflow = static_cast<std::int32_t>(0x80040E1D),
    Constraint = static_cast<std::int32_t>(0x80040E2F),
    Unavailable = static_cast<std::int32_t>(0x80004005),
    NoCurrentRow = static_cast<std::int32_t>(0x800A0BCD),
    ItemNotFound = static_cast<std::int32_t>(0x800A0CC1),
    WrongArguments = static_cast<std::int32_t>(0x800A0BB9),
    NotUpdatable = static_cast<std::int32_t>(0x800A0CB3),
    Closed = static_cast<std::int32_t>(0x800A0E78),
    AlreadyOpen = static_cast<std::int32_t>(0x800A0E79),
    RowVanished = static_cast<std::int32_t>(0x80040E23),
};
}  // namespace engine_errors

}  // namespace clb
