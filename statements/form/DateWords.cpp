#include "statements/form/DateWords.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <string>

#include "statements/form/TextScan.h"

namespace clb {
namespace {

constexpr std::size_t kLongestWord = 40;

// Small letters without accents; a line a language. Short forms that two languages give to
// different months are left out.
constexpr std::array<std::string_view, 12> kMonths = {
    "january jan januar janner jan jaenner janvier janv januari enero ene gennaio gen janeiro "
    "tammikuu tammikuuta tammi styczen stycznia sty leden ledna led january ocak oca "
    "январь января янв",
    "february feb februar feber fevrier fevr fev februari febrero febbraio febr fevereiro "
    "helmikuu helmikuuta helmi luty lutego lut unor unora uno subat sub februar "
    "февраль февраля фев",
    "march mar marz maerz mrz mars maart mrt marzo marco maaliskuu maaliskuuta maalis marzec marca "
    "brezen brezna bre mart marts marcius marc март марта мар",
    "april apr avril avr abril abr aprile huhtikuu huhtikuuta huhti kwiecien kwietnia kwi duben "
    "dubna dub nisan nis aprilis апрель апреля апр",
    "may mai mei mayo maggio mag maio maj toukokuu toukokuuta touko maja kveten kvetna kve mayis "
    "majus май мая",
    "june jun juni juin junio giugno giu junho kesakuu kesakuuta kesa czerwiec czerwca cze cerven "
    "cervna cvn haziran haz junius jun июнь июня июн",
    "july jul juli juillet juil julio luglio lug julho heinakuu heinakuuta heina lipiec lipca lip "
    "cervenec cervence cvc temmuz tem julius июль июля июл",
    "august aug aout aou augustus agosto ago augusti elokuu elokuuta elo sierpien sierpnia sie "
    "srpen srpna srp agustos agu augusztus август августа авг",
    "september sep sept septembre septiembre settembre set setembro syyskuu syyskuuta syys "
    "wrzesien wrzesnia wrz zari zar eylul eyl szeptember szept сентябрь сентября сен сент",
    "october oct oktober okt octobre octubre ottobre ott outubro out lokakuu lokakuuta loka "
    "pazdziernik pazdziernika paz rijen rijna rij ekim eki октябрь октября окт",
    "november nov novembre noviembre novembro marraskuu marraskuuta marras listopad listopada "
    "listopadu lis "
    "kasim kas ноябрь ноября ноя нояб",
    "december dec dezember dez decembre diciembre dic dicembre dezembro desember des joulukuu "
    "joulukuuta joulu grudzien grudnia gru prosinec prosince pro aralik ara декабрь декабря дек",
};

// From Sunday on.
constexpr std::array<std::string_view, 7> kWeekdays = {
    "sunday sun su sonntag so son dimanche dim zondag zo zon domingo dom domenica sondag sun "
    "sunnuntai su niedziela niedz nd ndz nie nedele ne ned воскресенье вс 日 日曜日 星期日 周日",
    "monday mon mo montag lundi lun maandag ma maa lunes lunedi mandag man mandag maanantai "
    "poniedzialek pon pn pondeli po segunda seg понедельник пн 月 月曜日 星期一 周一",
    "tuesday tue tu tues dienstag di die mardi mar dinsdag din martes martedi tisdag tis tirsdag "
    "tir ti tiistai wtorek wt wto utery ut terca ter вторник вт 火 火曜日 星期二 周二",
    "wednesday wed we mittwoch mi mit mercredi mer woensdag wo woe miercoles mie mercoledi onsdag "
    "ons on keskiviikko ke sroda sr sro streda st quarta qua среда ср 水 水曜日 星期三 周三",
    "thursday thu th thur thurs donnerstag do don jeudi jeu donderdag jueves jue giovedi gio "
    "torsdag tor to tors torstai czwartek czw czwa ctvrtek ct quinta qui четверг чт 木 木曜日 "
    "星期四 周四",
    "friday fri fr freitag fre vendredi ven vrijdag vr vrij viernes vie venerdi fredag perjantai "
    "pe piatek pt pia patek pa sexta sex пятница пт 金 金曜日 星期五 周五",
    "saturday sat sa samstag sam sonnabend samedi zaterdag za zat sabado sab sabato lordag lor "
    "lauantai la sobota sob so суббота сб 土 土曜日 星期六 周六",
};

using Words = std::map<std::string, unsigned, std::less<>>;

template <std::size_t Count>
Words WordsOf(const std::array<std::string_view, Count>& lists)
{
    Words words;
    for (std::size_t i = 0; i < Count; ++i)
        for (std::string_view list = lists[i]; !list.empty();) {
            const std::size_t end = std::min(list.find(' '), list.size());
            words[std::string(list.substr(0, end))] |= 1U << i;
            list.remove_prefix(std::min(end + 1, list.size()));
        }
    return words;
}

unsigned Find(const Words& words, std::string_view word)
{
    if (word.empty() || word.size() > kLongestWord)
        return 0;
    const auto found = words.find(FoldText(word));
    return found == words.end() ? 0 : found->second;
}

}  // namespace

std::uint16_t MonthsNamed(std::string_view word)
{
    static const Words words = WordsOf(kMonths);
    return static_cast<std::uint16_t>(Find(words, word));
}

std::uint8_t WeekdaysNamed(std::string_view word)
{
    static const Words words = WordsOf(kWeekdays);
    return static_cast<std::uint8_t>(Find(words, word));
}

}  // namespace clb
