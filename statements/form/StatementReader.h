// A reader of one kind of statement file.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Date.h"
#include "base/RuntimeError.h"
#include "statements/form/Statement.h"
#include "statements/form/StatementTable.h"

namespace clb {

/// What the whole of a file may leave open.
enum class StatementQuestion : std::uint8_t {
    DateOrder,  ///< options "dmy", "mdy", "ymd"
    Decimal,    ///< which mark divides whole and fraction: ".", ","
    Sign,       ///< "normal": a positive amount comes in; "inverted": it goes out
    Columns,    ///< which column is what; the options are the columns' names or numbers from 1
    Truncated   ///< the file breaks off: "rows" takes the whole rows before that, "nothing" refuses
};

/// The question's key in JSON: "dateOrder", "decimal", "sign", "columns", "truncated".
[[nodiscard]] const char* KeyOf(StatementQuestion question);

struct OpenQuestion {
    StatementQuestion question = StatementQuestion::DateOrder;
    std::vector<std::string> options;  ///< only those under which the file can be read
    std::string proposed{};            ///< one of the options, the likeliest
    std::string why{};                 ///< why the file leaves it open, one sentence
};

/// The user's answers, whether asked or given beforehand. An answer given for what the file itself
/// settles differently wins; the rows that cannot be read under it are left out.
struct StatementAnswers {
    std::optional<DateText::Order> dateOrder{};
    std::optional<char> decimal{};  ///< '.' or ','
    std::optional<bool> inverted{};
    /// As "date=1,amount=4,text=3+5": what a column holds, by its name or its number from 1; "#4"
    /// is column 4 whatever the names are.
    /// Of CSV only. Fields: date, valuedate, amount, in, out, mark, name, text, category,
    /// check, id, balance, currency, account. "amount-" turns the sign.
    std::string columns{};
    std::optional<std::size_t> skip{};  ///< lines before the header row or the first row
    std::optional<char> delimiter{};
    bool takeWholeRows = false;  ///< of a file that breaks off

    friend bool operator==(const StatementAnswers&, const StatementAnswers&) = default;
};

/// The file holds no statement, or cannot be read at all. The message is a sentence for the user
/// without the file's name, such as "The bank answered with an error: ...".
class NotAStatement : public RuntimeError {
public:
    explicit NotAStatement(const std::string& message) : RuntimeError(errors::InvalidCall, message)
    {
    }
};

/// The file is in no format of statements.
class UnknownFormat : public NotAStatement {
public:
    using NotAStatement::NotAStatement;
};

/// A statement file whose text is known. It goes through the text as often as it needs to and keeps
/// no rows.
class IStatementReader {
public:
    virtual ~IStatementReader() = default;
    /// "ofx", "qif", "csv", "camt" or "mt940".
    [[nodiscard]] virtual std::string Kind() const = 0;
    /// What remains open under these answers; empty: the file can be read. Throws NotAStatement.
    [[nodiscard]] virtual std::vector<OpenQuestion> Open(const StatementAnswers& answers) const = 0;
    /// Reads the file. What is open is read as proposed, so that it can be shown. Throws
    /// NotAStatement, and what the sink throws.
    virtual void Read(const StatementAnswers& answers, IStatementSink& sink) const = 0;
    /// Text that is equal for files of the same layout: by it the answers are remembered. Empty if
    /// the kind has no layouts.
    [[nodiscard]] virtual std::string Shape() const { return {}; }
    /// The table that the file is, as it would be read. Nothing for other files. Throws
    /// NotAStatement.
    [[nodiscard]] virtual std::optional<StatementTable> Table(
        const StatementAnswers& /*answers*/) const
    {
        return std::nullopt;
    }
};

}  // namespace clb
