// Reads random bank messages as the program does.
#pragma once
#include <algorithm>
#include <set>
#include <string>

#include "statements/form/StatementReader.h"
#include "tests/fuzz/Fuzz.h"

namespace clb {

/// Keeps what can be compared, and requires what every reader keeps to.
class FuzzSink : public IStatementSink {
public:
    explicit FuzzSink(std::size_t lines) : lines_(lines) {}

    void BeginAccount(const StatementAccount& account) override
    {
        Require(!open_);
        open_ = true;
        account_ = account.bank + '\n' + account.number + '\n' + account.currency + '\n';
        all_ += account_;
    }
    void EndAccount(const StatementBalances& balances) override
    {
        Require(open_);
        open_ = false;
        all_ += (balances.opening ? balances.opening->ToText() : "") + ' ' +
                (balances.closing ? balances.closing->ToText() : "") + '\n';
    }
    void Row(const StatementRow& row) override
    {
        Require(open_);
        Require(row.line >= 1 && row.line <= lines_);
        Require(row.date != Date());
        Money sum;
        for (const StatementPiece& piece : row.pieces)
            sum += piece.amount;
        Require(row.pieces.empty() || sum == row.amount);
        // An identifier belongs to one row of its account, wherever the account goes on.
        Require(row.identifier.empty() || identifiers_.insert(account_ + row.identifier).second);
        all_ +=
            row.date.ToIso() + ' ' + row.amount.ToText() + ' ' + row.name + '|' + row.text + '\n';
    }
    void LeftOut(const LeftOutPart& part) override
    {
        Require(part.line >= 1 && part.line <= lines_);
        all_ += "left out " + part.text + '\n';
    }
    [[nodiscard]] const std::string& All() const
    {
        Require(!open_);
        return all_;
    }

private:
    std::size_t lines_;
    bool open_ = false;
    std::string account_;
    std::set<std::string> identifiers_;
    std::string all_;
};

/// Reads a text twice, with the answers by default and with those proposed.
inline void ReadFuzzed(const IStatementReader& reader, std::string_view text)
{
    const std::size_t lines =
        2 + static_cast<std::size_t>(std::count_if(text.begin(), text.end(),
                                                   [](char c) { return c == '\n' || c == '\r'; }));
    StatementAnswers proposed;
    for (const OpenQuestion& question : reader.Open({})) {
        Require(question.question == StatementQuestion::Truncated);
        proposed.takeWholeRows = question.proposed == "rows";
    }
    Require(reader.Open(proposed).empty());
    FuzzSink first(lines);
    FuzzSink second(lines);
    reader.Read({}, first);
    reader.Read(proposed, second);
    Require(first.All() == second.All());
}

/// Opens a reader on any text and reads; a refusal is fine.
template <typename Open>
void FuzzReaderOn(std::string_view text, const Open& open)
{
    try {
        ReadFuzzed(*open(text), text);
    } catch (const NotAStatement&) {
        return;
    }
}

}  // namespace clb
