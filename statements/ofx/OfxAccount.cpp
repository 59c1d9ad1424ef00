#include "statements/ofx/OfxAccount.h"

#include <algorithm>
#include <map>
#include <set>

#include "base/Text.h"
#include "statements/form/CurrencyMarks.h"
#include "statements/ofx/OfxDate.h"
#include "statements/ofx/OfxText.h"

namespace clb {
namespace {

/// The types of OFX are words, those of OFC numbers.
bool IsCredit(const OfxFacts& facts)
{
    if (facts.kind == OfxTag::CardStatement)
        return true;
    const std::string type = ToUpperAscii(OfxText(facts.type));
    return type == "CREDITLINE" || type == "CREDITCARD" ||
           (facts.kind == OfxTag::OfcStatement && (type == "2" || type == "4"));
}

/// What tells accounts with the same number apart.
std::string Distinction(const OfxFacts& facts)
{
    std::string distinction;
    for (const std::string_view part : {facts.bank, facts.branch, facts.type}) {
        const std::string text = OfxText(part);
        if (!text.empty())
            distinction += "-" + text;
    }
    return distinction;
}

}  // namespace

std::string OfxCurrency(std::string_view raw)
{
    const std::string text = OfxText(raw);
    std::string code = ToUpperAscii(text);
    const bool letters = code.size() == 3 && std::all_of(code.begin(), code.end(), [](char c) {
                             return c >= 'A' && c <= 'Z';
                         });
    return letters ? code : CurrencyOf(text);
}

StatementAccount OfxAccountOf(const OfxFacts& facts)
{
    StatementAccount account;
    account.number = OfxText(facts.account);
    account.bank = OfxText(facts.bank);
    const std::string branch = OfxText(facts.branch);
    if (!branch.empty())
        account.bank += account.bank.empty() ? branch : "/" + branch;
    account.type = IsCredit(facts) ? "Credit Card" : "Bank";
    account.currency = OfxCurrency(facts.currency);
    return account;
}

std::vector<StatementAccount> OfxAccountsOf(const std::vector<OfxFacts>& statements)
{
    std::map<std::string, std::set<std::string>> distinctions;
    for (const OfxFacts& facts : statements)
        distinctions[OfxText(facts.account)].insert(Distinction(facts));
    std::vector<StatementAccount> accounts;
    for (const OfxFacts& facts : statements) {
        accounts.push_back(OfxAccountOf(facts));
        if (distinctions[accounts.back().number].size() > 1)
            accounts.back().number += Distinction(facts);
    }
    return accounts;
}

StatementBalances OfxBalancesOf(const OfxFacts& facts, const FileAmounts& amounts,
                                std::optional<char> decimal)
{
    StatementBalances balances;
    balances.closing = amounts.Read(OfxText(facts.balance), decimal);
    if (balances.closing)
        balances.closingDate = ReadOfxDay(OfxText(facts.balanceDate));
    return balances;
}

}  // namespace clb
