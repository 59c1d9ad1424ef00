#include "statements/form/CurrencyMarks.h"

#include <algorithm>
#include <array>

#include "statements/form/TextScan.h"

namespace clb {
namespace {

constexpr std::string_view kCodes =
    " AED AFN ALL AMD ANG AOA ARS AUD AWG AZN BAM BBD BDT BGN BHD BIF BMD BND BOB BRL BSD BTN BWP"
    " BYN BYR BZD CAD CDF CHF CLF CLP CNH CNY COP CRC CUC CUP CVE CZK DEM DJF DKK DOP DZD EGP ERN"
    " ESP ETB EUR FIM FJD FKP FRF GBP GEL GHS GIP GMD GNF GTQ GYD HKD HNL HRK HTG HUF IDR IEP ILS"
    " INR IQD IRR ISK ITL JMD JOD JPY KES KGS KHR KMF KPW KRW KWD KYD KZT LAK LBP LKR LRD LSL LTL"
    " LVL LYD MAD MDL MGA MKD MMK MNT MOP MRU MUR MVR MWK MXN MYR MZN NAD NGN NIO NLG NOK NPR NZD"
    " OMR PAB PEN PGK PHP PKR PLN PTE PYG QAR RMB RON RSD RUB RUR RWF SAR SBD SCR SDG SEK SGD SHP"
    " SLE SLL SOS SRD SSP STN SVC SYP SZL THB TJS TMT TND TOP TRL TRY TTD TWD TZS UAH UGX USD UYU"
    " UZS VES VND VUV WST XAF XCD XOF XPF YER ZAR ZMW ZWL ATS BEF ";

struct Mark {
    std::string_view word;  ///< in small letters of ASCII, without a dot at its end
    std::string_view code;  ///< empty if several currencies use it
};

constexpr std::array kMarks = {
    Mark{"€", "EUR"},      Mark{"£", "GBP"},      Mark{"₹", "INR"},    Mark{"₺", "TRY"},
    Mark{"₽", "RUB"},    Mark{"₪", "ILS"},      Mark{"₩", "KRW"},    Mark{"₴", "UAH"},
    Mark{"₫", "VND"},      Mark{"₦", "NGN"},      Mark{"₱", "PHP"},    Mark{"฿", "THB"},
    Mark{"₸", "KZT"},      Mark{"us$", "USD"},    Mark{"$us", "USD"},  Mark{"a$", "AUD"},
    Mark{"au$", "AUD"},    Mark{"c$", "CAD"},     Mark{"ca$", "CAD"},  Mark{"r$", "BRL"},
    Mark{"hk$", "HKD"},    Mark{"nt$", "TWD"},    Mark{"nz$", "NZD"},  Mark{"s$", "SGD"},
    Mark{"mx$", "MXN"},    Mark{"kč", "CZK"},     Mark{"kc", "CZK"},   Mark{"zł", "PLN"},
    Mark{"zl", "PLN"},     Mark{"ft", "HUF"},     Mark{"rs", ""},      Mark{"r", "ZAR"},
    Mark{"kr", ""},        Mark{"fr", "CHF"},     Mark{"sfr", "CHF"},  Mark{"lei", "RON"},
    Mark{"lt", "LTL"},     Mark{"ls", "LVL"},     Mark{"lv", "BGN"},   Mark{"лв", "BGN"},
    Mark{"din", "RSD"},    Mark{"дин", "RSD"},    Mark{"km", "BAM"},   Mark{"kn", "HRK"},
    Mark{"руб", "RUB"},    Mark{"р", "RUB"},      Mark{"грн", "UAH"},  Mark{"ден", "MKD"},
    Mark{"тг", "KZT"},     Mark{"tl", "TRY"},     Mark{"rm", "MYR"},   Mark{"rp", "IDR"},
    Mark{"s/", "PEN"},     Mark{"b/", "PAB"},     Mark{"ksh", "KES"},  Mark{"元", "CNY"},
    Mark{"圆", "CNY"},     Mark{"円", "JPY"},     Mark{"원", "KRW"},   Mark{"ש\"ח", "ILS"},
    Mark{"د.ا", "JOD"},    Mark{"د.إ", "AED"},    Mark{"ر.س", "SAR"},  Mark{"د.ك", "KWD"},
    Mark{"د.ب", "BHD"},    Mark{"ر.ع", "OMR"},    Mark{"ر.ق", "QAR"},  Mark{"ج.م", "EGP"},
    Mark{"د.م", "MAD"},    Mark{"د.ت", "TND"},    Mark{"د.ج", "DZD"},  Mark{"ل.ل", "LBP"},
    Mark{"人民币", "CNY"}, Mark{"人民幣", "CNY"}, Mark{"euro", "EUR"}, Mark{"euros", "EUR"},
    Mark{"港币", "HKD"},   Mark{"美元", "USD"},   Mark{"欧元", "EUR"}, Mark{"日元", "JPY"},
    Mark{"英镑", "GBP"},   Mark{"сўм", "UZS"},    Mark{"eur", "EUR"},  Mark{"usd", "USD"},
    Mark{"gbp", "GBP"},    Mark{"chf", "CHF"},    Mark{"pln", "PLN"},  Mark{"czk", "CZK"},
    Mark{"sek", "SEK"},    Mark{"nok", "NOK"},    Mark{"dkk", "DKK"},  Mark{"huf", "HUF"},
};

std::string Folded(std::string_view mark)
{
    while (!mark.empty() && mark.back() == '.')
        mark.remove_suffix(1);
    std::string folded(mark);
    for (char& c : folded)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c | 0x20);
    return folded;
}

const Mark* Find(std::string_view mark)
{
    const std::string folded = Folded(mark);
    const auto* const found =
        std::find_if(kMarks.begin(), kMarks.end(),
                     [&folded](const Mark& known) { return known.word == folded; });
    return found == kMarks.end() ? nullptr : &*found;
}

/// Whether it is one sign with no more than three letters of ASCII around it.
bool IsSignWithLetters(std::string_view word)
{
    std::size_t signs = 0;
    std::size_t letters = 0;
    while (!word.empty()) {
        const ScannedChar next = FirstChar(word);
        if (IsCurrencySign(next.code))
            ++signs;
        else if (IsAsciiLetter(next.code))
            ++letters;
        else
            return false;
        word.remove_prefix(next.size);
    }
    return signs == 1 && letters <= 3;
}

}  // namespace

bool IsCurrencyCode(std::string_view text)
{
    return text.size() == 3 && text.find(' ') == std::string_view::npos &&
           kCodes.find(text) != std::string_view::npos;
}

bool IsCurrencySign(char32_t code)
{
    return code == U'$' || (code >= 0xA2 && code <= 0xA5) || code == 0x58F || code == 0x60B ||
           code == 0xE3F || code == 0x17DB || (code >= 0x20A0 && code <= 0x20CF) ||
           code == 0xFDFC || code == 0xFF04 || (code >= 0xFFE0 && code <= 0xFFE6);
}

bool IsCurrencyMark(std::string_view word)
{
    if (word.empty() || word.size() > 16)
        return false;
    return IsCurrencyCode(word) || IsSignWithLetters(word) || Find(word) != nullptr;
}

std::string CurrencyOf(std::string_view mark)
{
    if (mark == "RMB")
        return "CNY";
    if (mark == "RUR")
        return "RUB";
    if (IsCurrencyCode(mark))
        return std::string(mark);
    const Mark* const known = mark.size() > 16 ? nullptr : Find(mark);
    return known == nullptr ? std::string() : std::string(known->code);
}

}  // namespace clb
