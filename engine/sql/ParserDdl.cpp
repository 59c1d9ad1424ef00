#include <utility>

#include "base/Numeric.h"
#include "engine/sql/ParserCore.h"

namespace clb {
namespace {

/// Takes a column's name, which may be a whole number.
std::string ExpectColumnName(TokenReader& in)
{
    const Token& token = in.Peek();
    if (token.kind == TokenKind::Number && in.LiteralOf(token).kind == LiteralKind::Whole)
        return std::string(in.Next().text);
    return in.ExpectName();
}

ColumnType ExpectType(TokenReader& in)
{
    const Token& token = in.Peek();
    const auto type = token.kind == TokenKind::Name ? TypeOfWord(token.text) : std::nullopt;
    if (!type)
        in.Fail();
    in.Next();
    ColumnType result = *type;
    if (result.type == FieldType::Text && in.TakeSymbol("(")) {
        result.width = static_cast<std::size_t>(in.ExpectCount());
        in.ExpectSymbol(")");
    }
    return result;
}

Value ExpectDefault(TokenReader& in)
{
    const bool negative = in.TakeSymbol("-");
    const Token& token = in.Peek();
    if (token.kind == TokenKind::Number)
        return (negative ? "-" : "") + std::string(in.Next().text);
    if (negative)
        in.Fail();
    if (token.kind == TokenKind::Text)
        return in.LiteralOf(in.Next()).text;
    if (token.kind == TokenKind::Date)
        return in.LiteralOf(in.Next()).date;
    if (in.TakeWord("TRUE") || in.TakeWord("YES"))
        return true;
    if (in.TakeWord("FALSE") || in.TakeWord("NO"))
        return false;
    in.ExpectWord("NULL");
    return Null();
}

void ParseOptions(TokenReader& in, ColumnDefinition& column)
{
    for (;;) {
        if (in.TakeWord("NOT")) {
            in.ExpectWord("NULL");
            column.notNull = true;
        } else if (in.TakeWord("DEFAULT")) {
            column.defaultValue = ExpectDefault(in);
        } else if (in.TakeWord("PRIMARY")) {
            in.ExpectWord("KEY");
            column.primaryKey = true;
        } else if (in.TakeWord("UNIQUE")) {
            column.unique = true;
        } else if (!in.TakeWord("NULL")) {
            return;
        }
    }
}

ColumnDefinition ExpectColumn(TokenReader& in)
{
    ColumnDefinition column;
    column.name = ExpectColumnName(in);
    column.type = ExpectType(in);
    ParseOptions(in, column);
    return column;
}

/// [CONSTRAINT name] PRIMARY KEY (columns), or UNIQUE (columns).
CreateTableQuery::Key ExpectKey(TokenReader& in)
{
    if (in.TakeWord("CONSTRAINT"))
        in.ExpectName();
    CreateTableQuery::Key key;
    key.primary = in.TakeWord("PRIMARY");
    in.ExpectWord(key.primary ? "KEY" : "UNIQUE");
    in.ExpectSymbol("(");
    do
        key.columns.push_back(ExpectColumnName(in));
    while (in.TakeSymbol(","));
    in.ExpectSymbol(")");
    return key;
}

CreateTableQuery ParseCreateTable(TokenReader& in)
{
    CreateTableQuery create;
    create.table = in.ExpectName();
    in.ExpectSymbol("(");
    do {
        const bool key = in.AtWord("CONSTRAINT") ||
                         (in.AtWord("PRIMARY") && IsWord(in.Peek(1), "KEY")) ||
                         (in.AtWord("UNIQUE") && in.AtSymbol("(", 1));
        if (key)
            create.keys.push_back(ExpectKey(in));
        else
            create.columns.push_back(ExpectColumn(in));
    } while (in.TakeSymbol(","));
    in.ExpectSymbol(")");
    if (create.columns.empty())
        in.Fail();
    return create;
}

CreateIndexQuery ParseCreateIndex(TokenReader& in, bool unique)
{
    CreateIndexQuery create;
    create.unique = unique;
    create.index = in.ExpectName();
    in.ExpectWord("ON");
    create.table = in.ExpectName();
    in.ExpectSymbol("(");
    do {
        CreateIndexQuery::Part part;
        part.column = ExpectColumnName(in);
        part.descending = in.TakeWord("DESC");
        if (!part.descending)
            in.TakeWord("ASC");
        create.parts.push_back(std::move(part));
    } while (in.TakeSymbol(","));
    in.ExpectSymbol(")");
    return create;
}

DdlQuery ParseCreate(TokenReader& in)
{
    if (in.TakeWord("TABLE"))
        return ParseCreateTable(in);
    const bool unique = in.TakeWord("UNIQUE");
    in.ExpectWord("INDEX");
    return ParseCreateIndex(in, unique);
}

DdlQuery ParseDrop(TokenReader& in)
{
    if (in.TakeWord("TABLE"))
        return DropTableQuery{in.ExpectName()};
    in.ExpectWord("INDEX");
    DropIndexQuery drop;
    drop.index = in.ExpectName();
    in.ExpectWord("ON");
    drop.table = in.ExpectName();
    return drop;
}

DdlQuery ParseAlter(TokenReader& in)
{
    in.ExpectWord("TABLE");
    std::string table = in.ExpectName();
    if (in.TakeWord("ADD")) {
        in.TakeWord("COLUMN");
        return AddColumnQuery{std::move(table), ExpectColumn(in)};
    }
    if (in.TakeWord("ALTER")) {
        in.TakeWord("COLUMN");
        return AlterColumnQuery{std::move(table), ExpectColumn(in)};
    }
    in.ExpectWord("DROP");
    in.TakeWord("COLUMN");
    return DropColumnQuery{std::move(table), ExpectColumnName(in)};
}

}  // namespace

DdlQuery ParseDdl(TokenReader& in)
{
    if (in.TakeWord("CREATE"))
        return ParseCreate(in);
    if (in.TakeWord("DROP"))
        return ParseDrop(in);
    in.ExpectWord("ALTER");
    return ParseAlter(in);
}

}  // namespace clb
