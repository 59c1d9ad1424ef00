#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "base/Value.h"
#include "engine/storage/EngineError.h"

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
/// For a cell that does not hold what its column's type says. holds: what it holds instead, such as
/// "the text 'abc'".
EngineError WrongCell(const std::string& holds, FieldType type);
/// The same error with the place in front: "Trans.Amount in row 17", or the field's name alone.
EngineError WrongCellAt(const std::string& place, const EngineError& error);
/// For a value in a calculation that is not the number that its type says.
EngineError WrongOperand();
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
