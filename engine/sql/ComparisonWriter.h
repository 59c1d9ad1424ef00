// Comparisons in the storage's SQL.
#pragma once
#include "engine/sql/Ast.h"

namespace clb {

class ExpressionWriter;

/// Writes comparisons into an ExpressionWriter, which it borrows.
class ComparisonWriter {
public:
    explicit ComparisonWriter(ExpressionWriter& out) : out_(out) {}

    /// e is an In, a Between, a Like or a Binary that compares.
    void Write(const Expression& e);

private:
    void WritePair(Operator operation, const Expression& a, const Expression& b);
    void WriteFine(Operator operation, const Expression& money, const Expression& literal);
    void WriteIn(const Expression& e);
    void WriteBetween(const Expression& e);
    void WriteLike(const Expression& e);

    ExpressionWriter& out_;
};

}  // namespace clb
