// What has to be known of a whole camt file before its rows can be read.
#pragma once
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "statements/messages/BalanceChain.h"
#include "statements/messages/CamtBalances.h"
#include "statements/messages/CamtOutline.h"
#include "statements/messages/CamtParty.h"
#include "statements/messages/CamtPlaces.h"
#include "statements/messages/References.h"

namespace clb {

/// Accounts, currencies, balances and references of a file, and the places of its entries, from one
/// pass over it. The text is borrowed.
class CamtFacts {
public:
    explicit CamtFacts(std::string_view text);

    /// Number of the account of a statement, by its place in the file, in a currency; an entry
    /// without a currency is in the statement's. Nothing if no booked entry and no balance is in
    /// it.
    [[nodiscard]] std::optional<std::size_t> AccountOf(std::size_t statement,
                                                       const std::string& currency) const;
    [[nodiscard]] const StatementAccount& Account(std::size_t number) const
    {
        return accounts_[number].account;
    }
    [[nodiscard]] StatementBalances Balances(std::size_t number) const
    {
        return accounts_[number].chain.Whole();
    }
    [[nodiscard]] const CamtOwner& Owner(std::size_t statement) const
    {
        return holders_[statements_[statement].holder].owner;
    }
    /// Sets the bank's reference of an entry: as the row's identifier if no other row of its
    /// account has it.
    void Identify(std::size_t statement, const CamtEntryPart& entry, StatementRow& row) const;
    [[nodiscard]] bool IsBroken() const { return broken_; }
    [[nodiscard]] const CamtPlaces& Places() const { return places_; }

private:
    class Reader;
    /// An account with all its currencies.
    struct Holder {
        StatementAccount account;
        CamtOwner owner;
        std::set<std::string> currencies{};
    };
    struct Statement {
        std::size_t holder = 0;
        std::string currency{};
    };
    struct InCurrency {
        StatementAccount account;
        BalanceChain chain{};
    };
    std::vector<Holder> holders_;
    std::vector<Statement> statements_;
    std::vector<InCurrency> accounts_;
    std::map<std::pair<std::size_t, std::string>, std::size_t> byCurrency_;
    References references_;
    CamtPlaces places_;
    bool broken_ = false;
};

/// Whether an earlier report or notification of the file has had the entry. Only statements of the
/// bank's books (camt.053) never repeat an entry.
class CamtRepeats {
public:
    /// Every booked entry comes here once, in the order of the file.
    bool IsRepeated(std::size_t statement, CamtKind kind, const CamtOwner& owner,
                    const CamtEntryPart& entry);

private:
    RepeatedRows rows_;
};

}  // namespace clb
