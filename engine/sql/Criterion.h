#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "base/Value.h"
#include "engine/sql/Ast.h"
#include "engine/sql/Lexer.h"

namespace clb {

/// What Find searches for: "Field operator literal".
struct Criterion {
    std::string field;
    bool like = false;
    Operator operation = Operator::Equal;
    bool negated = false;       ///< a minus in front of the number
    std::optional<bool> truth;  ///< TRUE and FALSE in place of a literal
    Literal literal;

    /// Throws EngineError for any other form, lone quotes included.
    static Criterion Parse(std::string_view text);

    /// Throws EngineError when the literal cannot be compared with a field of the type.
    void RequireType(FieldType type) const;
    /// For "=": the value of the field's type that is equal to the literal; nothing when none is.
    [[nodiscard]] std::optional<Value> Sought(FieldType type) const;
    /// Whether the value fulfils the criterion; null never does.
    [[nodiscard]] bool Matches(const Value& value) const;

private:
    [[nodiscard]] int Compare(const Value& value) const;
};

}  // namespace clb
