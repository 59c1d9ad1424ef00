#include "statements/messages/CamtFacts.h"

#include "statements/messages/CamtEntry.h"
#include "statements/messages/CamtNodes.h"
#include "statements/messages/RowText.h"

namespace clb {
namespace {

/// The reference by which the bank knows an entry, as the file has it; empty if it has none that
/// is fit for that.
std::string_view ReferenceOf(const CamtEntryPart& entry)
{
    if (IsIdentifying(entry.serviceReference, 6))
        return entry.serviceReference;
    // Banks put running numbers and account numbers here.
    return IsIdentifying(entry.entryReference, 8) ? entry.entryReference : std::string_view();
}

std::string CurrencyOf(const CamtEntryPart& entry)
{
    const CamtTree tree(entry.amount);
    return AmountOf(tree.Root()).currency;
}

std::string TypeOf(const std::string& code)
{
    if (code == "CARD" || code == "CHAR")
        return "Credit Card";
    return code == "CACC" || code == "SVGS" || code == "TRAN" ? "Bank" : "";
}

StatementAccount ReadAccount(CamtNode node)
{
    const CamtNode id = Child(node, "Id");
    const CamtNode bank = At(node, "Svcr/FinInstnId");
    StatementAccount account;
    account.number = TextAt(id, "IBAN", "Othr/Id");
    if (account.number.empty())
        account.number = TextAt(id, "PrtryAcct/Id", "BBAN");
    account.bank = TextAt(bank, "BICFI", "BIC");
    if (account.bank.empty())
        account.bank = TextAt(bank, "CmbndId/BIC", "ClrSysMmbId/MmbId");
    account.name = TextAt(node, "Nm");
    account.type = TypeOf(TextAt(node, "Tp/Cd"));
    account.currency = TextAt(node, "Ccy");
    return account;
}

}  // namespace

/// Collects the facts of each statement, and adds them when it ends.
class CamtFacts::Reader : public ICamtParts {
public:
    explicit Reader(CamtFacts& facts) : facts_(facts) {}

    void Begin(CamtKind kind) override
    {
        facts_.places_.Begin(kind);
        open_ = true;
        kind_ = kind;
        account_ = {};
        owner_ = {};
        balances_ = CamtBalances(kind);
        currencies_.clear();
        entryCurrency_.clear();
    }
    void Account(const CamtPart& part) override
    {
        const CamtTree tree(part.text);
        account_ = ReadAccount(tree.Root());
        owner_ = {account_.number, TextAt(tree.Root(), "Ownr/Nm", "Ownr/Pty/Nm")};
    }
    void Balance(const CamtPart& part) override { balances_.Add(part); }
    void Entry(const CamtEntryPart& part) override
    {
        facts_.places_.Entry(part);
        if (part.amountTag != lastAmountTag_) {
            lastCurrency_ = CurrencyOf(part);
            lastAmountTag_ = part.amountTag;
        }
        if (entryCurrency_.empty())
            entryCurrency_ = lastCurrency_;
        const bool counts = IsBooked(part.state) &&
                            !repeats_.IsRepeated(facts_.statements_.size(), kind_, owner_, part);
        if (counts && !lastCurrency_.empty())
            currencies_.insert(lastCurrency_);
        const std::string_view reference = counts ? ReferenceOf(part) : std::string_view();
        if (!reference.empty())
            facts_.references_.Add(HolderOf(), reference);
    }
    void End() override
    {
        facts_.places_.End();
        Leave();
    }
    void Broken(std::size_t offset, bool inEntry) override
    {
        facts_.places_.Broken(offset, inEntry);
        facts_.broken_ = true;
        if (open_)
            Leave();
    }

private:
    /// Adds the facts of the statement.
    void Leave()
    {
        const std::size_t holder = HolderOf();
        Holder& held = facts_.holders_[holder];
        if (held.owner.name.empty())
            held.owner = owner_;
        const auto balances = balances_.ByCurrency();
        const std::string main = !account_.currency.empty()      ? account_.currency
                                 : !balances_.Currency().empty() ? balances_.Currency()
                                                                 : entryCurrency_;
        held.currencies.merge(currencies_);
        held.currencies.insert(main);
        for (const auto& [currency, chosen] : balances) {
            held.currencies.insert(currency);
            facts_.accounts_[InCurrencyOf(holder, currency)].chain.Add(chosen);
        }
        if (balances.find(main) == balances.end())
            facts_.accounts_[InCurrencyOf(holder, main)].chain.Add({});
        for (const std::string& currency : held.currencies)
            (void)InCurrencyOf(holder, currency);
        facts_.statements_.push_back({holder, main});
        open_ = false;
    }
    std::size_t HolderOf()
    {
        const auto [at, added] = holders_.emplace(account_.number, facts_.holders_.size());
        if (added)
            facts_.holders_.push_back({account_, owner_, {}});
        return at->second;
    }
    std::size_t InCurrencyOf(std::size_t holder, const std::string& currency)
    {
        const auto [at, added] =
            facts_.byCurrency_.emplace(std::pair(holder, currency), facts_.accounts_.size());
        if (added) {
            StatementAccount account = facts_.holders_[holder].account;
            account.currency = currency;
            facts_.accounts_.push_back({account, {}});
        }
        return at->second;
    }

    CamtFacts& facts_;
    CamtRepeats repeats_;
    std::map<std::string, std::size_t> holders_;
    bool open_ = false;
    CamtKind kind_ = CamtKind::Statement;
    StatementAccount account_;
    CamtOwner owner_;
    CamtBalances balances_;
    std::set<std::string> currencies_;
    std::string entryCurrency_;
    std::string_view lastAmountTag_;
    std::string lastCurrency_;
};

CamtFacts::CamtFacts(std::string_view text) : places_(text)
{
    Reader reader(*this);
    ReadCamtParts(text, reader);
}

std::optional<std::size_t> CamtFacts::AccountOf(std::size_t statement,
                                                const std::string& currency) const
{
    const Statement& in = statements_[statement];
    const std::string& wanted = currency.empty() ? in.currency : currency;
    const auto& held = holders_[in.holder].currencies;
    const auto at = byCurrency_.find(std::pair(in.holder, wanted));
    return held.contains(wanted) && at != byCurrency_.end() ? std::optional(at->second)
                                                            : std::nullopt;
}

void CamtFacts::Identify(std::size_t statement, const CamtEntryPart& entry, StatementRow& row) const
{
    const std::string_view reference = ReferenceOf(entry);
    const bool single = references_.IsSingle(statements_[statement].holder, reference);
    (single ? row.identifier : row.sharedIdentifier) = Squeezed(reference);
}

bool CamtRepeats::IsRepeated(std::size_t statement, CamtKind kind, const CamtOwner& owner,
                             const CamtEntryPart& entry)
{
    if (kind == CamtKind::Statement)
        return false;
    const std::string_view reference = ReferenceOf(entry);
    return !reference.empty() &&
           rows_.Add(statement, {owner.account, reference, Squeezed(entry.amount), entry.direction,
                                 Squeezed(entry.bookingDate)});
}

}  // namespace clb
