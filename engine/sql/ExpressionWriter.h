#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "engine/sql/Ast.h"
#include "engine/sql/Parameter.h"
#include "engine/storage/Catalogue.h"

namespace clb {

/// Writes checked expressions in the storage's SQL; literals become numbered parameters. Table
/// number n of the statement is called tn.
class ExpressionWriter {
public:
    [[nodiscard]] const std::string& Sql() const { return sql_; }
    [[nodiscard]] const std::vector<Parameter>& Parameters() const { return parameters_; }
    std::string TakeSql() { return std::move(sql_); }

    ExpressionWriter& Text(std::string_view text);
    ExpressionWriter& Name(std::string_view name);

    /// The value in its own type.
    void Write(const Expression& e);
    /// The value as another type takes it.
    void WriteAs(const Expression& e, FieldType type);
    /// As a value for a column; what does not fit is an error when it runs.
    void WriteForColumn(const Expression& e, const ColumnInfo& column);
    /// The value as a truth value: a number is true unless it is 0.
    void WriteCondition(const Expression& e);
    /// One key of ORDER BY: two for a text.
    void WriteOrder(const Expression& e, bool descending);
    /// The value; if it is a column's, one that is not stored as a whole number is an error when
    /// it runs.
    void WriteExact(const Expression& e);
    /// The largest amount that is not above the literal.
    void WriteCutToMoney(const Expression& literal);
    /// A function of two values, each in the type given after it.
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
