#include "statements/csv/OwnAccount.h"

#include <algorithm>
#include <array>
#include <vector>

#include "statements/csv/CsvCells.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

/// More different values than these are not accounts of one person.
constexpr std::size_t kMostAccounts = 12;
constexpr std::size_t kLongestAccount = 40;
constexpr std::size_t kFewestDigits = 4;

/// Ranks of columns with the role of an account.
constexpr int kDoubtful = 1;
constexpr int kByCells = 6;

std::size_t DigitsIn(std::string_view text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }));
}

/// Letters and digits only: numbers are written with spaces and without.
std::string Bare(std::string_view number)
{
    std::string bare;
    for (const char c : number)
        if (IsDigit(static_cast<unsigned char>(c)) || IsAsciiLetter(static_cast<unsigned char>(c)))
            bare += c;
    return bare;
}

/// Whether the name of a cell above the table is that of an account or a card.
bool NamesAccount(std::string_view name)
{
    static constexpr std::array<std::string_view, 23> kParts = {
        "konto",   "account", "karte", "card",  "compte", "carte", "rekening", "cuenta",
        "tarjeta", "conto",   "carta", "conta", "kort",   "tili",  "rachun",   "uctu",
        "ucet",    "счет",    "карт",  "账号",  "口座",   "hesap", "szamla"};
    const ColumnRole role = RoleOf(name).role;
    if (role == ColumnRole::Account)
        return true;
    const std::string plain = PlainName(name);
    return role == ColumnRole::Unknown &&
           std::any_of(kParts.begin(), kParts.end(), [&plain](std::string_view part) {
               return plain.find(part) != std::string::npos;
           });
}

bool IsNumberOf(std::string_view name, std::string_view value)
{
    if (value.empty() || value.size() > kLongestAccount)
        return false;
    const ColumnRole role = RoleOf(name).role;
    if (IsIbanCell(value))
        return role != ColumnRole::OtherAccount;
    if (role == ColumnRole::Account)
        return DigitsIn(value) > 0;
    return DigitsIn(value) >= kFewestDigits && !IsDateCell(value) && !IsPlainlyAmount(value) &&
           NamesAccount(name);
}

/// Tells own accounts from those of other parties.
class Accounts {
public:
    Accounts(const ColumnRoles& roles, const std::string& numberAbove)
        : roles_(roles),
          numberAbove_(Bare(numberAbove)),
          firstDate_(First(ColumnRole::Date)),
          firstName_(First(ColumnRole::Name))
    {
        for (const std::size_t i : roles.With(ColumnRole::OtherAccount))
            others_ = others_ || roles[i].rank == 0;
    }

    [[nodiscard]] bool IsOwn(std::size_t i) const
    {
        const ColumnFacts& facts = roles_.Facts(i);
        if (facts.filled != roles_.Rows() || facts.values.size() > kMostAccounts)
            return false;
        const int rank = roles_[i].rank;
        if (rank < kByCells && rank != kDoubtful)
            return true;
        if (!numberAbove_.empty())
            return HoldsNumberAbove(facts);
        if (rank >= kByCells)
            return i < firstDate_ && i < firstName_;
        // The number after a name is that of the party with the name.
        return others_ ||
               (i < firstName_ && (facts.values.size() == 1 || i < firstDate_ || IsAfterBank(i) ||
                                   facts.values.size() * 2 <= facts.filled));
    }

    /// What comes first of several own columns: a number wins over a name.
    [[nodiscard]] std::pair<bool, int> Order(std::size_t i) const
    {
        const auto& values = roles_.Facts(i).values;
        const bool number = std::all_of(values.begin(), values.end(), [](const std::string& value) {
            return DigitsIn(value) > 0;
        });
        return {!number, roles_[i].rank};
    }

private:
    [[nodiscard]] std::size_t First(ColumnRole role) const
    {
        const auto found = roles_.With(role);
        return found.empty() ? roles_.Size() : *std::min_element(found.begin(), found.end());
    }
    [[nodiscard]] bool HoldsNumberAbove(const ColumnFacts& facts) const
    {
        return std::any_of(
            facts.values.begin(), facts.values.end(),
            [this](const std::string& value) { return Bare(value) == numberAbove_; });
    }
    [[nodiscard]] bool IsAfterBank(std::size_t i) const
    {
        return i > 0 && roles_[i - 1].role == ColumnRole::OtherAccount;
    }

    const ColumnRoles& roles_;
    std::string numberAbove_;
    std::size_t firstDate_;
    std::size_t firstName_;
    bool others_ = false;
};

}  // namespace

std::string NumberAbove(const CsvTable& table)
{
    for (const auto& record : table.Preamble())
        for (std::size_t i = 0; i + 1 < record.size(); ++i)
            if (IsNumberOf(record[i], record[i + 1]))
                return record[i + 1];
    return {};
}

std::optional<std::size_t> ChooseAccount(ColumnRoles& roles, const std::string& numberAbove)
{
    const Accounts accounts(roles, numberAbove);
    std::vector<std::size_t> own;
    std::vector<std::size_t> others;
    for (const std::size_t i : roles.With(ColumnRole::Account))
        (accounts.IsOwn(i) ? own : others).push_back(i);
    for (const std::size_t i : others)
        roles[i] = {ColumnRole::OtherAccount, 1};
    if (own.empty())
        return std::nullopt;
    const std::size_t best =
        *std::min_element(own.begin(), own.end(), [&accounts](std::size_t one, std::size_t other) {
            return accounts.Order(one) < accounts.Order(other);
        });
    for (const std::size_t i : own)
        if (i != best)
            roles[i] = {ColumnRole::Ignored, 0};
    return best;
}

}  // namespace clb
