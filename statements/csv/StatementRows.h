// Turns the records of a solved table into the rows of statements.
#pragma once
#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "statements/csv/CsvSolver.h"
#include "statements/form/Statement.h"

namespace clb {

/// Hands the rows of one table to a sink.
class StatementRows {
public:
    StatementRows(const CsvTable& table, const CsvSolution& solution, IStatementSink& sink);
    void Read();

private:
    struct Account {
        StatementAccount account;
        std::size_t follows = 0;  ///< balances that follow from the one before
        std::size_t broken = 0;   ///< and that do not
        std::vector<BalanceBreak> breaks{};
        std::optional<Money> first{};  ///< balance in the first row that has one
        std::optional<Money> last{};
        Money before;       ///< amounts of the rows before the first balance
        Money firstAmount;  ///< of the row with the first balance
        Money since;        ///< amounts of the rows after the last balance
        Money lastAmount;
        std::size_t lastLine = 0;  ///< of the row with the last balance
        std::optional<Date> earliest{};
        std::optional<Date> latest{};
    };

    void Take(const CsvRecord& record);
    void TakeOther(const CsvRecord& record, bool hasDate);
    void LeaveOut(const CsvRecord& record, LeftOutReason reason);
    void FlushTexts();
    [[nodiscard]] std::optional<Date> DateOf(const CsvRecord& record) const;
    [[nodiscard]] std::optional<Money> AmountOf(const CsvRecord& record) const;
    [[nodiscard]] bool IsBalanceLine(const CsvRecord& record) const;
    [[nodiscard]] bool StatesBalance(const CsvRecord& record) const;
    [[nodiscard]] StatementRow RowOf(const CsvRecord& record, Date date, Money amount) const;
    void Describe(const CsvRecord& record, StatementRow& row) const;
    [[nodiscard]] std::optional<Money> BalanceOf(const CsvRecord& record, Money amount) const;
    Account& Begin(const CsvRecord& record);
    void Follow(Account& account, const StatementRow& row) const;
    void Check(Account& account, const StatementRow& row) const;
    [[nodiscard]] StatementBalances BalancesOf(const Account& account) const;

    const CsvTable& table_;
    const CsvSolution& solution_;
    IStatementSink& sink_;
    RowStatus status_;
    std::map<std::string, Account, std::less<>> accounts_;
    std::vector<std::string> order_;  ///< keys of the accounts as they came
    std::string current_;
    std::vector<LeftOutPart> texts_;  ///< lines without a date and an amount, until a row follows
};

}  // namespace clb
