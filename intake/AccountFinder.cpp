#include "intake/AccountFinder.h"

#include <algorithm>

#include "data/clsDatabase.h"
#include "import/modImport.h"
#include "intake/ImportRecords.h"

namespace clb {
namespace {

std::string OwnID(const std::string& base, const std::string& currency)
{
    return base + "-" + currency;
}

std::string NumberOf(const SurveyedAccount& account)
{
    return StatementSurvey::KeyOf(account.account).first;
}

}  // namespace

AccountFinder::AccountFinder(clsDatabase& database, modImport& import, IStatementAsker& asker,
                             const StatementSurvey& survey)
    : database_(database), import_(import), asker_(asker), accounts_(survey.Accounts())
{
    for (std::size_t place = 0; place < accounts_.size(); ++place)
        groups_[NumberOf(accounts_[place])].places.push_back(place);
}

std::vector<std::string> AccountFinder::Find()
{
    RequireCurrencies();
    asker_.Unknown(CountUnknown());
    std::vector<std::string> found;
    for (std::size_t place = 0; place < accounts_.size(); ++place) {
        const std::string number = NumberOf(accounts_[place]);
        Group& group = groups_.at(number);
        if (!group.base)
            Choose(group, number);
        found.push_back(group.ofBase == place ? *group.base : FindOwn(group, place));
    }
    return found;
}

std::vector<std::string> AccountFinder::FindKnown()
{
    RequireCurrencies();
    std::vector<std::string> found(accounts_.size());
    for (std::size_t place = 0; place < accounts_.size(); ++place) {
        const std::string base = NumberOf(accounts_[place]);
        if (base.empty() || !IsInBook(base))
            continue;
        if (PlaceOfBase(groups_.at(base), base) == place)
            found[place] = base;
        else if (HasOwn(base, place))
            found[place] = OwnID(base, CurrencyOf(place));
    }
    return found;
}

/// Refuses the statement before any account of it is made or changed.
void AccountFinder::RequireCurrencies()
{
    for (const auto& [number, group] : groups_)
        if (!number.empty() && IsInBook(number))
            if (const std::string why = WhyNot(group, number); !why.empty())
                throw StatementRefused(why);
}

void AccountFinder::Choose(Group& group, const std::string& number)
{
    const std::size_t first = group.places.front();
    asker_.Choosing(accounts_[first].account, first, CheckOf(group, !number.empty()));
    std::string base = number;
    if (!import_.FindAccount(base))
        throw StatementRefused(asker_.WhyNoAccount());
    // The book was not locked while the user chose.
    if (const std::string why = WhyNot(group, base); !why.empty())
        throw StatementRefused(why);
    group.ofBase = PlaceOfBase(group, base);
    group.base = std::move(base);
}

/// The account for a currency that the account with the number does not have.
std::string AccountFinder::FindOwn(const Group& group, std::size_t place)
{
    std::string own = OwnID(*group.base, CurrencyOf(place));
    // It is a further account of the file, even if its rows come first.
    asker_.Choosing(accounts_[place].account, std::max<std::size_t>(place, 1),
                    CheckOf({{place}}, true));
    if (!import_.FindAccount(own))
        throw StatementRefused(asker_.WhyNoAccount());
    if (const std::string why = Clash(own, CurrencyOf(place)); !why.empty())
        throw StatementRefused(why);
    return own;
}

/// Why neither the account nor one beside it can take rows of the group; empty if one can.
std::string AccountFinder::WhyNot(const Group& group, const std::string& base)
{
    const bool beside =
        std::ranges::any_of(group.places, [&](std::size_t place) { return HasOwn(base, place); });
    return beside ? std::string() : WhyNotItself(group, base);
}

std::string AccountFinder::WhyNotItself(const Group& group, const std::string& base)
{
    return PlaceOfBase(group, base) ? std::string() : Clash(base, CurrencyOf(group.places.front()));
}

/// renamed: the account gets the number of the file, so that none is beside it any more.
AccountCheck AccountFinder::CheckOf(const Group& group, bool renamed)
{
    return [this, group, renamed](const std::string& description) {
        Recordset found;
        database_.Fill(found,
                       "SELECT AccountID FROM Account WHERE Description = '" +
                           clsDatabase::ToSqlString(description) + "'",
                       true);
        std::string why;
        for (; !found.AtEnd() && why.empty(); found.MoveNext()) {
            const std::string accountID = ToText(found.Get(0));
            why = renamed ? WhyNotItself(group, accountID) : WhyNot(group, accountID);
        }
        return why;
    };
}

std::optional<std::size_t> AccountFinder::PlaceOfBase(const Group& group, const std::string& base)
{
    const std::string earlier = ImportRecords(database_).CurrencyOf(base);
    const auto first = [&group](const auto& fits) {
        const auto at = std::ranges::find_if(group.places, fits);
        return at == group.places.end() ? std::nullopt : std::optional(*at);
    };
    if (earlier.empty())
        return first([&](std::size_t place) { return !HasOwn(base, place); });
    if (const auto same = first([&](std::size_t place) { return CurrencyOf(place) == earlier; }))
        return same;
    return first([this](std::size_t place) { return CurrencyOf(place).empty(); });
}

std::string AccountFinder::Clash(const std::string& accountID, const std::string& currency)
{
    const std::string earlier = ImportRecords(database_).CurrencyOf(accountID);
    if (earlier.empty() || currency.empty() || earlier == currency)
        return {};
    Recordset found;
    database_.Fill(found,
                   "SELECT Description FROM Account WHERE AccountID = '" +
                       clsDatabase::ToSqlString(accountID) + "'",
                   true);
    return "The account '" + (found.Empty() ? accountID : ToText(found.Get(0))) + "' is kept in " +
           earlier + ", but the statement is in " + currency + ". Nothing of it was imported.";
}

/// How many accounts that the file numbers or names are not in the book. All currencies of an
/// unknown number are.
std::size_t AccountFinder::CountUnknown()
{
    std::size_t unknown = 0;
    for (const auto& [number, group] : groups_)
        if (!number.empty() && !IsInBook(number))
            unknown += group.places.size();
    return unknown;
}

bool AccountFinder::IsInBook(const std::string& accountID)
{
    return database_.RowExists("Account",
                               "AccountID = '" + clsDatabase::ToSqlString(accountID) + "'");
}

/// Whether the book has an account for the currency beside the one with the number.
bool AccountFinder::HasOwn(const std::string& base, std::size_t place)
{
    const std::string& currency = CurrencyOf(place);
    return !currency.empty() && IsInBook(OwnID(base, currency));
}

const std::string& AccountFinder::CurrencyOf(std::size_t place) const
{
    return accounts_[place].account.currency;
}

}  // namespace clb
