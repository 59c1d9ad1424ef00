// Names of columns, in the form of PlainName, as banks of many countries write them.
#pragma once
#include <array>
#include <string_view>

#include "statements/csv/ColumnNames.h"

namespace clb {

struct ColumnNameList {
    ColumnRole role;
    int rank;                ///< 0 is surest
    std::string_view names;  ///< each with '|' after it
};

inline constexpr std::array kColumnNames = std::to_array<ColumnNameList>({
    {ColumnRole::Date, 0,
     "booking date|date booked|booked|booked date|booked on|posting date|posted date|"
     "post date|posted|posted on|posting|date posted|posted transactions date|process date|"
     "processed date|date processed|processing date|completed date|completed|date completed|"
     "date completed utc|completed on|settlement date|settled date|settled|book date|"
     "entry date|accounting date|ledger date|clearing date|cleared date|buchungstag|"
     "buchungsdatum|gebucht am|datum der buchung|buchungsdatum uhrzeit|verbuchungsdatum|"
     "bu tag|buchung|datum buchung|date de comptabilisation|date comptable|date operation|"
     "date d operation|date de l operation|date d ecriture|date comptabilisation|"
     "date de comptabilite|comptabilise le|date enregistrement|date execution|"
     "date d execution|boekdatum|boekingsdatum|datum boeking|uitvoeringsdatum|"
     "verwerkingsdatum|fecha contable|fecha de contabilizacion|f contable|"
     "fecha contabilizacion|fecha operacion|fecha de operacion|fecha oper|"
     "fecha de la operacion|f operacion|fecha movimiento|fecha de movimiento|fecha mov|"
     "data contabile|data registrazione|data di registrazione|data contabilizzazione|"
     "data operazione|data movimento|data reg|bokforingsdag|bokforingsdatum|bokford|"
     "bokforingsdato|bokfort dato|bokfort|bogforingsdato|bogfort|bogfort dato|bogforingsdag|"
     "bokf datum|reskontradatum|kirjauspaiva|kirjauspvm|kirjauspaivamaara|maksupaiva|"
     "data ksiegowania|data zaksiegowania|data ksiegowa|data rozliczenia|datum zauctovani|"
     "datum zuctovania|zauctovano|datum provedeni|datum provedeni transakce|"
     "datum zauctovani transakce|datum pripsani|data do movimento|data lancamento|"
     "data de lancamento|data do lancamento|data mov|data "
     "movimentacao|记账日期|入账日期|记帐日期|入账日|记账日|"
     "入帳日期|дата обработки операции|дата обработки|дата проводки|дата платежа|дата зачисления|"
     "konyveles datuma|konyvelesi datum|תאריך חיוב|"},
    {ColumnRole::Date, 1,
     "created utc|transfer date|date|datum|fecha|data|dato|paiva|paivamaara|pvm|dia|tarih|"
     "дата|日期|日付|fecha hora|date time|datetime|date and time|datum uhrzeit|islem tarihi|"
     "timestamp|created|created at|created on|creation date|date utc|time stamp|תאריך|年月日|"
     "お取引日|取引日|処理日|дата и время|дата "
     "время|날짜|거래일시|거래일자|umsatztag|umsatzdatum|dates|"},
    {ColumnRole::Date, 2,
     "交易创建时间|交易成功时间|支付时间|recorded at|transaction date|trans date|date of "
     "transaction|"
     "transaction time|transaction datetime|transaction date and time|purchase date|"
     "date of purchase|started date|start date|tran date|txn date|trx date|trade date|"
     "operation date|authorized date|authorised date|activity date|order date|payment date|"
     "date initiated|initiated|belegdatum|transaktionsdatum|kaufdatum|einkaufsdatum|"
     "transaktionsdatum uhrzeit|auftragsdatum|datum der transaktion|transaktionszeit|"
     "date de transaction|date transaction|date de la transaction|date d achat|date achat|"
     "transactiedatum|datum transactie|fecha transaccion|fecha de la transaccion|"
     "fecha de transaccion|fecha de compra|data transakcji|data operacji|datum transakce|"
     "datum operace|data transacao|data da transacao|data transazione|data acquisto|"
     "data compra|data da compra|transaktionsdag|transaktionsdato|kopdatum|inkopsdatum|"
     "kobsdato|kjopsdato|tapahtumapaiva|tapahtumapvm|ostopaiva|дата операции|"
     "дата совершения операции|交易日期|交易时间|交易日|利用日|ご利用日|お取り扱い日|תאריך "
     "עסקה|תאריך העסקה|交易日期时间|"},
    {ColumnRole::ValueDate, 0,
     "available on utc|available on|value date|valuta|valutadatum|valuta datum|wertstellung|"
     "wertstellungstag|wertstellungsdatum|wert|valutadato|valutatag|date valeur|"
     "date de valeur|rentedatum|rentedag|fecha valor|f valor|fecha de valor|data valuta|"
     "valutadag|valuteringsdag|rentedato|arvopaiva|arvopvm|data waluty|datum valuty|"
     "data valor|effective date|interest date|valeur|date val|val date|f value|data di valuta|"
     "data efetiva|valuterad|дата валютирования|ertesnap|erteknap|תאריך ערך|"},
    {ColumnRole::Amount, 0,
     "结算金额|实付金额|net|net amount|netto|nettobetrag|billing amount|billed amount|booked "
     "amount|"
     "settlement amount|settled amount|amount in account currency|account amount|"
     "account currency amount|amount account currency|gebuchter betrag|betrag in kontowahrung|"
     "abrechnungsbetrag|montant net|importe neto|kwota w walucie rachunku|"
     "kwota w walucie konta|castka v mene uctu|сумма в валюте счета|сумма "
     "платежа|记账金额|入账金额|"
     "amount in home currency|amount in local currency|montant en euros|amount in sgd|"
     "summa i sek|betrag in eur|betrag eur|importe en euros|importo in euro|belopp i sek|"
     "kwota rozliczenia|zuctovana castka|zauctovana castka|castka zauctovana|סכום חיוב|"},
    {ColumnRole::Amount, 1,
     "amount|betrag|umsatz|montant|bedrag|importe|importo|belopp|belob|belop|beloep|summa|"
     "maara|kwota|castka|suma|quantia|montante|sum|сумма|金额|金額|amt|ammount|total|total amount|"
     "amount total|gross amount usd|objem|cantidad|movimiento|valor r|valor brl|סכום|tutar|"
     "islem tutari|osszeg|iznos|znesek|value|valor|transaction amount|trans amount|"
     "tran amount|txn amount|amount eur|amount gbp|amount usd|umsatz in eur|umsatzbetrag|"
     "kwota operacji|kwota transakcji|castka transakce|mutatiebedrag|transactiebedrag|"
     "bedrag af bij|montant de l operation|montant operation|importe operacion|"
     "importe movimiento|transaktionsbelopp|交易金额|сумма операции|发生额|入出金|取引金額|"
     "amount debit credit|debit credit amount|soll haben betrag|ingetekend bedrag|"
     "credit debit amount|movement|local amount|operation amount|amount incl fee|amount local|"
     "bedrag eur|importe eur|importo eur|montant eur|kwota pln|castka czk|belopp sek|"
     "belob dkk|belop nok|maara eur|maara euroa|summa eur|geldbetrag|거래금액|סכום בש ח|"
     "payment amount|amount paid|"},
    {ColumnRole::Amount, 3, "gross|brutto|gross amount|bruttobetrag|amount gross|"},
    {ColumnRole::In, 0, "记账金额 收入|"},
    {ColumnRole::In, 1,
     "credit|credits|credit amount|amount credit|credit amt|cr amount|cr|deposit|deposits|"
     "deposit amount|deposit amt|deposits amount|paid in|money in|in|inflow|income|receipts|"
     "received|amount in|payments in|credited|credited amount|total credited|deposit cr|"
     "credit cr|lodgement|lodgements|payment in|amount received|received amount|funds in|"
     "additions|credit inr|deposit inr|credit gbp|money in gbp|paid in gbp|haben|gutschrift|"
     "gutschriften|eingang|eingange|einzahlung|einzahlungen|zugang|zugange|einnahme|einnahmen|"
     "credit eur|betrag haben|haben eur|gutschrift in chf|au credit|montant credit|"
     "credit euros|recette|recettes|entree|entrees|encaissement|encaissements|bij|"
     "bijschrijving|bijschrijvingen|inkomsten|ontvangst|ontvangsten|ontvangen|bedrag bij|"
     "credit bedrag|abono|abonos|haber|ingreso|ingresos|entrada|entradas|importe haber|"
     "importe abono|accrediti|accredito|avere|entrate|importo avere|importo accrediti|"
     "insattning|insattningar|inn|inn pa konto|innskudd|ind|indbetaling|indbetalt|insatt|"
     "insatt belopp|inbetalning|belop inn|godskrevet|kredit|kreditt|tulo|tulot|pano|panot|"
     "uznania|uznanie|wplywy|wplyw|przychody|przychod|wplata|wplaty|kwota uznania|prijmy|"
     "prijem|pripsano|kredit castka|credito|creditos|receitas|receita|deposito|depositos|"
     "a credito|valor credito|importe credito|prijato|приход|поступление|поступления|"
     "зачисление|кредит|сумма по "
     "кредиту|收入|贷方发生额|贷方金额|贷方|存入|收入金额|存入金额|转入|お預入れ|お預り金額|入金|"
     "預入金額|"
     "入金額|お預け入れ|お預入金額|입금|입금액|맡기신금액|זכות|alacak|jovairas|jovairas "
     "osszege|交易金额 收入|"},
    {ColumnRole::Out, 0, "记账金额 支出|"},
    {ColumnRole::Out, 1,
     "debit|debits|debit amount|amount debit|debit amt|dr amount|dr|withdrawal|withdrawals|"
     "withdrawal amount|withdrawal amt|withdrawals amount|paid out|money out|out|outflow|"
     "expense|expenses|spent|payments|amount out|payments out|debited|debited amount|"
     "total debited|withdrawal dr|debit dr|payment out|amount sent|sent amount|funds out|"
     "subtractions|debit inr|withdrawal inr|debit gbp|money out gbp|paid out gbp|charge|"
     "charges amount|charge amount|purchase amount|purchases|spend|soll|belastung|belastungen|"
     "ausgang|ausgange|auszahlung|auszahlungen|abgang|abgange|ausgabe|ausgaben|debit eur|"
     "betrag soll|soll eur|lastschrift in chf|belastung in chf|debet|au debit|montant debit|"
     "debit euros|depense|depenses|sortie|sorties|decaissement|af|afschrijving|afschrijvingen|"
     "uitgaven|bedrag af|debet bedrag|uitgegeven|cargo|cargos|debe|adeudo|adeudos|gasto|"
     "gastos|salida|salidas|importe debe|importe cargo|addebiti|addebito|dare|uscite|uscita|"
     "importo dare|importo addebiti|uttag|ut|ut fra konto|uttak|ud|udbetaling|haevet|udbetalt|"
     "utbetalning|uttagsbelopp|belop ut|belastet|belop ut fra konto|meno|menot|otot|otto|"
     "obciazenia|obciazenie|wydatki|wydatek|wyplata|wyplaty|kwota obciazenia|vydaje|vydaj|"
     "odepsano|debet castka|debito|debitos|despesas|despesa|saida|saidas|saques|levantamento|"
     "a debito|valor debito|importe debito|odeslano|расход|списание|списания|дебет|"
     "сумма по "
     "дебету|支出|借方发生额|借方金额|借方|支取|支出金额|转出|お引出し|出金|支払金額|お支払金額|"
     "出金額|お引き出し|お引出金額|ご利用金額|"
     "利用金額|출금|출금액|찾으신금액|חובה|borc|terheles|terheles osszege|交易金额 支出|"},
    {ColumnRole::Fee, 0,
     "fee|fees|gebuhr|gebuhren|entgelt|frais|commission|comision|commissione|commissioni|"
     "avgift|gebyr|prowizja|oplata|poplatek|poplatky|taxa|amount fee|transaction fee|"
     "fee amount|手续费|комиссия|kosten|spesen|total fees|fee currency amount|service fee|"
     "komisyon|tax|amount tax|tip|amount tip|tax rate|tax exempt|vat|mwst|moms|iva|"},
    {ColumnRole::Ignored, 0, "amount refunded|converted amount refunded|latitude|longitude|"},
    {ColumnRole::OriginalAmount, 0,
     "订单金额|sous montant|einzelbetrag|original amount|foreign amount|foreign currency amount|"
     "transaction currency amount|originalbetrag|betrag in fremdwahrung|fremdwahrungsbetrag|"
     "ursprungsbetrag|originalwahrungsbetrag|orig amount|amount foreign currency|"
     "montant d origine|montant en devise|montant devise|montant original|montant initial|"
     "bedrag vreemde valuta|oorspronkelijk bedrag|oorspr bedrag|importe original|"
     "importe divisa|importe en divisa|importo originale|importo in valuta|importo valuta|"
     "ursprungligt belopp|utlandsbelopp|utlandskt belopp|originalbelopp|oprindeligt belob|"
     "alkuperainen summa|alkuperainen maara|kwota w walucie transakcji|kwota oryginalna|"
     "kwota w walucie oryginalnej|castka v mene transakce|puvodni castka|"
     "castka v puvodni mene|originalni castka|valor original|сумма в валюте операции|原始金额|"
     "交易币金额|lastschrift ursprungsbetrag|auslagenersatz rucklastschrift|"
     "amount in foreign currency|amount in original currency|amount in transaction currency|"
     "local currency amount|fx amount|source amount|source amount before fees|exchange amount|"
     "amount foreign|transaction amount foreign|betrag fremdwahrung|betrag originalwahrung|"
     "betrag original|betrag in originalwahrung|orig betrag|valuta belopp|valutabelopp|"
     "valutabelop|belob i valuta|belop i valuta|target amount|target amount after fees|"
     "foreign spend amount|original currency amount|סכום עסקה|סכום מקורי|现地通貨額|"
     "maksun maara valuutassa|"},
    {ColumnRole::Ignored, 0,
     "exchange rate|wechselkurs|kurs|umrechnungskurs|kurz|taux de change|koers|wisselkoers|"
     "rate|exchange to amount|tipo de cambio|cambio|valutakurs|vaxelkurs|курс|cashback|бонусы|"
     "бонусы включая кэшбэк|кэшбэк|rewards|points|сумма операции с округлением|quantity|qty|"
     "price|shares|stuck|anzahl|units|shipping and handling amount|insurance amount|sales tax|"
     "total fee amount|"},
    {ColumnRole::Mark, 0,
     "debit credit|credit debit|d c|dc|c d|cd|cr dr|dr cr|drcr|crdr|s h|sh|soll haben|"
     "haben soll|soll haben kennzeichen|soll haben kz|s h kennzeichen|sollhaben|af bij|bij af|"
     "afbij|debet credit|debetcredit|creditdebet|credit debet|debitcredit|creditdebit|"
     "debit credit indicator|credit debit indicator|debit or credit|credit or debit|sign|"
     "signe|sign of amount|direction|cdtdbtind|sens|sens de l operation|sentido|signo|segno|"
     "tecken|fortegn|etumerkki|znak|kierunek|收 支|收支|借贷|借贷标志|借贷方向|收支类型|借 "
     "贷|收付标志|debet kredit|"
     "kredit debet|d k|natureza|+|dr or cr|credit or debit indicator|приход расход|ma dh|"
     "strana|tecken debet kredit|debito credito|credito debito|debe haber|dare avere|in out|"
     "plus minus|vorzeichen|transaction direction|cargo abono|receita despesa|入出金区分|"},
    {ColumnRole::Balance, 0,
     "balance|running balance|runningbalance|account balance|balance after|"
     "balance after transaction|closing balance|ledger balance|new balance|current balance|"
     "end balance|cash balance|balance amount|bal|account balance after|balance eur|"
     "balance gbp|balance inr|total balance|booked balance|resulting balance|"
     "balance after booking|account running balance|saldo|kontostand|saldo nach buchung|"
     "saldo in eur|neuer saldo|saldo eur|kontosaldo|saldo chf|kontostand nach buchung|solde|"
     "nouveau solde|solde apres operation|solde eur|saldo na mutatie|saldo na trn|"
     "saldo na boeking|saldo na transactie|eindsaldo|resulterend saldo|saldo posterior|"
     "saldo resultante|saldo contable|saldo contabile|saldo progressivo|saldo finale|"
     "saldo po operacji|saldo konta|saldo po transakcji|saldo koncowe|saldo rachunku|zustatek|"
     "zustatek po|zustatek po transakci|zustatek po operaci|zostatok|bokfort saldo|"
     "bokford saldo|saldo tras|saldo apos|saldo apos movimento|saldo contabilistico|"
     "saldo disponivel|saldo disponible|disponibel saldo|disponibelt belopp|available balance|"
     "saldo tras movimiento|tilin "
     "saldo|余额|本次余额|账户余额|残高|差引残高|お取引後残高|остаток|остаток средств|"
     "остаток на счете|баланс|bakiye|יתרה|יתרה בש ח|egyenleg|잔액|거래후잔액|stanje|saldi|"},
    {ColumnRole::Balance, 2,
     "beginsaldo|startsaldo|saldo voor mutatie|saldo voor boeking|balance before|"
     "opening balance|starting balance|saldo anterior|saldo precedente|saldo iniziale|"
     "saldo inicial|solde precedent|start balance|balance before transaction|"
     "beginning balance|previous balance|上次余额|"},
    {ColumnRole::Currency, 0,
     "结算币种|入账币种|billing currency|account currency|settlement "
     "currency|记账币种|kontowahrung|"
     "devise du compte|валюта счета|валюта платежа|waluta rachunku|mena uctu|rekeningvaluta|"
     "booked currency|currency of account|tilin valuutta|"},
    {ColumnRole::Currency, 1,
     "currency|currency code|ccy|cur|curr|wahrung|waehrung|devise|monnaie|munt|muntsoort|"
     "valutacode|valutakod|divisa|moneda|waluta|mena|moeda|валюта|币种|交易币种|通貨|"
     "iso currency code|para birimi|deviza|devizanem|waluta operacji|waluta transakcji|"
     "valuutta|transaction currency|code devise|codice divisa|wahrungscode|currency symbol|通货|"
     "מטבע|kontovaluta|통화|amount currency|mena transakce|币别|"},
    {ColumnRole::OriginalCurrency, 0,
     "original currency|foreign currency|валюта операции|balance currency|originalwahrung|"
     "fremdwahrung|devise d origine|devise origine|ursprungswahrung|vreemde valuta|"
     "divisa original|valuta originale|ursprunglig valuta|originalvaluta|oprindelig valuta|"
     "alkuperainen valuutta|waluta oryginalna|puvodni mena|moeda original|"
     "foreign currency code|source currency|target currency|fee currency|"
     "unofficial currency code|saldowahrung|currency of balance|exchange currency|"
     "transaction currency code|local currency|orig currency|source fee currency|"
     "target fee currency|waluta salda|valutalkod|"},
    {ColumnRole::Name, 0,
     "payee|payee name|counterparty|counterparty name|counter party|merchant|merchant name|"
     "beneficiary|beneficiary name|payer|payer name|payer or payee|name|other party|"
     "other party name|counterpart|counterpart name|recipient|recipient name|sender|"
     "sender name|contact|vendor|from or to|third party|party name|auftraggeber empfanger|"
     "empfanger auftraggeber|auftraggeber beguenstigter|beguenstigter auftraggeber|"
     "beguenstigter zahlungspflichtiger|zahlungspflichtiger beguenstigter|zahlungsempfanger|"
     "name zahlungsbeteiligter|name des partners|partner|partner name|partnername|gegenpartei|"
     "empfanger|empfangername|auftraggeber|name des auftraggebers|zahlungsempfanger in|"
     "zahlungspflichtige r|zahlungspflichtiger|auftraggeber zahlungsempfanger|"
     "kontoinhaber gegenkonto|absender|beguenstigter|handler|gegenkontoinhaber|"
     "name gegenkonto|beguenstigter absender|transaktionspartner|nom|tiers|beneficiaire|"
     "contrepartie|nom de la contrepartie|nom du tiers|nom contrepartie|nom du beneficiaire|"
     "emetteur|commercant|naam|naam omschrijving|naam tegenpartij|tegenpartij|"
     "tegenrekeninghouder|naam begunstigde|naam tegenrekening|naam tegenrekeninghouder|"
     "begunstigde|naam van de tegenpartij|tegenpartij naam|naam ontvanger|beneficiario|"
     "ordenante|nombre|contraparte|ordenante beneficiario|beneficiario ordenante|comercio|"
     "ordinante|controparte|destinatario|ordinante beneficiario|beneficiario ordinante|"
     "esercente|nome controparte|mottagare|avsandare|mottagare avsandare|avsandare mottagare|"
     "butik|modtager|modtager afsender|afsender|mottaker|avsender|mottaker avsender|saaja|"
     "maksaja|saaja maksaja|maksaja saaja|saajan nimi|nimi|saaja tai maksaja|"
     "saaja maksajan nimi|nadawca odbiorca|odbiorca nadawca|odbiorca|kontrahent|"
     "nazwa kontrahenta|nadawca|dane kontrahenta|nazwa nadawcy|nazwa odbiorcy|"
     "nadawca odbiorca nazwa|dane strony operacji|nazev protiuctu|nazev protistrany|"
     "protistrana|prijemce|nazev obchodnika|obchodnik|nazev uctu protistrany|"
     "nazov protistrany|protiucet nazev|jmeno protistrany|odesilatel|favorecido|"
     "destinatario "
     "remetente|remetente|estabelecimento|nome|交易对方|对手信息|对方户名|对方名称|交易对手|收款人|"
     "对方姓名|"
     "对方账户名|商户名称|контрагент|получатель|отправитель|наименование "
     "контрагента|ご利用店名|ご利用先|利用店名|"
     "お取引先|partner neve|kedvezmenyezett|בית עסק|שם בית העסק|שם בית עסק|상호|适店名称|"},
    {ColumnRole::Name, 1, "from|to|an|von|de|para|da|a|"},
    {ColumnRole::Text, 0,
     "description|details|narrative|particulars|narration|remarks|purpose|"
     "transaction description|original description|transaction details|statement description|"
     "payment details|payment purpose|remittance information|description of transaction|"
     "transaction narrative|bank description|simple description|extended description|"
     "full description|extended details|original statement|appears on your statement as|"
     "verwendungszweck|beschreibung|buchungsdetails|zahlungszweck|bezeichnung|"
     "vorgang verwendungszweck|verwendungszweck zeile 1|umsatztext|zahlungsgrund|mitteilung|"
     "buchungsinformation|verwendungszweck beschreibung|details zur buchung|betreff|libelle|"
     "libelle operation|libelle de l operation|libelle simplifie|motif|communication|objet|"
     "nature de l operation|designation|libelle complet|omschrijving|mededelingen|mededeling|"
     "omschrijving 1|vrije mededeling|beschrijving|transactieomschrijving|"
     "betalingskenmerk omschrijving|concepto|descripcion|detalle|concepto comun|"
     "descripcion del movimiento|mas datos|concepto ampliado|descrizione|causale|"
     "descrizione operazione|descrizione estesa|dettagli|descrizione movimento|beskrivning|"
     "transaktionstext|text|meddelande|rubrik|specifikation|tekst|beskrivelse|posteringstekst|"
     "forklaring|melding|selitys|viesti|tapahtuman selite|opis|opis operacji|opis transakcji|"
     "tytul|tytul operacji|tytulem|szczegoly|tytul przelewu|tytul transakcji|popis|"
     "popis transakce|popis operace|zprava pro prijemce|sprava pre prijemcu|zprava|"
     "popis pro me|ucel platby|descricao|historico|historico do lancamento|detalhes|"
     "descritivo|lancamento|descricao do movimento|descricao da transacao|titulo|описание|"
     "назначение|назначение платежа|описание "
     "операции|основание|摘要|交易摘要|商品说明|交易描述|用途|交易说明|"
     "お取り扱い内容|取引内容|お取引内容|内容|aciklama|kozlemeny|megjegyzes|תיאור|פרטים|הפעולה|"
     "תאור|적요|거래내용|내용|"
     "摘 要|"},
    {ColumnRole::Text, 1,
     "memo|note|notes|reference|payment reference|message|type|transaction type|transaction|"
     "comment|comments|your reference|ref|reference text|remark|user notes|"
     "transaction code description|code|transaction code|location|city|address|country|"
     "state province|zip code|merchant city|merchant category|mcc|trans type|subtype|method|"
     "payment method|channel|card|card type|payment type|transaction method|exchange note|"
     "tags|label|labels|additional information|other|info text|bank reference text|"
     "particulars 1|analysis code|other party account text|transaction info|buchungstext|"
     "umsatzart|buchungsart|vorgang|umsatztyp|art|kommentar|notiz|notizen|kundenreferenz|"
     "kundenreferenz end to end|end to end referenz|end to end ref|mandatsreferenz|"
     "glaubiger id|glaeubiger id|sammlerreferenz|referenz|bemerkung|textschlussel|primanota|"
     "transaktionstyp|branche|ort|transaktionsart|verwendungszweck zeile 2|type operation|"
     "type d operation|type de transaction|remarque|remarques|commentaire|reference operation|"
     "informations complementaires|mutatiesoort|betaalwijze|type betaling|soort|"
     "machtigingsnummer|machtigingskenmerk|incassant id|betalingskenmerk|omschrijving 2|"
     "omschrijving 3|kenmerk|transactiereferentie tekst|details van de verrichting|"
     "details van de mutatie|detail|details mouvement|detail de l operation|adres|"
     "soort mutatie|transactietype|observaciones|referencia 1|referencia 2|tipo|"
     "tipo movimiento|tipo de movimiento|tipo operazione|tipologia|riferimento|transaktion|"
     "typ|typ av transaktion|meddelelse|type transaksjon|undertype|laji|tapahtumalaji|viite|"
     "viitenumero|viesti saajalle|viite viesti|typ operacji|typ transakcji|rodzaj transakcji|"
     "rodzaj|rodzaj operacji|typ transakce|typ pohybu|typ operace|poznamka|vs|ks|ss|"
     "variabilni symbol|konstantni symbol|specificky symbol|kod transakcji|miejsce|"
     "observacoes|tipo de transacao|tipo transacao|тип операции|город совершения операции|"
     "страна совершения операции|тип "
     "карты|комментарий|备注|附言|交易附言|交易类型|交易场所|交易地点|交易渠道|"
     "交易国家或地区简称|钞 汇|交易方式|收 "
     "付款方式|支付方式|商品|交易机构|対象|備考|メモ|islem|islem tipi|אסמכתא text|הערות|"
     "סוג תנועה|메모|비고|"},
    {ColumnRole::Category, 0,
     "category|kategorie|categorie|categoria|kategori|kategoria|luokka|категория|分类|交易分类|"
     "category name|budget category|rubrique|category path|hauptkategorie|"},
    {ColumnRole::Check, 0,
     "check|check number|check no|checknumber|check num|cheque|cheque number|cheque no|chq no|"
     "cheque num|chequenumber|schecknummer|scheck nr|numero de cheque|numero cheque|"
     "no de cheque|cheque nr|check or slip number|chq ref no|cheque ref no|支票号|num cheque|"
     "assegno|numero assegno|numero do cheque|"},
    {ColumnRole::Id, 0,
     "transaction id|transactionid|transaction identifier|fitid|unique id|uuid|"
     "transaktions id|transaktionsid|transaktionsnummer|transaktions nr|arkivointitunnus|"
     "archiveringscode|id transakce|id operace|id pohybu|numer transakcji|nr transakcji|"
     "id transakcji|identyfikator operacji|transaction reference|transaction reference number|"
     "transaction number|transactiereferentie|transactie id|volgnr|id transaccion|"
     "id de transaccion|id transazione|id transacao|identificador|transaction no|trans id|"
     "trans ref|交易订单号|交易号|流水号|交易流水号|日 志 号|日志号|id|entry id|payment id|bank "
     "transaction id|"
     "transaction uuid|operation id|id operazione|id operacion|identifiant|"
     "transaction unique id|buchungs id|buchungsreferenz|cislo transakce|umsatz id|txid|"
     "order id|номер операции|номер документа|import id|参照番号|"},
    {ColumnRole::Id, 1,
     "reference number|reference no|referentie|referenz nr|referenznummer|numero de reference|"
     "numero reference|bank reference|referencia|ref number|ref no|numer referencyjny|"
     "referens|referensnummer|referencenummer|referanse|reference id|receipt id|"},
    // Numbers or names that are surely of the own account.
    {ColumnRole::Account, 0,
     "own account|auftragskonto|iban auftragskonto|konto iban|own account number|"
     "own iban|eigen rekening|eigen rekeningnummer|account id|accountid|账号|"
     "referenzkonto|账户|本方账号|account|acct|konto|compte|rekening|cuenta|conto|"
     "rapporto|tili|rachunek|ucet|conta|bank account|bank account number|"
     "posted account|accountnum|own account no|my account|your account|"
     "your account number|numer rachunku karty|eigene iban|eigenes konto|iban konto|"
     "mon compte|compte bancaire|propre compte|cuenta propia|cuenta bancaria|"
     "conto proprio|conto corrente|conta corrente|conta bancaria|eget konto|"
     "egen konto|oma tili|wlasny rachunek|moj rachunek|vlastni ucet|muj ucet|"
     "мой счет|счет списания|本人账号|kendi hesap|sajat szamlaszam|"},
    // Numbers of the own account, or of the other party.
    {ColumnRole::Account, 1,
     "account number|account no|account num|acct no|kontonummer|kontonr|konto nr|"
     "numero de compte|n de compte|compte numero|numero du compte|rekeningnummer|"
     "iban bban|numero de cuenta|n cuenta|numero conto|numero conto corrente|"
     "tilinumero|numer rachunku|nr rachunku|numer konta|konto rachunek|cislo uctu|"
     "numero da conta|iban|номер счета|счет|clearingnummer kontonummer|"
     "reknr|口座番号|hesap no|מספר חשבון|szamlaszam|accountno|accountnumber|"
     "account nr|"},
    // Names of the own account.
    {ColumnRole::Account, 2,
     "account name|accountname|source account name|kontobezeichnung|"
     "bezeichnung auftragskonto|accountlabel|account label|account nickname|"
     "account alias|nom du compte|nom compte|libelle compte|libelle du compte|"
     "intitule compte|intitule du compte|naam rekening|rekeningnaam|nombre de cuenta|"
     "nombre cuenta|alias cuenta|nome conto|nome conta|nome da conta|kontonamn|"
     "kontonavn|kontoname|name des kontos|name konto|tilin nimi|nazwa rachunku|"
     "nazwa konta|nazev uctu|nazov uctu|название счета|账户名称|"
     "账户名|hesap adi|szamla neve|bank account name|posted account name|"},
    // Cards of the own account.
    {ColumnRole::Account, 3,
     "card no|card number|card num|card account|kartennummer|numero de carte|"
     "kaartnummer|номер карты|卡号|numer karty|cislo karty|kortnummer|kortnr|"
     "numero tarjeta|numero carta|"},
    {ColumnRole::OtherAccount, 0,
     "counterparty account|counterparty account number|counterparty iban|"
     "counter account|gegenkonto|gegenkonto iban|iban gegenkonto|"
     "iban zahlungsbeteiligter|kontonummer iban|iban kontonummer|iban des partners|"
     "partner iban|partner account number|kontonummer des partners|iban beguenstigter|"
     "empfanger iban|iban des auftraggebers|auftraggeberkonto|zahlungspartner iban|"
     "tegenrekening|tegenrekening iban bban|tegenrekeningnummer|rekening tegenpartij|"
     "compte contrepartie|compte de contrepartie|iban contrepartie|"
     "numero de compte contrepartie|cuenta destino|cuenta origen|cuenta contraparte|"
     "iban tegenpartij|conto controparte|iban controparte|iban beneficiario|motkonto|"
     "modkonto|til konto|fra konto|til konto nr|vastatili|saajan tilinumero|"
     "saajan tilinumero ja pankin bic|saajan tili|rachunek kontrahenta|"
     "numer rachunku kontrahenta|nr rachunku kontrahenta|rachunek przeciwstawny|"
     "rachunek nadawcy|rachunek odbiorcy|nr rachunku nadawcy odbiorcy|protiucet|"
     "cislo protiuctu|protiucet a kod banky|cislo uctu protistrany|cislo protistrany|"
     "protiucet iban|对方账号|对方卡号|对方账户|对方帐号|to account|"
     "from account|payee account|payee account number|payee iban|other party account|"
     "other account|beneficiary account|beneficiary iban|other party account number|"
     "recipient account|sender account|счет контрагента|tegenrekening iban|"
     "iban counterparty|account payee|contragerekening|kontonummer gegenkonto|"
     "auftraggeber iban|compte partie adverse|gegenkontonummer|gegenkonto nummer|"
     "gegenkonto nr|counterparty account no|"},
    // Banks, and what else goes with an account.
    {ColumnRole::OtherAccount, 1,
     "bic|bic swift code|swift|swift bic|bic zahlungsbeteiligter|blz|bankleitzahl|"
     "bank code|sort code|bic des partners|bic contrepartie|bic tegenpartij|kod banky|"
     "nazev banky|nazwa banku|对方开户行|account owner|bank|bank name|funding source|"
     "destination|"},
    {ColumnRole::Status, 0,
     "status|state|transaction status|transactionstatus|zustand|buchungsstatus|statut|etat|"
     "estado|stato|stan|stav|tila|交易状态|статус|pending|is pending|betaalstatus|umsatzstatus|"
     "status transakcji|stav transakce|payment status|当前状态|booking status|info|"
     "transaktionsstatus|статус операции|situacao|estado da transacao|"},
    {ColumnRole::Ignored, 0,
     "time|uhrzeit|zeit|heure|hora|ora|tid|klockslag|kellonaika|godzina|cas|时间|交易时刻|time "
     "zone|"
     "timezone|zeitzone|tz|timezone offset|cleared|flag|reconciled|item|item no|line|line no|"
     "row|no|nr|序号|lp|l p|poradi|sequence|seq|номер|year|month|exported|excluded|exclude|"
     "product|produkt|produit|number|番号|№|sr no|s no|sl no|serial no|day|weekday|wochentag|"},
});

}  // namespace clb
