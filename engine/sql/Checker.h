// Resolves the names of a query and checks its types.
#pragma once
#include <string_view>
#include <vector>

#include "engine/sql/Ast.h"
#include "engine/storage/Catalogue.h"

namespace clb {

/// A table of the query, with the name that qualifies its columns.
struct Source {
    const TableInfo* table = nullptr;
    std::string alias;
};

/// Resolves the names of a query against the catalogue and gives every expression its type. Throws
/// EngineError, before anything runs, for an unknown or ambiguous name, types that do not fit
/// together, or a misplaced aggregate function.
class Checker {
public:
    explicit Checker(std::vector<Source> sources) : sources_(std::move(sources)) {}

    /// Checks a value. Aggregate functions only if allowed.
    void Check(Expression& expression, bool aggregatesAllowed);
    /// Checks a condition: a truth value or a number, which is true unless it is 0.
    void CheckCondition(Expression& expression, bool aggregatesAllowed);
    [[nodiscard]] const std::vector<Source>& Sources() const { return sources_; }
    /// Returns the tables of this name, or all tables if it is empty. Throws if there is none.
    [[nodiscard]] std::vector<std::size_t> SourcesNamed(std::string_view qualifier) const;

private:
    void CheckColumn(Expression& e) const;
    static void CheckBinary(Expression& e);
    void CheckCall(Expression& e);
    static void CheckAggregate(Expression& e);
    static void CheckScalar(Expression& e);
    static FieldType ScalarType(const Expression& e);
    static void RequireText(const Expression& e);
    static void RequireNumber(const Expression& e);
    static void RequireDate(const Expression& e);
    static void RequireCondition(const Expression& e);

    std::vector<Source> sources_;
    bool aggregatesAllowed_ = false;
};

}  // namespace clb
