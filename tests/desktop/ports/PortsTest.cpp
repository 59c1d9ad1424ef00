#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCursor>
#include <QFontDatabase>
#include <QGuiApplication>
#include <filesystem>

#include "desktop/look/TextConvert.h"
#include "desktop/look/TitleRoom.h"
#include "desktop/ports/DateFormPort.h"
#include "desktop/ports/FileDialogPort.h"
#include "desktop/ports/MessageBoxPort.h"
#include "desktop/ports/PointerPort.h"
#include "tests/support/TempFolder.h"

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

TEST(FileDialogTest, TheFirstFolderIsTheOneForDownloads)
{
    const TempFolder home;
    const TempFolder last;
    std::filesystem::create_directory(home.Path("Downloads"));
    const QByteArray before = qgetenv("HOME");
    qputenv("HOME", QByteArray::fromStdString(home.Path()));
    FileDialogPort dialogs;
    FileQuestion question;

    EXPECT_EQ(ToUtf8(dialogs.FolderFor(question)), home.Path("Downloads"));
    dialogs.LastFolder(ToQString(last.Path()));
    EXPECT_EQ(ToUtf8(dialogs.FolderFor(question)), last.Path());
    dialogs.LastFolder(ToQString(last.Path("gone")));
    EXPECT_EQ(ToUtf8(dialogs.FolderFor(question)), home.Path("Downloads"));
    question.folder = last.Path();
    EXPECT_EQ(ToUtf8(dialogs.FolderFor(question)), last.Path()) << "the question names one";
    question.folder.clear();
    std::filesystem::remove(home.Path("Downloads"));
    EXPECT_EQ(ToUtf8(dialogs.FolderFor(question)), home.Path());
    qputenv("HOME", before);
}

TEST(MessageBoxTest, TheTitleOfAShortBoxIsNotCut)
{
    const std::string title = "A title that is much longer than the text of its box is";
    const auto box = MessageBoxPort::Build("No.", box_style::Exclamation, title);
    box->show();

    EXPECT_GE(box->width(), TitleWidth(*box));
    const QFontMetrics font(QFontDatabase::systemFont(QFontDatabase::TitleFont));
    EXPECT_GT(TitleWidth(*box), font.horizontalAdvance(ToQString(title)) + 100);
}

TEST(MessageBoxTest, ItsButtonsHaveNoPictures)
{
    for (const std::string& text : {std::string("Delete it?"), std::string(5000, 'x')}) {
        const auto box = MessageBoxPort::Build(text, box_style::YesNo, "Title");
        for (const QAbstractButton* button : box->findChildren<QAbstractButton*>())
            EXPECT_TRUE(button->icon().isNull()) << button->text().toStdString();
    }
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
