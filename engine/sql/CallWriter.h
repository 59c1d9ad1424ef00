// Calls of the dialect's functions in the storage's SQL.
#pragma once
#include "engine/sql/Ast.h"

namespace clb {

class ExpressionWriter;

/// Writes calls of functions into an ExpressionWriter, which it borrows.
class CallWriter {
public:
    explicit CallWriter(ExpressionWriter& out) : out_(out) {}

    /// e is a Call.
    void Write(const Expression& e);

private:
    void WriteAggregate(const Expression& e);
    void WriteScalar(const Expression& e);
    void WriteDatePart(const Expression& e);
    void WriteMid(const Expression& e);
    void WriteRound(const Expression& e);
    void WriteIIf(const Expression& e);
    void WriteNz(const Expression& e);

    ExpressionWriter& out_;
};

}  // namespace clb
