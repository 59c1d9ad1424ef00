#pragma once
#include <string_view>
#include <vector>

#include "engine/sql/Ast.h"
#include "engine/storage/Catalogue.h"

namespace clb {

/// A table of the statement under the name by which its columns may be called.
struct Source {
    const TableInfo* table = nullptr;
    std::string alias;
};

/// Resolves a statement's names against the catalogue and gives every expression its type. All
/// refusals (unknown or ambiguous name, types that do not go together, misplaced aggregate) are
/// thrown as EngineError before anything runs.
class Checker {
public:
    explicit Checker(std::vector<Source> sources) : sources_(std::move(sources)) {}

    /// A value; aggregate functions only where allowed.
    void Check(Expression& expression, bool aggregatesAllowed);
    /// A condition: a truth value, or a number, of which all but 0 are true.
    void CheckCondition(Expression& expression, bool aggregatesAllowed);
    [[nodiscard]] const std::vector<Source>& Sources() const { return sources_; }
    /// Tables that the name stands for; all of them where it is empty. Throws when there is none.
    [[nodiscard]] std::vector<std::size_t> SourcesNamed(std::string_view qualifier) const;

private:
    void CheckColumn(Expression& e) const;
    void CheckBinary(Expression& e);
    void CheckCall(Expression& e);
    void CheckAggregate(Expression& e);
    void CheckScalar(Expression& e);
    static FieldType ScalarType(const Expression& e);
    static void RequireText(const Expression& e);
    static void RequireNumber(const Expression& e);
    static void RequireDate(const Expression& e);
    static void RequireCondition(const Expression& e);

    std::vector<Source> sources_;
    bool aggregatesAllowed_ = false;
};

}  // namespace clb
