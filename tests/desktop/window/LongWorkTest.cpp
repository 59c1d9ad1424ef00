// What a window shows and refuses while a long command runs.

#include <QApplication>
#include <QProgressBar>
#include <fstream>
#include <set>

#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

/// Remembers each value that the bar was painted with, and presses keys in between.
class BarWatcher : public QObject {
public:
    explicit BarWatcher(QProgressBar& bar) : bar_(bar) { bar.installEventFilter(this); }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            values.insert(bar_.value());
            if (whilePainted)
                whilePainted();
        }
        return false;
    }

    std::set<int> values;
    std::function<void()> whilePainted;

private:
    QProgressBar& bar_;
};

class LongWorkTest : public WindowTest {
protected:
    QProgressBar& Bar() { return *window_.findChild<QProgressBar*>(QStringLiteral("workBar")); }
    void Import(int transactions)
    {
        const std::string path = books_.folder.Path("long.ofx");
        std::ofstream file(path);
        file << "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n\r\n<OFX><ACCTID>C1</ACCTID>";
        for (int n = 0; n < transactions; ++n)
            file << "<STMTTRN><DTPOSTED>20060305<TRNAMT>-1<FITID>F" << n
                 << "<NAME>Shop</STMTTRN>\r\n";
        file << "</OFX>\r\n";
        file.close();
        books_.files.answers.push_back(path);
        events_.Run([this] { Model().menus.Find("mnuF_Import")->Press(); });
    }
};

TEST_F(LongWorkTest, TheBarMovesWhileAStatementIsRead)
{
    BarWatcher watcher(Bar());

    Import(60000);

    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans"), "60004");
    EXPECT_GT(watcher.values.size(), 3U);
    EXPECT_TRUE(Bar().isHidden());
}

TEST_F(LongWorkTest, WhatTheUserDoesMeanwhileIsDropped)
{
    BarWatcher watcher(Bar());
    const std::int32_t month = Model().View().Period();
    int keys = 0;
    watcher.whilePainted = [this, &keys] {
        ++keys;
        QCoreApplication::postEvent(&MonthWidget(window_),
                                    new QKeyEvent(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier));
        QCoreApplication::postEvent(&window_, new QCloseEvent);
    };

    Import(60000);
    watcher.whilePainted = nullptr;
    QTest::qWait(1);

    EXPECT_GT(keys, 3);
    EXPECT_EQ(Model().View().Period(), month);
    EXPECT_TRUE(Model().Loaded());
    EXPECT_TRUE(window_.isVisible());
}

TEST_F(LongWorkTest, ACancelledImportShowsNoBar)
{
    BarWatcher watcher(Bar());

    events_.Run([this] { Model().menus.Find("mnuF_Import")->Press(); });

    EXPECT_TRUE(watcher.values.empty());
    EXPECT_TRUE(Bar().isHidden());
}

TEST_F(LongWorkTest, QuotesNameTheSymbolThatIsAskedFor)
{
    for (const char* symbol : {"ACME", "BOLT"})
        books_.Execute(std::string("INSERT INTO Investment (AccountID, StockSymbol, LastPrice) "
                                   "VALUES ('I1', '") +
                       symbol + "', 7.25)");
    std::vector<std::string> texts;
    Model().progress.Changed().connect([&] { texts.push_back(Model().progress.Text()); });

    events_.Run([this] { Model().menus.Find("mnuT_UpdateQuotes")->Press(); });

    EXPECT_EQ(texts, (std::vector<std::string>{"ACME", "BOLT", ""}));
    EXPECT_TRUE(Bar().isHidden());
}

}  // namespace
}  // namespace clb
