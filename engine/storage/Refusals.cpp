#include "engine/storage/Refusals.h"

#include <cerrno>
#include <cstring>

namespace clb::refuse {
namespace {

std::string Quoted(std::string_view name)
{
    return "'" + std::string(name) + "'";
}

/// What a cell of the type contains, as the end of a sentence.
const char* Expected(FieldType type)
{
    switch (type) {
        case FieldType::Text: return "a text";
        case FieldType::Long: return "a whole number";
        case FieldType::Money: return "an amount";
        case FieldType::Date: return "a date";
        case FieldType::Boolean: return "yes or no";
        default: return "a number";
    }
}

}  // namespace

EngineError Syntax(std::string_view near)
{
    if (near.empty())
        return WrongSql("Syntax error: the statement ends too early.");
    return WrongSql("Syntax error near " + Quoted(near) + " in the statement.");
}

EngineError WrongSql(const std::string& message)
{
    return {engine_errors::Syntax, message};
}

EngineError NoSuchTable(std::string_view table)
{
    return {engine_errors::NoSuchTable,
            "The database engine cannot find the input table or query " + Quoted(table) +
                ". Make sure it exists and that its name is spelled correctly."};
}

EngineError TableExists(std::string_view table)
{
    return WrongSql("Table " + Quoted(table) + " already exists.");
}

EngineError NoSuchColumn(std::string_view column)
{
    return {engine_errors::NoSuchColumn, "There is no column " + Quoted(column) + "."};
}

EngineError AmbiguousColumn(std::string_view column)
{
    return WrongSql("The specified field " + Quoted(column) +
                    " could refer to more than one table listed in the FROM clause.");
}

EngineError NoSuchFunction(std::string_view function)
{
    return WrongSql("Undefined function " + Quoted(function) +
                    " in expression, or a wrong number of arguments.");
}

EngineError TypeMismatch()
{
    return {engine_errors::TypeMismatch, "Data type mismatch in criteria expression."};
}

EngineError WrongCell(const std::string& holds, FieldType type)
{
    return {engine_errors::TypeMismatch,
            "The cell holds " + holds + ", which is not " + Expected(type) + "."};
}

EngineError WrongCellAt(const std::string& place, const EngineError& error)
{
    return {error.Number(), place + ": " + error.what()};
}

EngineError WrongOperand()
{
    return {engine_errors::TypeMismatch,
            "A cell that is calculated with holds something other than the number its column is "
            "for."};
}

EngineError Overflow()
{
    return {engine_errors::Overflow, "Overflow"};
}

EngineError DivisionByZero()
{
    return {engine_errors::Overflow, "Division by zero"};
}

EngineError TextTooLong(std::string_view column, std::size_t width)
{
    return {engine_errors::TextTooLong,
            "The field is too small to accept the amount of data you attempted to add. The field " +
                Quoted(column) + " takes " + std::to_string(width) + " characters."};
}

EngineError NotGrouped(std::string_view expression)
{
    return WrongSql("The expression " + Quoted(expression) +
                    " is neither part of an aggregate function nor of GROUP BY.");
}

EngineError NoCurrentRow()
{
    return {
        engine_errors::NoCurrentRow,
        "Either BOF or EOF is True, or the current record has been deleted. Requested operation "
        "requires a current record."};
}

EngineError NoSuchField()
{
    return {
        engine_errors::ItemNotFound,
        "Item cannot be found in the collection corresponding to the requested name or ordinal."};
}

EngineError FieldNotUpdatable(std::string_view field)
{
    return {engine_errors::NotUpdatable,
            "Cannot update " + Quoted(field) + "; field not updatable."};
}

EngineError SetNotUpdatable()
{
    return {engine_errors::NotUpdatable,
            "Current Recordset does not support updating. This may be a limitation of the selected "
            "lock kind or of the statement."};
}

EngineError Criterion(std::string_view criterion)
{
    return {engine_errors::WrongArguments, "The criterion " + Quoted(criterion) +
                                               " is not of the form: field, operator, literal."};
}

EngineError Closed()
{
    return {engine_errors::Closed, "Operation is not allowed when the object is closed."};
}

EngineError AlreadyOpen()
{
    return {engine_errors::AlreadyOpen, "Operation is not allowed when the object is open."};
}

EngineError RowVanished()
{
    return {engine_errors::RowVanished,
            "The row no longer exists: another statement has deleted it since the rows were read."};
}

EngineError NoNumberLeft(std::string_view table)
{
    return {engine_errors::Overflow,
            "No number is left for a new row of the table " + Quoted(table) + "."};
}

EngineError File(const std::string& path, const std::string& what, FileTrouble trouble)
{
    return {engine_errors::Unavailable, "The database file " + Quoted(path) + " " + what, trouble};
}

EngineError CannotWrite(const std::string& path, int error)
{
    if (error == ENOSPC || error == EDQUOT || error == EFBIG)
        return File(path, "cannot grow: the disk is full.", FileTrouble::Full);
    if (error == EEXIST)
        return File(path, "exists already.", FileTrouble::None);
    return File(path, std::string("cannot be written: ") + std::strerror(error) + ".",
                FileTrouble::ReadOnly);
}

}  // namespace clb::refuse
