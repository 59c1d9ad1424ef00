// The rows and accounts of MT940 and MT942 messages.
#pragma once
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "statements/form/Statement.h"
#include "statements/messages/BalanceChain.h"
#include "statements/messages/Mt940Fields.h"
#include "statements/messages/Mt940Line.h"
#include "statements/messages/Mt940Wrap.h"
#include "statements/messages/References.h"

namespace clb {

/// A statement line with the texts that belong to it. All are parts of the file's text.
struct Mt940Row {
    std::size_t begin = 0;
    std::size_t message = 0;
    std::string_view line;
    std::vector<std::string_view> texts;
    std::string_view ns;  ///< field NS; empty if there is none
    bool isLast = false;  ///< the text ends with it
};

/// Puts statement lines and the texts before or after them together.
class Mt940Rows {
public:
    /// The facts of each message say whether its texts are before the lines that they belong to.
    Mt940Rows(std::string_view text, const std::vector<bool>& textsFirst);
    /// Goes to the next row. Returns false after the last one.
    bool Next(Mt940Row& row);

private:
    bool Take(const Mt940Field& field, Mt940Row& row);

    Mt940Fields fields_;
    const std::vector<bool>& textsFirst_;
    Mt940Field ahead_;  ///< a statement line that ended the row before
    bool hasAhead_ = false;
    std::vector<std::string_view> before_;  ///< texts for the row that follows
};

/// What has to be known of a whole file before its rows can be read.
class Mt940Facts {
public:
    explicit Mt940Facts(std::string_view text);

    [[nodiscard]] std::size_t Messages() const { return messages_.size(); }
    /// Number of a message's account.
    [[nodiscard]] std::size_t AccountOf(std::size_t message) const { return messages_[message]; }
    [[nodiscard]] const StatementAccount& Account(std::size_t number) const
    {
        return accounts_[number].account;
    }
    [[nodiscard]] StatementBalances Balances(std::size_t number) const
    {
        return accounts_[number].chain.Whole();
    }
    /// Whether each message has its texts before the statement lines that they belong to.
    [[nodiscard]] const std::vector<bool>& TextsFirst() const { return textsFirst_; }
    /// Sets the bank's reference of a line: as the row's identifier if no other row of its account
    /// has it.
    void Identify(std::size_t message, const Mt940Line& line, StatementRow& row) const;
    [[nodiscard]] Mt940Wrap Wrap() const { return wraps_.Found(); }
    /// Whether the file breaks off: the last message has neither closing balance nor end mark, or
    /// ends within a statement line.
    [[nodiscard]] bool IsBroken() const { return broken_; }
    /// Whether the file has an account or a balance at all.
    [[nodiscard]] bool HasStatement() const { return hasStatement_; }

private:
    /// A message while its fields come.
    struct Message {
        StatementAccount account{};
        std::string currency{};
        StatementBalances balances{};
        bool hasAccount = false;
        bool isInterim = false;  ///< MT942
        bool isBegun = false;    ///< with a reference or an opening balance
        bool isClosed = false;
        bool isCut = false;  ///< the text ends within a statement line
        bool textsFirst = false;
        bool hasOrder = false;  ///< a line or a text has come
        bool lastIsLine = false;
        bool any = false;
    };
    struct InCurrency {
        StatementAccount account;
        BalanceChain chain{};
    };
    void Take(const Mt940Field& field);
    void TakeBalance(const Mt940Field& field);
    void TakeOrder(const Mt940Field& field);
    void Finish();
    std::size_t AccountFor(const StatementAccount& account);
    void CountReferences(std::string_view text);

    std::vector<std::size_t> messages_;
    std::vector<bool> textsFirst_;
    std::vector<InCurrency> accounts_;
    std::map<std::string, std::size_t> numbers_;
    References references_;
    Mt940WrapCount wraps_;
    Message open_;
    bool anyClosed_ = false;
    bool broken_ = false;
    bool hasStatement_ = false;
};

}  // namespace clb
