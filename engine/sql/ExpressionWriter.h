// Translates expressions into the storage's SQL.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "engine/sql/Ast.h"
#include "engine/sql/Parameter.h"
#include "engine/storage/Catalogue.h"

namespace clb {

/// Writes checked expressions in the storage's SQL. Literals become numbered parameters. Table
/// number n of the query is named tn.
class ExpressionWriter {
public:
    [[nodiscard]] const std::string& Sql() const { return sql_; }
    [[nodiscard]] const std::vector<Parameter>& Parameters() const { return parameters_; }
    std::string TakeSql() { return std::move(sql_); }

    ExpressionWriter& Text(std::string_view text);
    ExpressionWriter& Name(std::string_view name);

    /// Writes the value in its own type.
    void Write(const Expression& e);
    /// Writes the value converted to another type.
    void WriteAs(const Expression& e, FieldType type);
    /// Writes a value for a column. A value that does not fit is an error when the query runs.
    void WriteForColumn(const Expression& e, const ColumnInfo& column);
    /// Writes the value as a condition: a number is true unless it is 0.
    void WriteCondition(const Expression& e);
    /// Writes one key of ORDER BY. A text becomes two keys.
    void WriteOrder(const Expression& e, bool descending);
    /// Writes the value. A column's value that is not stored as a whole number is an error when the
    /// query runs.
    void WriteExact(const Expression& e);
    /// Writes the largest amount that is not greater than the literal.
    void WriteCutToMoney(const Expression& literal);
    /// Writes a function of two values, each converted to the type after it.
    void WriteFunction(std::string_view name, const Expression& a, FieldType typeA,
                       const Expression& b, FieldType typeB);

private:
    void WriteLiteral(const Expression& e, const ColumnType& type, std::string_view column = {});
    void WriteNegated(const Expression& e);
    void WriteBinary(const Expression& e);
    void WriteArithmetic(const Expression& e);
    void WriteOperand(const Expression& e, FieldType type);
    void WriteMoneyProduct(const Expression& a, const Expression& b);
    void WriteConstantAsMoney(const Expression& e);
    void WriteConversion(const Expression& e, const ColumnType& type, std::string_view column);
    void WriteTruth(const Expression& e, FieldType type);

    std::string sql_;
    std::vector<Parameter> parameters_;
};

}  // namespace clb
