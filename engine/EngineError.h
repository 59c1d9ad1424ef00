#pragma once
#include "base/RuntimeError.h"

namespace clb {

/// A statement or result-set operation that the engine refused; number and message as shown to the
/// user. Nothing was changed by the refused statement.
class EngineError : public RuntimeError {
public:
    using RuntimeError::RuntimeError;
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
