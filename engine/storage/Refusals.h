// The errors that the engine itself raises.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "base/Value.h"
#include "engine/storage/EngineError.h"

namespace clb {

/// The errors that the engine itself raises, one function per message. Private to the engine.
namespace refuse {

/// near: the text where the parser stopped; empty at the end of the query.
EngineError Syntax(std::string_view near);
EngineError WrongSql(const std::string& message);
EngineError NoSuchTable(std::string_view table);
EngineError TableExists(std::string_view table);
EngineError NoSuchColumn(std::string_view column);
EngineError AmbiguousColumn(std::string_view column);
EngineError NoSuchFunction(std::string_view function);
EngineError TypeMismatch();
/// For a cell whose contents do not match its column's type. holds: what it contains, such as "the
/// text 'abc'".
EngineError WrongCell(const std::string& holds, FieldType type);
/// The same error, preceded by the place: "Trans.Amount in row 17", or only the field's name.
EngineError WrongCellAt(const std::string& place, const EngineError& error);
/// For a value in a calculation that is not a number of its type.
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
/// The table's counter has no number left.
EngineError NoNumberLeft(std::string_view table);
/// what: the rest of the sentence after the file's name, such as "is read-only.".
EngineError File(const std::string& path, const std::string& what, FileTrouble trouble);
/// For a file that cannot be written. error: errno.
EngineError CannotWrite(const std::string& path, int error);

}  // namespace refuse
}  // namespace clb
