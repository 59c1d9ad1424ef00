// What a bank's statement says, in one form for every kind of file.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Date.h"
#include "base/Money.h"

namespace clb {

/// A part of a split row. The parts of a row sum to its amount.
struct StatementPiece {
    Money amount;
    std::string category;
    std::string text;
};

/// One booked transaction.
struct StatementRow {
    std::size_t line = 0;  ///< of the source, from 1: where the row begins
    Date date;             ///< when it was booked
    std::optional<Date> valueDate{};
    Money amount;            ///< negative: money went out
    std::string name;        ///< the other party, or the best description that the file has
    std::string text;        ///< everything else that the file says about it: purpose, references
    std::string category{};  ///< only a file that states one (QIF, some CSV)
    std::string checkNumber{};  ///< of a paper cheque
    std::string
        identifier{};  ///< the bank's own; empty if it gives none or gives it twice in the file
    std::string sharedIdentifier{};  ///< the bank's own if it gives it twice in the file
    std::optional<Money> balance{};  ///< of the account after the row
    std::vector<StatementPiece> pieces{};
};

/// The account that rows belong to. What the file does not say is empty.
struct StatementAccount {
    std::string number;      ///< IBAN or account number, as the file has it
    std::string bank{};      ///< code of the bank or branch
    std::string name{};      ///< of the account
    std::string type{};      ///< one of the program's account types, such as "Bank"
    std::string currency{};  ///< ISO 4217
};

/// A row whose balance does not follow from the one before.
struct BalanceBreak {
    std::size_t line = 0;  ///< of the row, from 1
    Money before;          ///< the balance before the row
    Money amount;          ///< of the row, and of rows without a balance beside it
    Money after;           ///< the balance after the row
};

/// Balances of an account before its first and after its last row of the file.
struct StatementBalances {
    std::optional<Money> opening{};
    std::optional<Money> closing{};
    std::optional<Date> closingDate{};
    std::vector<BalanceBreak> breaks{};  ///< the first ones, where most rows have no break
};

/// Why a part of the file is no row.
enum class LeftOutReason : std::uint8_t {
    NoDate,         ///< no date, or none that exists
    NoAmount,       ///< no amount, or none that can be read or held exactly
    Pending,        ///< not booked yet
    OtherCurrency,  ///< in another currency than its account
    Investment,     ///< a trade or position
    Incomplete,     ///< the file breaks off in it
    NotARow,        ///< a line among the rows that is none, such as a sum
    TwiceInFile     ///< the file has the same row again, and says so
};

/// A part of the file that is no row of the account, for the user's list.
struct LeftOutPart {
    std::size_t line = 0;  ///< of the source, from 1
    LeftOutReason reason = LeftOutReason::NotARow;
    std::string text;  ///< the part as the file has it, shortened
    std::size_t count = 1;
};

/// The reason in words for the user, such as "not booked yet".
[[nodiscard]] const char* ToText(LeftOutReason reason);

/// Takes what a reader reads, in the order of the file.
class IStatementSink {
public:
    virtual ~IStatementSink() = default;
    /// The rows that follow belong to this account. An account that comes again continues.
    virtual void BeginAccount(const StatementAccount& account) = 0;
    /// Comes at most once after each BeginAccount, after its rows.
    virtual void EndAccount(const StatementBalances& balances) = 0;
    virtual void Row(const StatementRow& row) = 0;
    virtual void LeftOut(const LeftOutPart& part) = 0;
};

}  // namespace clb
