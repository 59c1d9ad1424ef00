#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "engine/EngineError.h"

namespace clb {

/// The engine's own refusals, one function a message. Private to the engine.
namespace refuse {

/// near is the text where the parser stopped; empty at the statement's end.
EngineError Syntax(std::string_view near);
EngineError Statement(const std::string& message);
EngineError NoSuchTable(std::string_view table);
EngineError TableExists(std::string_view table);
EngineError NoSuchColumn(std::string_view column);
EngineError AmbiguousColumn(std::string_view column);
EngineError NoSuchFunction(std::string_view function);
EngineError TypeMismatch();
EngineError Overflow();
EngineError DivisionByZero();
EngineError TextTooLong(std::string_view column, std::size_t width);
EngineError NotGrouped(std::string_view expression);
EngineError NoCurrentRow();
EngineError NoSuchField();
EngineError FieldNotUpdatable(std::string_view field);
EngineError SetNotUpdatable();
EngineError Criterion(std::string_view criterion);
EngineError Closed();
EngineError AlreadyOpen();
EngineError RowVanished();
/// The table's counter is used up.
EngineError NoNumberLeft(std::string_view table);
/// what: "is read-only.", as it follows the file's name.
EngineError File(const std::string& path, const std::string& what, FileTrouble trouble);
/// For the error that errno gives for a file that is to be written.
EngineError CannotWrite(const std::string& path, int error);

}  // namespace refuse
}  // namespace clb
