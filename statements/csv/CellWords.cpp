#include "statements/csv/CellWords.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

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

// A payment that the card's bank has got, as it says so itself.
constexpr std::string_view kReceived =
    "thank you for your payment|thank you payment|payment thankyou|your payment|"
    "zahlung erhalten|zahlung dankend erhalten|erhaltene zahlung|danke fur ihre zahlung|"
    "dank fur ihre zahlung|ihre zahlung|zahlungseingang|einzahlung|paiement recu|votre paiement|"
    "reglement recu|votre reglement|dank voor uw betaling|uw betaling|betaling ontvangen|"
    "ontvangen betaling|pago recibido|gracias por su pago|su pago gracias|pago gracias|"
    "pagamento ricevuto|grazie per il pagamento|pagamento grazie|pagamento recebido|"
    "obrigado pelo pagamento|pagamento obrigado|betalning mottagen|mottagen betalning|"
    "tack for din betalning|inbetalning|betaling modtaget|modtaget betaling|"
    "tak for din betaling|indbetaling|betaling mottatt|mottatt betaling|takk for betalingen|"
    "innbetaling|maksu vastaanotettu|vastaanotettu maksu|kiitos maksusta|platnosc otrzymana|"
    "otrzymana platnosc|dziekujemy za platnosc|platba prijata|prijata platba|"
    "dekujeme za platbu|платеж получен|спасибо за платеж|收到还款|感谢您的还款|ご入金|"
    "odeme alindi|odemeniz icin tesekkur ederiz|koszonjuk a befizetest|התשלום התקבל|입금|";

// Other words that payments to a card have. Payments out of an account have them too.
constexpr std::string_view kPayment =
    "payment|payments|pmt|pymt|paymt|autopay|repayment|zahlung|zahlungen|bezahlung|ausgleich|"
    "kontoausgleich|kreditkartenausgleich|kreditkartenabrechnung|lastschrifteinzug|paiement|"
    "paiements|reglement|remise|betaling|betalingen|incasso|aflossing|pago|pagos|abono|liquidacion|"
    "pagamento|pagamenti|pagamentos|pagto|pgto|saldo fattura|addebito|betalning|betalingar|"
    "aterbetalning|maksu|maksusuoritus|suoritus|lyhennys|splata|splata karty|wplata|platnosc|"
    "przelew|platba|splatka|uhrada|splaceni|платеж|оплата|погашение|пополнение|还款|缴款|"
    "お支払|支払|振替|odeme|odemesi|befizetes|torlesztes|תשלום|결제|납부|";

constexpr std::string_view kPending =
    "pending|pending transaction|vorgemerkt|vorgemerkte umsatze|nicht gebucht|"
    "noch nicht gebucht|en attente|a venir|en cours|pendiente|in attesa|in sospeso|non "
    "contabilizzato|in afwachting|reservering|gereserveerd|reserverat|reserveret|reservert|odottaa|"
    "varaus|oczekujaca|oczekujacy|w "
    "realizacji|nierozliczone|cekajici|nezauctovano|blokace|pendente|"
    "authorization|authorized|authorised|authorisation|held|hold|processing|in progress|scheduled|"
    "upcoming|unposted|not booked|ожидание|в обработке|холд|待入账|处理中|pdng|true|on hold|future|"
    "open|uncleared pending|预授权|vantande|ventende|blokada|zablokowana|autorizace|venter|"
    "afventer|under behandling|reserviert|offen|ausstehend|angefragt|in bearbeitung|geplant|"
    "autorisiert|umsatz reserviert|umsatz offen|nicht abgerechnet|noch nicht abgerechnet|"
    "in behandeling|gereserveerd bedrag|nog niet verwerkt|niet verwerkt|lopend|gepland|"
    "autorizzato|autorizzata|autorizzazione|da contabilizzare|non contabilizzata|in corso|"
    "in elaborazione|prenotato|prenotata|autorise|autorisee|autorisation|en instance|non "
    "comptabilise|"
    "non comptabilisee|prevu|prevue|autorizado|autorizada|autorizacion|en "
    "proceso|retenido|retenida|"
    "no contabilizado|sin contabilizar|pendiente de contabilizar|programado|em processamento|"
    "agendado|agendada|autorizacao|em aberto|por contabilizar|vantar|vantande|pagaende|"
    "reserverad|ej bokford|ej bokfort|kommande|under bearbetning|preliminar|ikke bokfort|"
    "ikke bogfort|ikke bogfort endnu|behandles|pa vent|reservation|reservasjon|kommende|"
    "katevaraus|kasittelyssa|vireilla|tuleva|kirjaamatta|w toku|oczekuje|oczekujace|"
    "autoryzacja|nieksiegowana|niezaksiegowana|zaplanowana|blokada srodkow|ceka|"
    "ceka na zpracovani|zpracovava se|nezuctovano|nezauctovana|rezervovano|blokovano|v procesu|"
    "в процессе|ожидает|ожидается|не проведен|не проведена|авторизация|авторизован|зарезервировано|"
    "заблокировано|处理中的|未入账|待处理|待清算|进行中|等待|未確定|処理中|予約|保留|beklemede|"
    "bekliyor|"
    "provizyon|provizyonda|islemde|fuggoben|fuggo|folyamatban|zarolt|zarolas|ממתין|בהמתנה|"
    "승인|대기|처리중|";
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
    "issued|finished|paid|已入账|uitgevoerd|done|erfolgreich|utfort|udfort|gennemfort|"
    "abgerechnet|verbucht|verwerkt|comptabilisee|effectuee|traite|realizada|liquidado|"
    "eseguito|eseguita|registrato|genomford|toteutettu|suoritettu|zaksiegowany|zaksiegowano|"
    "wykonana|wykonano|zuctovano|zauctovana|provedena|zpracovano|efetuado|efetuada|concluido|"
    "проведена|выполнена|исполнен|исполнена|完成|已完成|交易完成|処理済|確定|tamamlandi|"
    "gerceklesti|teljesult|konyvelt|lekonyvelt|בוצע|완료|";

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

/// Phrases that may stand in a text as whole words. Words of East Asia need no spaces around them.
class Phrases {
public:
    explicit Phrases(std::initializer_list<std::string_view> lists)
    {
        for (std::string_view list : lists)
            while (!list.empty()) {
                const std::size_t end = list.find('|');
                Add(list.substr(0, end));
                list.remove_prefix(end + 1);
            }
    }

    [[nodiscard]] bool AreIn(std::string_view text) const
    {
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = std::min(text.find(' ', at), text.size());
            const auto found = byFirst_.find(text.substr(at, end - at));
            if (found != byFirst_.end() && BeginsWithAny(text.substr(at), found->second))
                return true;
            at = end + 1;
        }
        return std::any_of(wide_.begin(), wide_.end(), [text](std::string_view word) {
            return text.find(word) != std::string_view::npos;
        });
    }

private:
    void Add(std::string_view phrase)
    {
        if (static_cast<unsigned char>(phrase.front()) >= 0xE0)
            wide_.push_back(phrase);
        else
            byFirst_[phrase.substr(0, phrase.find(' '))].push_back(phrase);
    }
    static bool BeginsWithAny(std::string_view text, const std::vector<std::string_view>& phrases)
    {
        return std::any_of(phrases.begin(), phrases.end(), [text](std::string_view phrase) {
            return text.starts_with(phrase) &&
                   (text.size() == phrase.size() || text[phrase.size()] == ' ');
        });
    }

    std::unordered_map<std::string_view, std::vector<std::string_view>> byFirst_;
    std::vector<std::string_view> wide_;
};

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

TextWords WordsOfText(std::string_view text)
{
    static const Phrases in({kInText, kCardPayment, kReceived});
    static const Phrases out({kOutText});
    static const Phrases card({kCardPayment});
    static const Phrases payment({kPayment, kReceived, kCardPayment});
    const std::string plain = PlainText(text.substr(0, kLongestText));
    const bool comesIn = in.AreIn(plain);
    TextWords words;
    if (comesIn != out.AreIn(plain))
        words.side = comesIn ? CellSide::In : CellSide::Out;
    words.cardPayment = comesIn && card.AreIn(plain);
    words.payment = payment.AreIn(plain);
    return words;
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

bool IsPlainlyStatus(std::string_view cell)
{
    static const Words weak = WordsOf(
        "true|false|open|hold|held|future|ok|paid|done|issued|complete|finished|success|offen|"
        "geplant|registrato|traite|execute|成功|完成|等待|");
    return StatusOf(cell) != CellStatus::None && !weak.contains(PlainName(cell));
}

}  // namespace clb
