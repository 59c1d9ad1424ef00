#include <gtest/gtest.h>

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <algorithm>
#include <vector>

#include "desktop/forms/LongText.h"
#include "desktop/forms/LongTextView.h"
#include "desktop/ports/MessageBoxPort.h"

namespace clb {
namespace {

TEST(LongTextTest, LinesAreCutAtTheWidthAndAtTheirEnds)
{
    LongText text("abcdefgh\r\nij\n\nklmno");
    text.Wrap(5);

    ASSERT_EQ(text.LineCount(), 5);
    EXPECT_EQ(text.Line(0), u"abcde");
    EXPECT_EQ(text.Line(1).toString().trimmed(), "fgh");
    EXPECT_EQ(text.Line(2), u"ij");
    EXPECT_EQ(text.Line(3), u"");
    EXPECT_EQ(text.Line(4), u"klmno");
    EXPECT_EQ(text.Line(5), u"");
}

TEST(LongTextTest, ALineThatFillsTheWidthExactlyLeavesNoEmptyLineAfterIt)
{
    LongText text("abcde\r\nfghij\nk");
    text.Wrap(5);

    ASSERT_EQ(text.LineCount(), 3);
    EXPECT_EQ(text.Line(1), u"fghij");
}

TEST(LongTextTest, NoCharacterIsCutInTwo)
{
    LongText text(QString::fromUcs4(U"abc\U0001F600def"));
    text.Wrap(4);

    EXPECT_EQ(text.Line(0), u"abc");
    EXPECT_EQ(text.Line(1), QStringView(QString::fromUcs4(U"\U0001F600de")));
}

TEST(LongTextTest, EveryLineOfAHugeTextIsFoundFromARememberedPlace)
{
    QString lines;
    for (int line = 0; line < 1000; ++line)
        lines += QStringLiteral("line %1\n").arg(line);
    LongText text(lines);
    text.Wrap(80);

    ASSERT_EQ(text.LineCount(), 1000);
    EXPECT_EQ(text.Line(255), u"line 255");
    EXPECT_EQ(text.Line(256), u"line 256");
    EXPECT_EQ(text.Line(999), u"line 999");
}

TEST(MessageBoxTest, AShortTextIsShownInAPlainBoxWithItsIconTitleAndButtons)
{
    const auto box = MessageBoxPort::Build("Are you sure?", box_style::YesNo | box_style::Question,
                                           "Corvane Ledgerbook");

    auto* plain = qobject_cast<QMessageBox*>(box.get());
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(plain->text(), "Are you sure?");
    EXPECT_FALSE(plain->iconPixmap().isNull());
    EXPECT_EQ(plain->windowTitle(), "Corvane Ledgerbook");
    EXPECT_EQ(plain->standardButtons(), QMessageBox::Yes | QMessageBox::No);
}

TEST(MessageBoxTest, EachKindOfMessageHasItsOwnIcon)
{
    std::vector<QImage> seen;
    for (const std::int32_t style : {box_style::Critical, box_style::Question,
                                     box_style::Exclamation, box_style::Information}) {
        const auto box = MessageBoxPort::Build("Text", style, "Title");
        const QImage icon = qobject_cast<QMessageBox*>(box.get())->iconPixmap().toImage();
        EXPECT_FALSE(icon.isNull());
        EXPECT_EQ(std::count(seen.begin(), seen.end(), icon), 0);
        seen.push_back(icon);
    }
}

TEST(MessageBoxTest, MarkupInATextIsShownAsText)
{
    const auto box = MessageBoxPort::Build("<OFX>", box_style::Exclamation, "Title");

    EXPECT_EQ(qobject_cast<QMessageBox*>(box.get())->textFormat(), Qt::PlainText);
}

TEST(MessageBoxTest, AWholeFileIsShownInAScrollingViewNoHigherThanTheScreen)
{
    const std::string file(25U << 20, 'x');

    const auto box = MessageBoxPort::Build(file, box_style::Exclamation, "Corvane Ledgerbook");
    box->show();

    const auto* view = box->findChild<QAbstractScrollArea*>();
    ASSERT_NE(dynamic_cast<const LongTextView*>(view), nullptr);
    EXPECT_EQ(static_cast<const LongTextView*>(view)->Text().Text().size(), 25 << 20);
    for (const QLabel* label : box->findChildren<QLabel*>())
        EXPECT_TRUE(label->text().isEmpty());
    EXPECT_LE(box->height(), box->screen()->availableSize().height());
}

TEST(MessageBoxTest, TheButtonsOfALongTextCloseItWithTheirNumber)
{
    const auto box = MessageBoxPort::Build(std::string(5000, 'x'), box_style::YesNo, "Title");
    box->show();

    for (QPushButton* button : box->findChildren<QPushButton*>())
        if (button->text().contains("Yes"))
            QTest::mouseClick(button, Qt::LeftButton);

    EXPECT_FALSE(box->isVisible());
    EXPECT_EQ(box->result(), QMessageBox::Yes);
}

}  // namespace
}  // namespace clb
