// What a failed call of the storage is to its caller: an error that names the file, or one about
// the query. Private to the engine.
#pragma once
#include <optional>
#include <string>

#include "engine/storage/EngineError.h"

namespace clb::storage_errors {

EngineError NoDatabase(const std::string& path);
EngineError FolderTakesNoFiles(const std::string& path);
/// The reason of a failed system call, or nothing if errno does not tell it.
std::optional<EngineError> OfSystem(int system, const std::string& path);
/// extended: the storage's result code. system: errno of the failed system call, or 0.
EngineError OfFile(int extended, int system, const std::string& path);
/// kind: the low byte of the result code. message: what the storage says of it.
EngineError OfQuery(int kind, int extended, const std::string& message);

/// Whether a result code, or its low byte, is about the file and not about the query.
bool IsAboutFile(int kind);
bool IsOutOfMemory(int code);

}  // namespace clb::storage_errors
