#include "statements/csv/ColumnNames.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <map>

#include "base/Text.h"
#include "statements/csv/ColumnNameLists.h"
#include "statements/form/CurrencyMarks.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

/// Names are not longer than this; longer cells are prose.
constexpr std::size_t kLongestName = 90;

using Roles = std::map<std::string, NamedRole, std::less<>>;

Roles KnownRoles()
{
    Roles roles;
    for (const ColumnNameList& list : kColumnNames)
        for (std::string_view names = list.names; !names.empty();) {
            const std::size_t end = names.find('|');
            roles.emplace(names.substr(0, end), NamedRole{list.role, list.rank});
            names.remove_prefix(end + 1);
        }
    return roles;
}

NamedRole Known(std::string_view plain)
{
    static const Roles roles = KnownRoles();
    const auto found = roles.find(plain);
    return found == roles.end() ? NamedRole{} : found->second;
}

/// The name without currencies and the words that join them: "betrag in eur" is "betrag".
std::string WithoutCurrency(std::string_view plain)
{
    std::string kept;
    for (const std::string& word : Split(plain, ' ')) {
        if (IsCurrencyCode(ToUpperAscii(word)) || word == "in" || word == "en" || word == "euro" ||
            word == "euros" || word == "i" || word == "w" || word == "v" || word == "r" ||
            word == "us" || word == "kc" || word == "zl" || word == "kr" || word == "ft")
            continue;
        kept += (kept.empty() ? "" : " ") + word;
    }
    return kept;
}

bool HasAny(std::string_view name, std::initializer_list<std::string_view> parts)
{
    return std::any_of(parts.begin(), parts.end(), [name](std::string_view part) {
        return name.find(part) != std::string_view::npos;
    });
}

/// Accounts by parts of the name: those of the other party, and numbers.
NamedRole AccountByParts(std::string_view name)
{
    if (!HasAny(name, {"account", "konto", "compte", "rekening", "cuenta", "conto", "conta",
                       "rachun",  "uctu",  "ucet",   "tili",     "iban",   "счет",  "账号",
                       "账户",    "帐号",  "口座",   "hesap",    "szamla", "חשבון", "계좌"}))
        return {};
    if (HasAny(name,
               {"gegen",      "counter",     "tegen",   "payee",   "benef",        "begunst",
                "recip",      "recei",       "send",    "other",   "partner",      "contrepart",
                "contrapart", "controparte", "adverse", "empfang", "auftraggeber", "zahlungs",
                "ordenante",  "ordinante",   "destin",  "kontrah", "odbior",       "nadaw",
                "protistran", "protiuc",     "prijemc", "saaja",   "vasta",        "mottag",
                "modtag",     "mottak",      "avsend",  "afsend",  "remit",        "контраг",
                "получат",    "отправ",      "对方",    "相手",    "karsi",        "alici",
                "partia"}) ||
        name.starts_with("mot") || name.starts_with("mod"))
        return {ColumnRole::OtherAccount, 0};
    const std::string padded = " " + std::string(name) + " ";
    if (HasAny(padded, {"number", "numero", "nummer", "numer", "cislo", "iban", "номер", "账号",
                        "帐号", "番号", "번호", "szamlaszam", "מספר", " nr ", " no ", " num "}))
        return {ColumnRole::Account, 1};
    return {};
}

/// By parts of the name, for names that no list has.
NamedRole ByParts(std::string_view name)
{
    const bool original = HasAny(
        name, {"original",  "foreign",  "fremd",    "origin",   "vreemd",  "urspr",    "oorspr",
               "puvodn",    "pierwotn", "oryginal", "alkuper",  "исходн",  "первонач", "原始",
               "外币",      "eredeti",  "orijinal", "oprind",   "opprinn", "etranger", "extranj",
               "estranger", "estera",   "utland",   "udenland", "ulkom"});
    if (HasAny(name, {"currency", "wahrung", "币种", "валюта"}) ||
        (original &&
         HasAny(name, {"munt", "devise", "divisa", "moneda", "moeda", "walut", "mena", "valut",
                       "deviz", "ccy", "para birimi"}) &&
         !HasAny(name, {"amount", "bedrag", "montant", "importe", "kwota", "castka", "belopp",
                        "belob", "belop", "summa", "datum", "date", "kurs"})))
        return {original ? ColumnRole::OriginalCurrency : ColumnRole::Currency, 4};
    if (HasAny(name, {"balance", "saldo", "kontostand", "余额", "残高", "остаток"}))
        return {ColumnRole::Balance, 3};
    const bool date = HasAny(name, {"date", "datum", "fecha", "日期", "дата", "paiva"}) ||
                      name.ends_with("dato") || name.starts_with("data ");
    if (date && HasAny(name, {"valu", "valor", "wert", "rente"}))
        return {ColumnRole::ValueDate, 1};
    if (date && HasAny(name, {"book", "post", "buch", "compta", "contab", "ksieg", "记账", "入账"}))
        return {ColumnRole::Date, 1};
    if (date)
        return {ColumnRole::Date, HasAny(name, {"expir", "birth", "due", "export"}) ? 5 : 3};
    if (HasAny(name, {"收入"}))
        return {ColumnRole::In, 3};
    if (HasAny(name, {"支出"}))
        return {ColumnRole::Out, 3};
    if (HasAny(name, {"amount", "betrag", "montant", "importe", "importo", "belopp", "belob",
                      "bedrag", "kwota", "castka", "金额", "金額", "сумма"})) {
        const bool other = original || HasAny(name, {"fee", "tax", "tip", "cashback", "exchange"});
        return {other ? ColumnRole::OriginalAmount : ColumnRole::Amount, 4};
    }
    if (HasAny(name, {"description", "verwendungszweck", "libelle", "omschrijving", "memo"}))
        return {ColumnRole::Text, 2};
    return AccountByParts(name);
}

}  // namespace

std::string PlainText(std::string_view text)
{
    const std::string folded = FoldText(text);
    std::string plain;
    bool space = false;
    for (std::string_view rest = folded; !rest.empty();) {
        const ScannedChar next = FirstChar(rest);
        if (IsDigit(next.code) || IsLetter(next.code)) {
            if (space && !plain.empty())
                plain += ' ';
            plain += rest.substr(0, next.size);
            space = false;
        } else
            space = true;
        rest.remove_prefix(next.size);
    }
    return plain;
}

std::string PlainName(std::string_view name)
{
    return PlainText(name.substr(0, kLongestName));
}

NamedRole RoleOf(std::string_view name)
{
    if (name.size() > kLongestName)
        return {};
    const std::string plain = PlainName(name);
    if (plain.empty())
        return TrimSpaces(name) == "+/-" ? NamedRole{ColumnRole::Mark, 0} : NamedRole{};
    NamedRole role = Known(plain);
    if (role.role != ColumnRole::Unknown)
        return role;
    role = Known(WithoutCurrency(plain));
    return role.role != ColumnRole::Unknown ? role : ByParts(plain);
}

}  // namespace clb
