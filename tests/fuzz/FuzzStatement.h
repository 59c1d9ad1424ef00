// What the fuzzing programs of the statement readers share.
#pragma once
#include <algorithm>
#include <string>
#include <vector>

#include "statements/form/StatementReader.h"
#include "tests/fuzz/Fuzz.h"

namespace clb {

/// Requires what holds for every reading, and keeps a text of it.
class CheckedStatement : public IStatementSink {
public:
    void BeginAccount(const StatementAccount& account) override
    {
        inAccount_ = true;
        Note(account.number + "|" + account.bank + "|" + account.name + "|" + account.type + "|" +
             account.currency);
    }
    void EndAccount(const StatementBalances& balances) override
    {
        Require(inAccount_);
        inAccount_ = false;
        Note(balances.closing ? balances.closing->ToText() : "-");
    }
    void Row(const StatementRow& row) override
    {
        Require(inAccount_ && row.line > 0);
        Require(row.date == Date::FromIso(row.date.ToIso()));
        if (!row.pieces.empty()) {
            Money sum;
            for (const StatementPiece& piece : row.pieces)
                sum += piece.amount;
            Require(sum == row.amount);
        }
        Note(row.date.ToIso() + "|" + row.amount.ToText() + "|" + row.name + "|" + row.text + "|" +
             row.category + "|" + row.checkNumber + "|" + row.identifier);
    }
    void LeftOut(const LeftOutPart& part) override
    {
        Require(part.line > 0 && part.count > 0);
        Note(std::string("left out: ") + ToText(part.reason) + part.text);
    }
    [[nodiscard]] const std::string& Text() const { return text_; }

private:
    void Note(const std::string& line) { text_ += line + "\n"; }

    std::string text_;
    bool inAccount_ = false;
};

/// Reads with these answers twice and requires the same.
inline void ReadTwice(const IStatementReader& reader, const StatementAnswers& answers)
{
    CheckedStatement first;
    CheckedStatement second;
    reader.Read(answers, first);
    reader.Read(answers, second);
    Require(first.Text() == second.Text());
}

/// The answers that take what the questions propose.
inline StatementAnswers Proposed(const std::vector<OpenQuestion>& questions)
{
    StatementAnswers answers;
    for (const OpenQuestion& question : questions) {
        Require(!question.why.empty());
        Require(std::find(question.options.begin(), question.options.end(), question.proposed) !=
                question.options.end());
        if (question.question == StatementQuestion::DateOrder)
            answers.dateOrder = question.proposed == "dmy"   ? DateText::Order::DayMonthYear
                                : question.proposed == "mdy" ? DateText::Order::MonthDayYear
                                                             : DateText::Order::YearMonthDay;
        else if (question.question == StatementQuestion::Decimal)
            answers.decimal = question.proposed.front();
        else if (question.question == StatementQuestion::Truncated)
            answers.takeWholeRows = true;
    }
    return answers;
}

/// Reads any text without answers, as proposed and with answers that it did not ask for. What is
/// proposed is what is read without answers, and nothing remains open under it.
inline void ReadEveryWay(const IStatementReader& reader)
{
    const StatementAnswers proposed = Proposed(reader.Open({}));
    Require(reader.Open(proposed).empty());
    CheckedStatement open;
    CheckedStatement answered;
    reader.Read({}, open);
    reader.Read(proposed, answered);
    Require(open.Text() == answered.Text());
    ReadTwice(reader, proposed);
    StatementAnswers others;
    others.decimal = ',';
    others.dateOrder = DateText::Order::YearMonthDay;
    ReadTwice(reader, others);
}

}  // namespace clb
