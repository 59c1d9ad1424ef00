#include <gtest/gtest.h>

#include "statements/form/DateTexts.h"

namespace clb {
namespace {

using DateText::Order;

std::string Read(std::string_view text, Order order = Order::DayMonthYear)
{
    const auto date = ReadDate(text, order);
    return date ? date->ToIso() : "none";
}

TEST(DateTextsTest, ReadsThreeNumbersInTheirOrder)
{
    EXPECT_EQ(Read("03.04.2021"), "2021-04-03");
    EXPECT_EQ(Read("3/4/2021"), "2021-04-03");
    EXPECT_EQ(Read("3-4-21"), "2021-04-03");
    EXPECT_EQ(Read("3. 4. 2021"), "2021-04-03");
    EXPECT_EQ(Read("3 4 2021"), "2021-04-03");
    EXPECT_EQ(Read("03/04/2021", Order::MonthDayYear), "2021-03-04");
    EXPECT_EQ(Read("21/03/04", Order::YearMonthDay), "2021-03-04");
    EXPECT_EQ(Read("1/15' 4", Order::MonthDayYear), "2004-01-15");
    EXPECT_EQ(Read("1/15'04", Order::MonthDayYear), "2004-01-15");
    EXPECT_EQ(Read(" 1/ 5/94", Order::MonthDayYear), "1994-01-05");
}

TEST(DateTextsTest, YearsOfTwoDigitsLieBetween1970And2069)
{
    EXPECT_EQ(Read("1.1.69"), "2069-01-01");
    EXPECT_EQ(Read("1.1.70"), "1970-01-01");
    EXPECT_EQ(Read("1.1.00"), "2000-01-01");
    EXPECT_EQ(Read("1.1.99"), "1999-01-01");
}

TEST(DateTextsTest, ReadsDigitsWithoutDividers)
{
    EXPECT_EQ(Read("20210304"), "none");
    EXPECT_EQ(Read("20210304", Order::YearMonthDay), "2021-03-04");
    EXPECT_EQ(Read("04032021"), "2021-03-04");
    EXPECT_EQ(Read("03042021", Order::MonthDayYear), "2021-03-04");
    EXPECT_EQ(Read("210304", Order::YearMonthDay), "2021-03-04");
    EXPECT_EQ(Read("040321"), "2021-03-04");
    EXPECT_EQ(Read("20210304120000", Order::YearMonthDay), "2021-03-04");
    EXPECT_EQ(Read("202103041200", Order::YearMonthDay), "2021-03-04");
    EXPECT_EQ(Read("20210304120000.000[-5:EST]", Order::YearMonthDay), "2021-03-04");
    EXPECT_EQ(Read("20210304 120000", Order::YearMonthDay), "2021-03-04");
}

TEST(DateTextsTest, AYearOfFourDigitsInFrontIsReadInAnyOrder)
{
    for (const Order order : {Order::DayMonthYear, Order::MonthDayYear, Order::YearMonthDay})
        for (const char* text : {"2021-03-04", "2021/3/4", "2021.03.04.", "2021-03-04T12:00:00Z",
                                 "2021-03-04T12:00:00.123+01:00", "2021-03-04 23:59:59 +0000 UTC",
                                 "2021-03-04Z", "2021-03-04+01:00", "2021-03-04-12.30.15.123456",
                                 "2021年3月4日", "2021年03月04日 12时05分", "2021/03/04(木)",
                                 "\t2021-03-04 ", "2021-03-04, 12:05", "2021-03-04 12:05:01 PM"})
            EXPECT_EQ(Read(text, order), "2021-03-04") << text;
}

TEST(DateTextsTest, ReadsMonthsByNameInAnyOrder)
{
    for (const Order order : {Order::DayMonthYear, Order::MonthDayYear, Order::YearMonthDay})
        for (const char* text :
             {"3. März 2021", "March 3, 2021", "03-Mar-21", "3 MAR 2021", "03MAR2021", "03Mar21",
              "Mar 3, 2021 12:05:01 AM PST", "3rd of March 2021", "2021 March 3", "3 mars 2021"})
            EXPECT_EQ(Read(text, order), "2021-03-03") << text;
    EXPECT_EQ(Read("mer. 3 mars 2021"), "2021-03-03");
    EXPECT_EQ(Read("mar. 2 mars 2021"), "2021-03-02");
}

struct Language {
    const char* name;
    std::vector<const char*> full;
    std::vector<const char*> brief;
};

class MonthNamesTest : public testing::TestWithParam<Language> {};

TEST_P(MonthNamesTest, FullAndShortNamesAreRead)
{
    ASSERT_EQ(GetParam().full.size(), 12U);
    ASSERT_EQ(GetParam().brief.size(), 12U);
    for (std::size_t month = 0; month < 12; ++month)
        for (const char* name : {GetParam().full[month], GetParam().brief[month]}) {
            const std::string iso =
                std::string("2021-") + (month < 9 ? "0" : "") + std::to_string(month + 1) + "-07";
            EXPECT_EQ(Read("7. " + std::string(name) + " 2021"), iso) << name;
        }
}

INSTANTIATE_TEST_SUITE_P(
    OfBanks, MonthNamesTest,
    testing::Values(
        Language{
            "English",
            {"January", "February", "March", "April", "May", "June", "July", "August", "September",
             "October", "November", "December"},
            {"JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"}},
        Language{"German",
                 {"Januar", "Februar", "März", "April", "Mai", "Juni", "Juli", "August",
                  "September", "Oktober", "November", "Dezember"},
                 {"Jan.", "Feb.", "Mrz.", "Apr.", "Mai", "Jun.", "Jul.", "Aug.", "Sept.", "Okt.",
                  "Nov.", "Dez."}},
        Language{"French",
                 {"janvier", "février", "mars", "avril", "mai", "juin", "juillet", "août",
                  "septembre", "octobre", "novembre", "décembre"},
                 {"janv.", "févr.", "mars", "avr.", "mai", "juin", "juil.", "AOÛT", "sept.", "oct.",
                  "nov.", "déc."}},
        Language{
            "Dutch",
            {"januari", "februari", "maart", "april", "mei", "juni", "juli", "augustus",
             "september", "oktober", "november", "december"},
            {"jan", "feb", "mrt", "apr", "mei", "jun", "jul", "aug", "sep", "okt", "nov", "dec"}},
        Language{
            "Spanish",
            {"enero", "febrero", "marzo", "abril", "mayo", "junio", "julio", "agosto", "septiembre",
             "octubre", "noviembre", "diciembre"},
            {"ene", "feb", "mar", "abr", "may", "jun", "jul", "ago", "sep", "oct", "nov", "dic"}},
        Language{
            "Italian",
            {"gennaio", "febbraio", "marzo", "aprile", "maggio", "giugno", "luglio", "agosto",
             "settembre", "ottobre", "novembre", "dicembre"},
            {"gen", "feb", "mar", "apr", "mag", "giu", "lug", "ago", "set", "ott", "nov", "dic"}},
        Language{
            "Swedish",
            {"januari", "februari", "mars", "april", "maj", "juni", "juli", "augusti", "september",
             "oktober", "november", "december"},
            {"jan", "feb", "mar", "apr", "maj", "jun", "jul", "aug", "sep", "okt", "nov", "dec"}},
        Language{
            "Danish",
            {"januar", "februar", "marts", "april", "maj", "juni", "juli", "august", "september",
             "oktober", "november", "december"},
            {"jan", "feb", "mar", "apr", "maj", "jun", "jul", "aug", "sep", "okt", "nov", "dec"}},
        Language{
            "Norwegian",
            {"januar", "februar", "mars", "april", "mai", "juni", "juli", "august", "september",
             "oktober", "november", "desember"},
            {"jan", "feb", "mar", "apr", "mai", "jun", "jul", "aug", "sep", "okt", "nov", "des"}},
        Language{"Finnish",
                 {"tammikuu", "helmikuu", "maaliskuu", "huhtikuuta", "toukokuu", "kesäkuuta",
                  "heinäkuu", "elokuu", "syyskuu", "lokakuu", "marraskuu", "joulukuu"},
                 {"tammi", "helmi", "maalis", "huhti", "touko", "kesä", "heinä", "elo", "syys",
                  "loka", "marras", "joulu"}},
        Language{
            "Polish",
            {"stycznia", "lutego", "marca", "kwietnia", "maja", "czerwca", "lipca", "sierpnia",
             "września", "października", "listopada", "grudnia"},
            {"sty", "lut", "mar", "kwi", "maj", "cze", "lip", "sie", "wrz", "paź", "lis", "gru"}},
        Language{
            "Czech",
            {"ledna", "února", "března", "dubna", "května", "června", "července", "srpna", "září",
             "října", "listopadu", "prosince"},
            {"led", "úno", "bře", "dub", "kvě", "čvn", "čvc", "srp", "zář", "říj", "lis", "pro"}},
        Language{
            "Portuguese",
            {"janeiro", "fevereiro", "março", "abril", "maio", "junho", "julho", "agosto",
             "setembro", "outubro", "novembro", "dezembro"},
            {"jan", "fev", "mar", "abr", "mai", "jun", "jul", "ago", "set", "out", "nov", "dez"}},
        Language{
            "Russian",
            {"января", "февраля", "марта", "апреля", "мая", "июня", "июля", "августа", "сентября",
             "октября", "ноября", "декабря"},
            {"янв", "фев", "мар", "апр", "май", "июн", "июл", "авг", "сен", "окт", "ноя", "дек"}}),
    [](const auto& instance) { return instance.param.name; });

TEST(DateTextsTest, AWeekdayMustBeRight)
{
    EXPECT_EQ(Read("Wed 03/03/2021"), "2021-03-03");
    EXPECT_EQ(Read("Mittwoch, 3. März 2021"), "2021-03-03");
    EXPECT_EQ(Read("Mi, 03.03.2021"), "2021-03-03");
    EXPECT_EQ(Read("03.03.2021 (Mi)"), "2021-03-03");
    EXPECT_EQ(Read("Wed Mar 03 2021 12:05:00 GMT+0100 (CET)"), "2021-03-03");
    EXPECT_EQ(Read("Thu 03/03/2021"), "none");
    // 3 April 2021 was a Saturday, 4 March a Thursday.
    EXPECT_EQ(Read("Thu 03/04/2021"), "none");
    EXPECT_EQ(Read("Thu 03/04/2021", Order::MonthDayYear), "2021-03-04");
}

TEST(DateTextsTest, TimesAndZonesDoNotChangeTheDay)
{
    EXPECT_EQ(Read("3.3.2021 12:05"), "2021-03-03");
    EXPECT_EQ(Read("03.03.2021 / 12:05 Uhr"), "2021-03-03");
    EXPECT_EQ(Read("03/03/2021 11:59:59 PM"), "2021-03-03");
    EXPECT_EQ(Read("03/03/2021 12:05:00 p.m."), "2021-03-03");
    EXPECT_EQ(Read("03/03/2021 a las 12:05"), "2021-03-03");
    EXPECT_EQ(Read("03.03.2021 kl. 12.05"), "2021-03-03");
    EXPECT_EQ(Read("03.03.2021 23:30:00 America/New_York"), "2021-03-03");
}

TEST(DateTextsTest, RefusesOtherTexts)
{
    for (const char* text : {"",
                             " ",
                             "44258",
                             "1",
                             "3.3.",
                             "03/2021",
                             "March 2021",
                             "3 March",
                             "2021-03",
                             "3.3.2021x",
                             "x 3.3.2021",
                             "31.02.2021",
                             "00.01.2021",
                             "01.00.2021",
                             "1.1.1899",
                             "1.1.2200",
                             "1.1.21.5",
                             "12:05",
                             "3/3 12:05",
                             "3.3.2021 25:00",
                             "3.3.2021 12",
                             "3.3.2021 1234",
                             "12345678",
                             "-3.3.2021",
                             "3--3--2021",
                             "1.234,50",
                             "Gesamt",
                             "3.3.2021 - 31.3.2021",
                             "\xFF",
                             "3.3.\xFF",
                             "192.168.100.1",
                             "3.3.2021 a",
                             "3.3.2021 at"})
        for (const Order order : {Order::DayMonthYear, Order::MonthDayYear, Order::YearMonthDay})
            EXPECT_EQ(Read(text, order), "none") << text;
    EXPECT_EQ(Read(std::string(1'000'000, '1')), "none");
    EXPECT_EQ(Read(std::string(1'000'000, ' ') + "3.3.2021"), "none");
}

std::string Orders(const std::vector<const char*>& dates)
{
    DateOrders orders;
    for (const char* date : dates)
        orders.Add(date);
    std::string possible;
    for (const Order order : orders.Possible())
        possible += order == Order::DayMonthYear   ? "dmy "
                    : order == Order::MonthDayYear ? "mdy "
                                                   : "ymd ";
    return possible;
}

TEST(DateOrdersTest, ADayAboveTwelveSettlesTheOrder)
{
    EXPECT_EQ(Orders({"01/02/2021", "13/02/2021"}), "dmy ");
    EXPECT_EQ(Orders({"01/02/2021", "02/13/2021"}), "mdy ");
    EXPECT_EQ(Orders({"01/02/2021", "", "text", "02/13/2021"}), "mdy ");
}

TEST(DateOrdersTest, DatesThatMeanTheSameNeedNoOrder)
{
    EXPECT_EQ(Orders({"2021-03-04"}).size(), 4U);
    EXPECT_EQ(Orders({"3 March 2021", "04 May 2021"}).size(), 4U);
    EXPECT_EQ(Orders({"03/03/2021", "04/04/2021"}).size(), 4U);
    EXPECT_EQ(Orders({}), "");
}

TEST(DateOrdersTest, OneDateLeavesItOpen)
{
    EXPECT_EQ(Orders({"01/02/2021"}), "dmy mdy ");
    EXPECT_EQ(Orders({"210304"}), "dmy ymd ");
}

TEST(DateOrdersTest, SeveralDaysInOrderSettleIt)
{
    // Read as mdy they jump between January and December.
    EXPECT_EQ(Orders({"01/12/2020", "05/12/2020", "02/01/2021", "07/01/2021", "03/02/2021"}),
              "dmy ");
    EXPECT_EQ(Orders({"02/03/2021", "02/01/2021", "01/07/2021", "01/02/2021"}), "mdy ");
    // Two changes of the day are too few.
    EXPECT_EQ(Orders({"01/02/2021", "01/03/2021", "02/01/2021"}), "mdy dmy ");
    // Both rise; the likelier one is first.
    EXPECT_EQ(Orders({"01/02/2021", "02/02/2021", "03/02/2021", "04/02/2021"}), "dmy mdy ");
}

TEST(DateOrdersTest, AShortYearInFrontNeedsDaysThatLieCloserTogether)
{
    EXPECT_EQ(Orders({"13/05/21"}), "dmy ");
    EXPECT_EQ(Orders({"13.05.21", "14.05.21", "28.05.21"}), "dmy ");
    EXPECT_EQ(Orders({"21-05-13", "21-05-14", "21-05-28"}), "ymd ");
    EXPECT_EQ(Orders({"210513", "210514", "210528"}), "ymd ");
    EXPECT_EQ(Orders({"130521", "140521", "280521"}), "dmy ");
}

TEST(DateOrdersTest, PointsRuleOutTheMonthInFront)
{
    EXPECT_EQ(Orders({"01.02.2021", "03.02.2021"}), "dmy ");
    EXPECT_EQ(Orders({"01.02.2021", "03/02/2021"}), "dmy mdy ");
    EXPECT_EQ(Orders({"01.02.2021", "01.13.2021"}), "mdy ");
}

TEST(DateOrdersTest, WeekdaysSettleTheOrder)
{
    EXPECT_EQ(Orders({"Thu 03/04/2021"}), "mdy ");
    EXPECT_EQ(Orders({"Sat 03/04/2021"}), "dmy ");
}

TEST(DateOrdersTest, DatesThatContradictLeaveNone)
{
    DateOrders orders;
    orders.Add("13/02/2021");
    orders.Add("02/13/2021");
    orders.Add("Total");
    EXPECT_TRUE(orders.Possible().empty());
    EXPECT_EQ(orders.Unreadable(), 1U);
}

}  // namespace
}  // namespace clb
