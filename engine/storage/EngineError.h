#pragma once
#include "base/RuntimeError.h"

namespace clb {

/// What is the matter with the database file, where that is what an error is about.
enum class FileTrouble {
    None,
    Missing,
    Folder,          ///< a folder has its name
    Locked,          ///< another program has it
    ReadOnly,        ///< the file may not be written
    FolderReadOnly,  ///< its folder takes no new files, and writing needs one for a moment
    Damaged,         ///< or no database at all
    Full,            ///< no room on the disk
    Replaced,        ///< another file has its name now, or none
    Unreadable
};

/// A statement or result-set operation that the engine refused; number and message as shown to the
/// user. Nothing was changed by the refused statement.
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
inline constexpr std::int32_t Syntax = static_cast<std::int32_t>(0x80040E14);
inline constexpr std::int32_t NoSuchTable = static_cast<std::int32_t>(0x80040E37);
inline constexpr std::int32_t NoSuchColumn = static_cast<std::int32_t>(0x80040E10);
inline constexpr std::int32_t TypeMismatch = static_cast<std::int32_t>(0x80040E07);
inline constexpr std::int32_t TextTooLong = static_cast<std::int32_t>(0x80040E57);
inline constexpr std::int32_t Overflow = static_cast<std::int32_t>(0x80040E1D);
inline constexpr std::int32_t Constraint = static_cast<std::int32_t>(0x80040E2F);
inline constexpr std::int32_t Unavailable = static_cast<std::int32_t>(0x80004005);
inline constexpr std::int32_t NoCurrentRow = static_cast<std::int32_t>(0x800A0BCD);
inline constexpr std::int32_t ItemNotFound = static_cast<std::int32_t>(0x800A0CC1);
inline constexpr std::int32_t WrongArguments = static_cast<std::int32_t>(0x800A0BB9);
inline constexpr std::int32_t NotUpdatable = static_cast<std::int32_t>(0x800A0CB3);
inline constexpr std::int32_t Closed = static_cast<std::int32_t>(0x800A0E78);
inline constexpr std::int32_t AlreadyOpen = static_cast<std::int32_t>(0x800A0E79);
inline constexpr std::int32_t RowVanished = static_cast<std::int32_t>(0x80040E23);
}  // namespace engine_errors

}  // namespace clb
