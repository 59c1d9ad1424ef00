#include <QApplication>
#include <QPixmap>
#include <QStyle>
#include <QToolTip>

#include "desktop/grid/CellEditor.h"
#include "desktop/look/Appearance.h"
#include "desktop/look/GridColors.h"
#include "desktop/look/Icons.h"
#include "ports/IMessageBox.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

QPalette Dark()
{
    QPalette palette;
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::AlternateBase})
        palette.setColor(role, QColor(0x1e, 0x20, 0x22));
    palette.setColor(QPalette::Button, QColor(0x31, 0x36, 0x3b));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, QColor(0xf0, 0xf0, 0xf0));
    palette.setColor(QPalette::Highlight, QColor(0x2a, 0x6f, 0xb5));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x00, 0x00, 0xff));
    return palette;
}

/// Gives the application the desktop's light or dark colours during a test.
class Colors {
public:
    explicit Colors(bool dark) : before_(QApplication::palette())
    {
        QApplication::setPalette(dark ? Dark() : before_);
    }
    ~Colors() { QApplication::setPalette(before_); }

private:
    QPalette before_;
};

/// The contrast of the picture's most visible pixel with the background.
double BestContrast(const QImage& picture, const QColor& ground)
{
    double best = 1;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            best = std::max(best, Contrast(Mix(pixel, ground, pixel.alphaF()), ground));
        }
    return best;
}

class LooksTest : public WindowTest, public testing::WithParamInterface<bool> {
protected:
    Colors colors_{GetParam()};
    Appearance appearance_;

    static QColor Ground() { return QApplication::palette().color(QPalette::Window); }
    static QImage Picture(const QIcon& icon, QIcon::Mode mode = QIcon::Normal)
    {
        return icon.pixmap(QSize(22, 22), 1.0, mode).toImage();
    }
};

TEST_P(LooksTest, EveryCommandHasAPictureThatStandsOutFromItsBackground)
{
    int commands = 0;
    for (const QAction* menu : window_.menuBar()->actions())
        for (const QAction* line : menu->menu()->actions()) {
            if (line->isSeparator())
                continue;
            ++commands;
            ASSERT_FALSE(line->icon().isNull()) << line->text().toStdString();
            EXPECT_GE(BestContrast(Picture(line->icon()), Ground()), 3.0)
                << line->text().toStdString();
        }
    EXPECT_EQ(commands, 19);
    for (const char* key : {"New", "Delete", "Link", "Back", "Forward"})
        EXPECT_GE(BestContrast(Picture(ToolbarWidget(window_).Action(key)->icon()), Ground()), 3.0)
            << key;
}

TEST_P(LooksTest, SelectionsAreLegible)
{
    const QPalette now = QApplication::palette();

    EXPECT_GE(Contrast(now.color(QPalette::Highlight), now.color(QPalette::HighlightedText)), 4.5);
}

TEST_P(LooksTest, ThePictureOfTheCurrentMenuLineStandsOutFromTheHighlight)
{
    ASSERT_EQ(QApplication::style()->name(), "fusion");
    const QColor highlight = QApplication::palette().color(QPalette::Highlight);

    const QImage picture = Picture(MenuAction("mnuF_Import")->icon(), QIcon::Active);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, y).alpha() == 255) {
                EXPECT_GE(Contrast(picture.pixelColor(x, y), highlight), 3.0);
            }
    // A button of the toolbar keeps its colours below the pointer.
    const QIcon button = icons::Command("import");
    EXPECT_EQ(Picture(button, QIcon::Active), Picture(button));
}

/// Symptom: white text on white in every other row of lists, and in the heading of the calendar.
TEST_P(LooksTest, EveryOtherRowIsLegibleIfTheDesktopDoesNotNameItsColour)
{
    QPalette unnamed = QApplication::palette();
    unnamed.setColor(QPalette::AlternateBase, unnamed.color(QPalette::Text));

    QApplication::setPalette(unnamed);
    QTest::qWait(1);

    const QPalette now = QApplication::palette();
    EXPECT_GE(Contrast(now.color(QPalette::AlternateBase), now.color(QPalette::Text)), 4.5);
}

TEST_P(LooksTest, ThePicturesOfTheTreeStandOutFromItsGround)
{
    const QColor ground = QApplication::palette().color(QPalette::Base);
    for (const int image : {6, 7})
        EXPECT_GE(BestContrast(Picture(icons::TreeImage(image)), ground), 4.5) << image;
    for (const char* type : {"Bank", "Cash", "Credit Card", "Investment", "Loan"}) {
        ASSERT_FALSE(icons::Account(type).isNull()) << type;
        EXPECT_GE(BestContrast(Picture(icons::Account(type)), ground), 4.5) << type;
    }
    EXPECT_TRUE(icons::Account("Savings").isNull());
}

TEST_P(LooksTest, ASelectedLineOfTheTreeIsLegible)
{
    TreeBinder& tree = TreeWidget(window_);
    tree.setFocus();
    const QImage picture = tree.viewport()->grab().toImage();
    const QRect line = tree.visualItemRect(tree.currentItem());
    const QPoint free =
        (QPointF(line.center().x(), line.top() + 2) * picture.devicePixelRatio()).toPoint();

    EXPECT_GE(Contrast(picture.pixelColor(free),
                       QApplication::palette().color(QPalette::HighlightedText)),
              4.5);
}

TEST_P(LooksTest, TheFourKindsOfMessageHaveAPictureEach)
{
    for (const auto style :
         {box_style::Critical, box_style::Question, box_style::Exclamation, box_style::Information})
        EXPECT_GE(BestContrast(Picture(icons::Message(style)), Ground()), 3.0) << style;
}

TEST_P(LooksTest, ADisabledCommandsPictureIsFaint)
{
    const QIcon icon = icons::Command("delete");

    EXPECT_LT(BestContrast(Picture(icon, QIcon::Disabled), Ground()),
              BestContrast(Picture(icon), Ground()));
}

TEST_P(LooksTest, PicturesAreDrawnInTheDevicesOwnPixels)
{
    const QPixmap picture = icons::Command("new").pixmap(QSize(20, 20), 3.0);

    EXPECT_EQ(picture.size(), QSize(60, 60));
    EXPECT_EQ(picture.deviceIndependentSize(), QSizeF(20, 20));
    // A picture that is enlarged afterwards has soft edges. The page's straight left edge must be
    // sharp.
    const QImage image = picture.toImage();
    int soft = 0;
    for (int x = 0; x < 30; ++x) {
        const int alpha = image.pixelColor(x, 30).alpha();
        soft += alpha != 0 && alpha != 255 ? 1 : 0;
    }
    EXPECT_LE(soft, 2);
}

TEST_P(LooksTest, TextsOfTheGridStandOutFromEveryBackground)
{
    const GridColors colors(QApplication::palette());

    for (const QColor& ground : {colors.base, colors.alternate, colors.header, colors.group,
                                 colors.currentRow, colors.currentCell}) {
        EXPECT_GE(Contrast(colors.text, ground), 4.5) << ground.name().toStdString();
        EXPECT_GE(Contrast(colors.negative, ground), 4.5) << ground.name().toStdString();
    }
    EXPECT_GE(Contrast(colors.dimText, colors.base), 4.5);
    EXPECT_GE(Contrast(colors.link, colors.base), 4.5);
    EXPECT_GE(Contrast(colors.accent, colors.base), 3.0);
}

TEST_P(LooksTest, LinksAndTipsFollowTheDesktop)
{
    const QPalette now = QApplication::palette();
    const QPalette tips = QToolTip::palette();

    EXPECT_GE(Contrast(now.color(QPalette::Link), Ground()), 4.5);
    EXPECT_GE(Contrast(tips.color(QPalette::ToolTipText), tips.color(QPalette::ToolTipBase)), 4.5);
    EXPECT_EQ(Contrast(tips.color(QPalette::ToolTipBase), Qt::white) > 4.5, GetParam());
}

TEST_P(LooksTest, TheGridIsPaintedAgainWhenTheDesktopChangesItsColours)
{
    ClickNode("Checking");
    const auto corner = [this] {
        QWidget& area = *GridWidget(window_).viewport();
        return area.grab().toImage().pixelColor(area.width() - 30, area.height() - 10);
    };
    EXPECT_EQ(corner(), QApplication::palette().color(QPalette::Base));

    const Colors other(!GetParam());
    QTest::qWait(1);

    EXPECT_EQ(corner(), QApplication::palette().color(QPalette::Base));
}

TEST_P(LooksTest, TheReasonOfARefusalIsReadableAfterTheDesktopChangesItsColours)
{
    ClickNode("Checking");
    ClickCell(1, 3);
    QTest::keyClicks(&GridWidget(window_), "much");
    QTest::keyClick(&GridWidget(window_).Editor().Line(), Qt::Key_Return);
    const QLabel& reason = GridWidget(window_).Editor().Hint();
    ASSERT_TRUE(reason.isVisible());
    const auto contrast = [&reason] {
        return Contrast(reason.palette().color(QPalette::WindowText),
                        reason.palette().color(QPalette::Window));
    };
    EXPECT_GE(contrast(), 4.5);

    const Colors other(!GetParam());
    QTest::qWait(1);

    EXPECT_GE(contrast(), 4.5);
    EXPECT_EQ(reason.palette().color(QPalette::WindowText),
              QApplication::palette().color(QPalette::Text));
}

TEST_P(LooksTest, TheTreeShowsWhetherItHasTheFocus)
{
    ClickNode("Purse");
    TreeBinder& tree = TreeWidget(window_);
    const auto picture = [&tree] {
        return tree.viewport()->grab(tree.visualItemRect(tree.currentItem())).toImage();
    };
    const QImage focused = picture();

    ClickCell(1, 1);

    EXPECT_NE(picture(), focused);
}

TEST_P(LooksTest, AToolbarWithoutRoomForItsTextsShowsEveryPicture)
{
    window_.InnerSize(1000, 500);
    QWidget* forward = ToolbarWidget(window_).ButtonOf("Forward");
    const int full = forward->width();

    window_.InnerSize(480, 400);
    QTest::qWait(1);

    for (const char* key : {"New", "Delete", "Link", "Back", "Forward"})
        EXPECT_TRUE(ToolbarWidget(window_).ButtonOf(key)->isVisible()) << key;
    EXPECT_LT(forward->width(), full);
    EXPECT_GE(forward->width(), forward->sizeHint().width());

    window_.InnerSize(1000, 500);
    QTest::qWait(1);
    EXPECT_EQ(forward->width(), full);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, LooksTest, testing::Bool(),
                         [](const auto& which) { return which.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace clb
