#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "engine/sql/Ast.h"
#include "engine/storage/Catalogue.h"

namespace clb {

/// How one literal of the statement reaches the storage.
struct Parameter {
    std::size_t literal = 0;
    bool negated = false;
    bool cutToMoney = false;  ///< the largest amount that is not above the literal
    ColumnType type;          ///< to which it is converted otherwise
    std::string column;       ///< named when the value does not fit it
};

/// The value to bind. Throws EngineError when the literal does not fit.
Value ParameterValue(const Parameter& parameter, const Literal& literal);

/// Writes checked expressions in the storage's SQL; literals become numbered parameters. Table
/// number n of the statement is called tn.
class Writer {
public:
    [[nodiscard]] const std::string& Sql() const { return sql_; }
    [[nodiscard]] const std::vector<Parameter>& Parameters() const { return parameters_; }
    std::string TakeSql() { return std::move(sql_); }

    Writer& Text(std::string_view text);
    Writer& Name(std::string_view name);

    /// The value in its own type.
    void Write(const Expression& e);
    /// The value as another type takes it.
    void WriteAs(const Expression& e, FieldType type);
    /// As a value for a column; what does not fit is an error when it runs.
    void WriteForColumn(const Expression& e, const ColumnInfo& column);
    void WriteCondition(const Expression& e);
    /// One key of ORDER BY: two for a text.
    void WriteOrder(const Expression& e, bool descending);

private:
    void WriteLiteral(const Expression& e, const ColumnType& type, std::string_view column = {});
    /// A value of a column; one that is not stored as a whole number is an error when it runs.
    void WriteExact(const Expression& e);
    void WriteNegated(const Expression& e);
    void WriteBinary(const Expression& e);
    void WriteArithmetic(const Expression& e);
    void WriteOperand(const Expression& e, FieldType type);
    void WriteMoneyProduct(const Expression& a, const Expression& b);
    void WriteConstantAsMoney(const Expression& e);
    void WriteComparison(Operator operation, const Expression& a, const Expression& b);
    void WriteFineComparison(Operator operation, const Expression& money,
                             const Expression& literal);
    void WriteIn(const Expression& e);
    void WriteBetween(const Expression& e);
    void WriteLike(const Expression& e);
    void WriteCall(const Expression& e);
    void WriteAggregate(const Expression& e);
    void WriteScalar(const Expression& e);
    void WriteDatePart(const Expression& e);
    void WriteMid(const Expression& e);
    void WriteRound(const Expression& e);
    void WriteIIf(const Expression& e);
    void WriteNz(const Expression& e);
    void WriteConversion(const Expression& e, const ColumnType& type, std::string_view column);
    void WriteFunction(std::string_view name, const Expression& a, FieldType typeA,
                       const Expression& b, FieldType typeB);
    void WriteTruth(const Expression& e, FieldType type);

    std::string sql_;
    std::vector<Parameter> parameters_;
};

/// A text between the storage's quotes.
std::string QuoteText(std::string_view text);

}  // namespace clb
