// The search criterion of a result set.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "base/Value.h"
#include "engine/sql/Ast.h"
#include "engine/sql/Lexer.h"

namespace clb {

/// The criterion of Recordset::Find: "Field operator literal".
struct Criterion {
    std::string field;
    bool like = false;
    Operator operation = Operator::Equal;
    bool negated = false;       ///< a minus before the number
    std::optional<bool> truth;  ///< TRUE or FALSE instead of a literal
    Literal literal;

    /// Throws EngineError for any other form, including unclosed quotes.
    static Criterion Parse(std::string_view text);

    /// Throws EngineError if the literal cannot be compared with a field of the type.
    void RequireType(FieldType type) const;
    /// For "=": the value of the field's type that equals the literal, or nothing if there is none.
    [[nodiscard]] std::optional<Value> Sought(FieldType type) const;
    /// Whether the value meets the criterion. Null never does.
    [[nodiscard]] bool Matches(const Value& value) const;

private:
    [[nodiscard]] int Compare(const Value& value) const;
};

}  // namespace clb
