// The syntax tree of a query.
#pragma once
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "base/Value.h"
#include "engine/sql/Lexer.h"
#include "engine/storage/Catalogue.h"

namespace clb {

enum class Operator {
    Add,
    Subtract,
    Multiply,
    Divide,
    Concatenate,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    And,
    Or,
};

/// Functions of the dialect; the first five are the aggregates.
enum class Function {
    Sum,
    Count,
    Min,
    Max,
    Avg,
    Year,
    Month,
    Day,
    Len,
    Left,
    Right,
    Mid,
    UCase,
    LCase,
    Trim,
    LTrim,
    RTrim,
    Abs,
    Round,
    IIf,
    IsNull,
    Nz,
    CStr,
    CLng,
    CCur,
    CDbl,
};
inline bool IsAggregate(Function function)
{
    return function <= Function::Avg;
}

enum class ExpressionKind {
    Literal,  ///< literal; negated: after a minus
    Truth,    ///< TRUE and FALSE: truth
    NullValue,
    Column,  ///< name; qualifier, empty if none is written
    Negate,  ///< minus before operands[0]
    Not,
    Binary,    ///< operands[0] operation operands[1]
    NullTest,  ///< negated: IS NOT NULL
    In,        ///< operands[0] in the others
    Between,   ///< operands[0] between [1] and [2]
    Like,
    Call,  ///< function of the operands; COUNT(*) has none
};

struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

/// A node of an expression. The parser fills the first part, the checker the second.
struct Expression {
    ExpressionKind kind = ExpressionKind::NullValue;
    Operator operation = Operator::Add;
    Function function = Function::Sum;
    bool negated = false;
    bool truth = false;
    std::size_t literal = 0;
    LiteralKind literalKind = LiteralKind::Text;
    std::string qualifier;
    std::string name;
    std::vector<ExpressionPtr> operands;
    int depth = 1;  ///< of the tree below it; 1: a leaf

    FieldType type = FieldType::Text;  ///< a null has Text, but fits every type
    std::size_t source = 0;            ///< Column: index of its table in the FROM clause
    const ColumnInfo* column = nullptr;
    bool aggregates = false;  ///< contains an aggregate function
};

inline bool IsNumberLiteral(const Expression& e)
{
    return e.kind == ExpressionKind::Literal && e.literalKind != LiteralKind::Text &&
           e.literalKind != LiteralKind::Date;
}

enum class JoinKind { Inner, Left };

/// One table of FROM, or two joined ones.
struct TableExpression {
    std::string table;
    std::string alias;       ///< the table's name if none is written
    std::size_t source = 0;  ///< index of the table, counted from the left
    JoinKind join = JoinKind::Inner;
    std::unique_ptr<TableExpression> left;  ///< set for a join, with right and on
    std::unique_ptr<TableExpression> right;
    ExpressionPtr on;
};

struct SelectItem {
    bool star = false;
    std::string qualifier;  ///< of "Table.*"
    ExpressionPtr expression;
    std::string alias;
};

struct OrderItem {
    ExpressionPtr expression;  ///< null if position gives the field
    std::size_t position = 0;  ///< 1-based
    bool descending = false;
};

struct SelectQuery {
    bool distinct = false;
    std::optional<std::int32_t> top;
    std::vector<SelectItem> items;
    std::unique_ptr<TableExpression> from;
    ExpressionPtr where;
    std::vector<ExpressionPtr> groupBy;
    ExpressionPtr having;
    std::vector<OrderItem> orderBy;
};

struct InsertQuery {
    std::string table;
    std::vector<std::string> columns;  ///< empty: all, in the table's order
    std::vector<ExpressionPtr> values;
    std::unique_ptr<SelectQuery> select;  ///< in place of the values
};

struct UpdateQuery {
    std::string table;
    struct Assignment {
        std::string qualifier;
        std::string column;
        ExpressionPtr value;
    };
    std::vector<Assignment> assignments;
    ExpressionPtr where;
};

struct DeleteQuery {
    std::string table;
    ExpressionPtr where;
};

/// A column as CREATE TABLE or ALTER TABLE defines it.
struct ColumnDefinition {
    std::string name;
    ColumnType type;
    bool notNull = false;
    bool primaryKey = false;
    bool unique = false;
    std::optional<Value> defaultValue;
};

struct CreateTableQuery {
    std::string table;
    std::vector<ColumnDefinition> columns;
    struct Key {
        bool primary = false;
        std::vector<std::string> columns;
    };
    std::vector<Key> keys;
};

struct CreateIndexQuery {
    std::string index;
    std::string table;
    bool unique = false;
    struct Part {
        std::string column;
        bool descending = false;
    };
    std::vector<Part> parts;
};

struct DropTableQuery {
    std::string table;
};

struct DropIndexQuery {
    std::string index;
    std::string table;
};

struct AddColumnQuery {
    std::string table;
    ColumnDefinition column;
};

struct AlterColumnQuery {
    std::string table;
    ColumnDefinition column;
};

struct DropColumnQuery {
    std::string table;
    std::string column;
};

using DdlQuery = std::variant<CreateTableQuery, CreateIndexQuery, DropTableQuery, DropIndexQuery,
                              AddColumnQuery, AlterColumnQuery, DropColumnQuery>;

using ParsedQuery = std::variant<SelectQuery, InsertQuery, UpdateQuery, DeleteQuery, DdlQuery>;

}  // namespace clb
