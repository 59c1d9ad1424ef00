// Dates and amounts as people of different countries type them.
#include <gtest/gtest.h>

#include "controls/GridText.h"
#include "desktop/ports/DateFormPort.h"

namespace clb {
namespace {

/// The cells of a person with a locale. Today is 2026-11-22, and November 2026 is shown.
class Typist {
public:
    explicit Typist(const char* locale) : form_(QLocale(QLatin1String(locale))), texts_(form_) {}

    [[nodiscard]] std::string Date(const std::string& text) const { return Read(text, kDates); }
    [[nodiscard]] std::string Amount(const std::string& text) const { return Read(text, kAmounts); }
    [[nodiscard]] std::string HintOfDate(const std::string& text) const
    {
        return texts_.Understood(text, Column(kDates), Now());
    }
    [[nodiscard]] std::string HintOfAmount(const std::string& text) const
    {
        return texts_.Understood(text, Column(kAmounts), Now());
    }

private:
    static constexpr FieldType kDates = FieldType::Date;
    static constexpr FieldType kAmounts = FieldType::Money;

    static GridColumn Column(FieldType type)
    {
        GridColumn column;
        column.dataType = type;
        return column;
    }
    static DateContext Now() { return {Date::FromIso("2026-11-22").value(), {2026, 11}}; }
    [[nodiscard]] std::string Read(const std::string& text, FieldType type) const
    {
        const GridText::Reading reading = texts_.Read(text, Column(type), Now());
        if (!reading.value)
            return reading.refusal;
        const auto* date = std::get_if<clb::Date>(&*reading.value);
        return date ? date->ToIso() : ToText(*reading.value);
    }

    DateFormPort form_;
    GridText texts_;
};

TEST(TypedFormsTest, DatesThatMeanTheSameEverywhere)
{
    for (const char* locale : {"en_US", "de_DE", "en_GB", "fr_FR", "sv_SE", "ja_JP"}) {
        const Typist typist(locale);
        for (const char* text : {"3", "3.", "3.11.", "2026-11-3", "2026/11/03", "2026.11.3",
                                 "Nov 3", "3 nov", "Nov 3, 2026", "3 Nov 26", "3. November 2026"})
            EXPECT_EQ(typist.Date(text), "2026-11-03") << locale << " " << text;
        EXPECT_EQ(typist.Date("t"), "2026-11-22") << locale;
        EXPECT_EQ(typist.Date("today"), "2026-11-22") << locale;
    }
}

TEST(TypedFormsTest, DatesInTheOrderOfTheCountry)
{
    const Typist american("en_US");
    for (const char* text : {"11/3", "11-3", "11/3/26", "11/3/2026", "11-03-26", "11.3.26"})
        EXPECT_EQ(american.Date(text), "2026-11-03") << text;
    EXPECT_EQ(american.HintOfDate("11/3"), "11/3/2026");
    EXPECT_EQ(american.HintOfDate("11/3/2026"), "");

    for (const char* locale : {"de_DE", "en_GB", "fr_FR"}) {
        const Typist european(locale);
        for (const char* text :
             {"3/11", "3-11", "3.11", "03.11.26", "3.11.26", "3/11/26", "03/11/2026", "3.11.2026"})
            EXPECT_EQ(european.Date(text), "2026-11-03") << locale << " " << text;
    }
    EXPECT_EQ(Typist("de_DE").HintOfDate("3.11"), "03.11.2026");
    EXPECT_EQ(Typist("en_GB").HintOfDate("3-11"), "03/11/2026");
    EXPECT_EQ(Typist("sv_SE").Date("11-3"), "2026-11-03");
}

TEST(TypedFormsTest, DatesOfAnotherOrderAreRefusedWithTwoExamples)
{
    EXPECT_EQ(Typist("en_US").Date("22/11/2026"),
              "Please enter a date, for example 11/3/2026 or Nov 3.");
    EXPECT_EQ(Typist("de_DE").Date("11/22/2026"),
              "Please enter a date, for example 03.11.2026 or Nov 3.");
    EXPECT_EQ(Typist("en_GB").Date("11/22/2026"),
              "Please enter a date, for example 03/11/2026 or Nov 3.");
    for (const char* locale : {"en_US", "de_DE", "en_GB"})
        for (const char* text : {"31", "0", "31.11.", "2026-2-29", "tomorrow", "12:30"})
            EXPECT_NE(Typist(locale).Date(text).find("Please enter a date"), std::string::npos)
                << locale << " " << text;
}

TEST(TypedFormsTest, MonthsByTheirNamesInTheLanguageOfTheCountry)
{
    const Typist german("de_DE");
    EXPECT_EQ(german.Date("3. Dez"), "2026-12-03");
    EXPECT_EQ(german.Date("3. M\u00E4rz"), "2026-03-03");
    EXPECT_EQ(german.Date("3 Mai 26"), "2026-05-03");
    EXPECT_EQ(german.Date("3. dezember 2025"), "2025-12-03");
    EXPECT_EQ(Typist("fr_FR").Date("3 d\u00E9c"), "2026-12-03");
}

TEST(TypedFormsTest, AmountsInTheFormOfTheCountry)
{
    for (const char* locale : {"en_US", "en_GB"}) {
        const Typist english(locale);
        EXPECT_EQ(english.Amount("1,234.50"), "1234.5");
        EXPECT_EQ(english.Amount("1,234"), "1234");
        EXPECT_EQ(english.Amount("12.5"), "12.5");
        EXPECT_EQ(english.Amount("-12.50+3*2"), "-6.5");
        EXPECT_EQ(english.Amount("\u00A312.50"), "12.5");
    }
    const Typist german("de_DE");
    EXPECT_EQ(german.Amount("12,5"), "12.5");
    EXPECT_EQ(german.Amount("12,50"), "12.5");
    EXPECT_EQ(german.Amount("-1.234,50"), "-1234.5");
    EXPECT_EQ(german.Amount("1,234.50"), "1234.5");
    EXPECT_EQ(german.Amount("12.5"), "12.5");
    EXPECT_EQ(german.Amount("12,50+3*2"), "18.5");
    EXPECT_EQ(german.Amount("1.234,50-34,50"), "1200");
    EXPECT_EQ(german.Amount("12,50\u20AC"), "12.5");
    EXPECT_EQ(german.Amount("1,234"),
              "\"1,234\" can mean 1.234 or 1234. Please enter 1.2340 or 1234.");
    EXPECT_EQ(Typist("fr_FR").Amount("1\u202F234,50"), "1234.5");
    EXPECT_EQ(Typist("de_CH").Amount("1\u2019234.50"), "1234.5");
}

TEST(TypedFormsTest, AnAmountShowsWhatItWillBeWhereThatIsNotWhatItSays)
{
    const Typist german("de_DE");
    EXPECT_EQ(german.HintOfAmount("12,50"), "12.50");
    EXPECT_EQ(german.HintOfAmount("1.234,5"), "1,234.50");
    EXPECT_EQ(german.HintOfAmount("12,50*2"), "25.00");
    EXPECT_EQ(german.HintOfAmount("12.50"), "");
    EXPECT_EQ(Typist("en_US").HintOfAmount("12.50+3"), "15.50");
    EXPECT_EQ(Typist("en_US").HintOfAmount("1,234"), "");
}

}  // namespace
}  // namespace clb
