// Finds the accounts of the book for those of a statement.
#pragma once
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "intake/WideImport.h"

namespace clb {

class clsDatabase;
class modImport;

/// Thrown to leave a statement; the message is a sentence for the user.
class StatementRefused : public RuntimeError {
public:
    explicit StatementRefused(const std::string& message)
        : RuntimeError(errors::InvalidCall, message)
    {
    }
};

/// Chooses an account of the book for each account of a statement. The number of the file is the
/// account's number in the book. If the file has several currencies under a number, the account
/// takes the currency that it had before, whatever their order in the file; the others have
/// accounts "NUMBER-CURRENCY" of their own.
class AccountFinder {
public:
    /// All borrowed.
    AccountFinder(clsDatabase& database, modImport& import, IStatementAsker& asker,
                  const StatementSurvey& survey);

    /// The numbers in the book, in the order of the survey's accounts. Lets the user choose for
    /// those that the book does not have. Throws StatementRefused if the user does not, or if an
    /// account was kept in another currency; before the user is asked where that is known then.
    std::vector<std::string> Find();
    /// The same without a question: an empty text for an account that the book does not have.
    std::vector<std::string> FindKnown();

private:
    /// The accounts of the file with one number, which may be empty.
    struct Group {
        std::vector<std::size_t> places;
        std::optional<std::string> base{};    ///< the account of the book with that number
        std::optional<std::size_t> ofBase{};  ///< whose rows it takes
    };

    void RequireCurrencies();
    void Choose(Group& group, const std::string& number);
    std::string FindOwn(const Group& group, std::size_t place);
    [[nodiscard]] std::string WhyNot(const Group& group, const std::string& base);
    [[nodiscard]] std::string WhyNotItself(const Group& group, const std::string& base);
    [[nodiscard]] AccountCheck CheckOf(const Group& group, bool renamed);
    [[nodiscard]] std::optional<std::size_t> PlaceOfBase(const Group& group,
                                                         const std::string& base);
    [[nodiscard]] std::string Clash(const std::string& accountID, const std::string& currency);
    [[nodiscard]] std::size_t CountUnknown();
    [[nodiscard]] bool IsInBook(const std::string& accountID);
    [[nodiscard]] bool HasOwn(const std::string& base, std::size_t place);
    [[nodiscard]] const std::string& CurrencyOf(std::size_t place) const;

    clsDatabase& database_;
    modImport& import_;
    IStatementAsker& asker_;
    const std::vector<SurveyedAccount>& accounts_;
    std::map<std::string, Group> groups_;  ///< by number
};

}  // namespace clb
