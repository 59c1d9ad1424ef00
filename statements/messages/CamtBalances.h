// Balances of one statement of a camt message.
#pragma once
#include <map>
#include <string>

#include "statements/form/Statement.h"
#include "statements/messages/CamtOutline.h"

namespace clb {

/// Takes the balances of a statement and chooses, for each currency, the booked ones before its
/// first and after its last entry.
class CamtBalances {
public:
    explicit CamtBalances(CamtKind kind = CamtKind::Statement) : kind_(kind) {}
    void Add(const CamtPart& part);
    /// Currency of the first balance; empty if there was none.
    [[nodiscard]] const std::string& Currency() const { return currency_; }
    [[nodiscard]] std::map<std::string, StatementBalances> ByCurrency() const;

private:
    struct Balance {
        Money amount;
        std::optional<Date> day{};
    };
    /// The kinds of one currency. Interim balances are before the first and after the last entry of
    /// a page.
    struct Kinds {
        std::optional<Balance> opening{};
        std::optional<Balance> previous{};
        std::optional<Balance> closing{};
        std::optional<Balance> firstInterim{};
        std::optional<Balance> lastInterim{};
        std::optional<Balance> available{};
        std::size_t interims = 0;
    };
    void Keep(Kinds& kinds, const std::string& code, const Balance& balance) const;
    [[nodiscard]] StatementBalances Chosen(const Kinds& kinds) const;

    CamtKind kind_;
    std::string currency_;
    std::map<std::string, Kinds> kinds_;
};

}  // namespace clb
