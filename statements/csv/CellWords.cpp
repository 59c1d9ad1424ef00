#include "statements/csv/CellWords.h"

#include <algorithm>
#include <functional>
#include <set>
#include <string>

#include "statements/csv/ColumnNames.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

// In the form of PlainName, each with '|' after it.
constexpr std::string_view kIn =
    "c|cr|credit|credits|cred|crdt|h|haben|bij|in|income|inflow|kredit|kreditt|credito|deposit|"
    "deposits|贷|贷 cr|贷方|收入|收|存入|转入|入金|entrada|haber|abono|avere|uznanie|приход|"
    "пополнение|зачисление|received|money in|paid in|incoming|eingang|rd|inkomsten|ind|plus|"
    "receita|credited|cr credit|credit cr|gutschrift|kredi|c credit|credit c|incasso bij|accredito|"
    "receive|inbound|alacak|jovairas|ввод|поступление|";
constexpr std::string_view kOut =
    "d|dr|debit|debits|debet|dbit|deb|s|soll|af|out|expense|outflow|debito|withdrawal|withdrawals|"
    "借|借 dr|借方|支出|支|转出|支取|出金|saida|debe|cargo|dare|obciazenie|расход|списание|sent|"
    "money out|paid out|outgoing|ausgang|belastung|rc|uitgaven|ud|minus|despesa|debited|dr debit|"
    "debit dr|lastschrift|d debit|debit "
    "d|spend|spent|db|addebito|send|outbound|borc|terheles|вывод|";

// Words of descriptions. They count wherever they stand in the text as whole words.
constexpr std::string_view kInText =
    "salary|payroll|wages|gehalt|lohn|lohngehalt|salaire|nomina|stipendio|palkka|wynagrodzenie|"
    "salario|refund|refunded|payment received|payment thank you|gutschrift|dividend|dividende|"
    "zinsgutschrift|ruckerstattung|erstattung|remboursement|reembolso|rimborso|工资|退款|зарплата|"
    "возврат|cashback|direct deposit|habenzinsen|interest paid to you|credit interest|"
    "interest received|merci de votre paiement|paiement recu|lon inbetalning|";
constexpr std::string_view kOutText =
    "purchase|sale|withdrawal|atm|pos|card payment|kartenzahlung|lastschrift|folgelastschrift|"
    "direct debit|achat|retrait|prelevement|compra|retiro|reintegro|prelievo|kortkob|kortkop|uttag|"
    "korttiosto|zakup|wyplata|vyber|saque|fee|entgelt|消费|支取|покупка|"
    "bill payment|debit card|monthly charge|service charge|dauerauftrag|geldautomat|bankomat|";

constexpr std::string_view kCardPayment =
    "payment thank you|payment received|autopay payment|autopay pymt|paiement merci|"
    "merci de votre paiement|online payment thank you|";

constexpr std::string_view kPending =
    "pending|pending transaction|vorgemerkt|vorgemerkte umsatze|nicht gebucht|"
    "noch nicht gebucht|en attente|a venir|en cours|pendiente|in attesa|in sospeso|non "
    "contabilizzato|in afwachting|reservering|gereserveerd|reserverat|reserveret|reservert|odottaa|"
    "varaus|oczekujaca|oczekujacy|w "
    "realizacji|nierozliczone|cekajici|nezauctovano|blokace|pendente|"
    "authorization|authorized|authorised|authorisation|held|hold|processing|in progress|scheduled|"
    "upcoming|unposted|not booked|ожидание|в обработке|холд|待入账|处理中|pdng|true|on hold|future|"
    "open|uncleared pending|预授权|vantande|ventende|blokada|zablokowana|autorizace|";
constexpr std::string_view kVoid =
    "declined|failed|failure|rejected|cancelled|canceled|reverted|abgelehnt|storniert|"
    "fehlgeschlagen|"
    "refuse|refusee|annule|annulee|echoue|rechazado|rechazada|cancelado|cancelada|rifiutato|"
    "rifiutata|annullato|geweigerd|geannuleerd|mislukt|avvisad|misslyckad|afvist|avvist|hylatty|"
    "odrzucona|odrzucono|anulowana|zamitnuto|zamitnuta|zruseno|recusado|отказ|отклонено|отклонена|"
    "отменен|отменено|交易关闭|失败|已关闭|交易失败|支付失败|已取消|expired|voided|void|"
    "removed|denied|blocked|";
// "Umsatz vorgemerkt" is of rows that have a booking day and count in the balance of that day.
constexpr std::string_view kBooked =
    "umsatz "
    "vorgemerkt|booked|posted|completed|complete|cleared|settled|success|successful|gebucht|umsatz "
    "gebucht|"
    "ausgefuhrt|comptabilise|effectue|execute|contabilizado|contabilizada|contabilizzato|geboekt|"
    "bokford|bokfort|bogfort|kirjattu|zaksiegowana|zrealizowana|rozliczona|zauctovano|provedeno|"
    "efetivado|realizado|ok|executed|交易成功|支付成功|成功|исполнено|проведен|выполнен|book|false|"
    "issued|finished|paid|已入账|uitgevoerd|done|erfolgreich|utfort|";

using Words = std::set<std::string, std::less<>>;

Words WordsOf(std::string_view list)
{
    Words words;
    while (!list.empty()) {
        const std::size_t end = list.find('|');
        words.emplace(list.substr(0, end));
        list.remove_prefix(end + 1);
    }
    return words;
}

constexpr std::size_t kLongestMark = 40;
constexpr std::size_t kLongestText = 400;

/// Whether a word of the list stands in the text. Words of East Asia need no spaces around them.
bool HasWord(std::string_view text, std::string_view list)
{
    while (!list.empty()) {
        const std::size_t end = list.find('|');
        const std::string_view word = list.substr(0, end);
        list.remove_prefix(end + 1);
        for (std::size_t at = text.find(word); at != std::string_view::npos;
             at = text.find(word, at + 1)) {
            const std::size_t after = at + word.size();
            const bool wide = static_cast<unsigned char>(word.front()) >= 0xE0;
            if (wide ||
                ((at == 0 || text[at - 1] == ' ') && (after == text.size() || text[after] == ' ')))
                return true;
        }
    }
    return false;
}

}  // namespace

CellSide SideOfMark(std::string_view cell)
{
    static const Words in = WordsOf(kIn);
    static const Words out = WordsOf(kOut);
    if (cell.empty() || cell.size() > kLongestMark)
        return CellSide::None;
    if (cell == "+")
        return CellSide::In;
    if (cell == "-" || cell == "\u2212")
        return CellSide::Out;
    const std::string plain = PlainName(cell);
    if (in.contains(plain))
        return CellSide::In;
    return out.contains(plain) ? CellSide::Out : CellSide::None;
}

CellSide SideOfText(std::string_view text)
{
    const std::string plain = PlainText(text.substr(0, kLongestText));
    const bool in = HasWord(plain, kInText);
    const bool out = HasWord(plain, kOutText);
    if (in == out)
        return CellSide::None;
    return in ? CellSide::In : CellSide::Out;
}

bool IsCardPayment(std::string_view text)
{
    return HasWord(PlainText(text.substr(0, kLongestText)), kCardPayment);
}

CellStatus StatusOf(std::string_view cell)
{
    static const Words pending = WordsOf(kPending);
    static const Words voided = WordsOf(kVoid);
    static const Words booked = WordsOf(kBooked);
    if (cell.empty() || cell.size() > kLongestMark)
        return CellStatus::None;
    const std::string plain = PlainName(cell);
    if (pending.contains(plain))
        return CellStatus::Pending;
    if (voided.contains(plain))
        return CellStatus::Void;
    return booked.contains(plain) ? CellStatus::Booked : CellStatus::None;
}

}  // namespace clb
