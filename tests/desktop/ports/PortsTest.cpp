#include <gtest/gtest.h>

#include <QCursor>
#include <QGuiApplication>

#include "desktop/ports/DateFormPort.h"
#include "desktop/ports/FileDialogPort.h"
#include "desktop/ports/PointerPort.h"

namespace clb {
namespace {

TEST(DateFormTest, DatesShowInTheLocalesShortFormWithAWholeYear)
{
    const Date day = *Date::Of(2006, 3, 5);

    EXPECT_EQ(DateFormPort(QLocale("de_DE")).Format(day), "05.03.2006");
    EXPECT_EQ(DateFormPort(QLocale("en_US")).Format(day), "3/5/2006");
    EXPECT_EQ(DateFormPort(QLocale("en_US")).Format(*Date::Of(1926, 3, 5)), "3/5/1926");
}

TEST(DateFormTest, WhatIsShownIsAlsoRead)
{
    const DateFormPort form(QLocale("de_DE"));

    EXPECT_EQ(form.Read("05.03.2006"), Date::Of(2006, 3, 5));
    EXPECT_EQ(form.Read(form.Format(*Date::Of(2006, 3, 5, 12, 30))), Date::Of(2006, 3, 5, 12, 30));
}

TEST(DateFormTest, TheIsoFormIsReadInAnyLocaleAndOtherTextsAreNot)
{
    const DateFormPort form(QLocale("en_US"));

    EXPECT_EQ(form.Read("2006-03-05"), Date::Of(2006, 3, 5));
    EXPECT_EQ(form.Read("31/31/2006"), std::nullopt);
    EXPECT_EQ(form.Read("soon"), std::nullopt);
}

TEST(FileDialogTest, AFiltersPairsBecomeTheDialogsFiltersInBothCases)
{
    EXPECT_EQ(FileDialogPort::NameFilters("All Files (*.*)|*.*|"),
              (QStringList{"All Files (*.*)"}));
    EXPECT_EQ(FileDialogPort::NameFilters("Money files|*.ofx;*.qif|All|*.*|"),
              (QStringList{"Money files (*.ofx *.OFX *.qif *.QIF)", "All (*.*)"}));
}

TEST(PointerTest, TheHourglassIsTheWaitCursorOfTheWholeProgram)
{
    PointerPort port;

    port.Pointer(pointer::Hourglass);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    {
        const PlainPointer plain;
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    }
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);

    port.Pointer(pointer::Default);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(port.Pointer(), pointer::Default);
}

}  // namespace
}  // namespace clb
