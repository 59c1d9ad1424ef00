// The tags of OFX and OFC that the reader knows.
#pragma once
#include <cstdint>
#include <string_view>

namespace clb {

/// What a tag is to the reader. Tags with the same role share a value.
enum class OfxTag : std::uint8_t {
    Unknown,
    // Aggregates.
    Root,                 ///< OFX, OFC
    SignOn,               ///< SONRS
    Status,               ///< the answer to one request
    BankStatement,        ///< STMTRS
    CardStatement,        ///< CCSTMTRS
    InvestmentStatement,  ///< INVSTMTRS
    OfcStatement,         ///< ACCTSTMT of OFC, around a STMTRS
    AccountFrom,          ///< the statement's account
    TransactionList,      ///< BANKTRANLIST
    PendingList,          ///< transactions that are not booked yet
    InvestmentList,       ///< INVTRANLIST
    CashRow,              ///< INVBANKTRAN, around a Row
    Row,                  ///< STMTTRN, GENTRN
    PendingRow,           ///< STMTTRNP
    Party,                ///< PAYEE
    Currency,             ///< the amount is in this currency
    OriginalCurrency,     ///< the amount was converted from this currency
    LedgerBalance,
    Trade,     ///< an investment transaction
    Position,  ///< a holding
    Order,     ///< an open order for securities
    Opaque,    ///< an aggregate whose elements do not count, such as the other party's account
    // Contents that are no statement.
    Profile,
    AccountList,
    Transfers,
    Payments,
    StopChecks,
    Securities,
    Mail,
    TaxForms,
    ClosingInfo,
    Enrolment,
    LoanStatement,
    Request,
    // Elements.
    AccountId,
    BankId,
    BranchId,
    AccountType,
    StatementCurrency,
    RowType,
    DatePosted,
    DateUser,
    DateAvailable,
    DateTransaction,  ///< DTTRAN of a pending row
    Amount,
    Identifier,
    CheckNumber,
    Reference,
    Name,
    ExtendedName,
    Memo,
    CurrencySymbol,
    CorrectedIdentifier,
    CorrectionAction,
    BalanceAmount,
    BalanceDate,
    Ledger,       ///< closing balance of OFC
    PeriodEnd,    ///< DTEND
    OtherAmount,  ///< any other number with decimals
    Code,
    Severity,
    Message,
    Count  ///< number of values
};

/// Whether the tag is around other tags.
constexpr bool IsAggregate(OfxTag tag)
{
    return tag >= OfxTag::Root && tag <= OfxTag::Request;
}
/// Whether the tag is a statement of one account.
constexpr bool IsStatement(OfxTag tag)
{
    return tag >= OfxTag::BankStatement && tag <= OfxTag::OfcStatement;
}
/// Whether the tag is something that is no statement.
constexpr bool IsOtherContent(OfxTag tag)
{
    return tag >= OfxTag::Profile && tag <= OfxTag::Request;
}

/// Finds a tag by its name in any case, without prefix. Unknown for other names.
[[nodiscard]] OfxTag FindOfxTag(std::string_view name);

}  // namespace clb
