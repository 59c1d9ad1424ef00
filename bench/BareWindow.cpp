// The reference of the start: opens a window with the same controls, which do nothing, and ends
// after it has been painted.

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QSpinBox>
#include <QStatusBar>
#include <QTableWidget>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

void AddMenus(QMainWindow& window)
{
    for (const char* name : {"File", "Edit", "Tools", "Help"}) {
        QMenu* menu = window.menuBar()->addMenu(QString::fromLatin1(name));
        for (int line = 0; line < 6; ++line)
            menu->addAction(QStringLiteral("Command %1").arg(line));
    }
}

void AddToolbar(QMainWindow& window)
{
    QToolBar* bar = window.addToolBar(QStringLiteral("Tools"));
    for (int button = 0; button < 5; ++button)
        bar->addAction(window.style()->standardIcon(QStyle::SP_FileIcon),
                       QStringLiteral("Button %1").arg(button));
    auto* months = new QComboBox;
    for (int month = 1; month <= 12; ++month)
        months->addItem(QLocale::c().monthName(month));
    bar->addWidget(months);
    bar->addWidget(new QSpinBox);
}

QTreeWidget* MakeTree()
{
    auto* tree = new QTreeWidget;
    tree->setHeaderHidden(true);
    for (const char* name : {"Net worth", "Budget", "Bank", "Cash", "Credit Card", "Loan"}) {
        auto* node = new QTreeWidgetItem(tree, {QString::fromLatin1(name)});
        for (int account = 0; account < 4; ++account)
            new QTreeWidgetItem(node, {QStringLiteral("Account %1").arg(account)});
    }
    tree->expandAll();
    return tree;
}

QTableWidget* MakeTable()
{
    auto* table = new QTableWidget(20, 5);
    for (int row = 0; row < table->rowCount(); ++row)
        for (int column = 0; column < table->columnCount(); ++column)
            table->setItem(row, column,
                           new QTableWidgetItem(QStringLiteral("%1").arg(row * 100 + column)));
    table->verticalHeader()->hide();
    return table;
}

/// Ends the program after the window has been painted.
class EndWhenPainted : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, qApp, &QApplication::quit);
        return false;
    }
};

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    AddMenus(window);
    AddToolbar(window);
    auto* inner = new QWidget;
    auto* columns = new QHBoxLayout(inner);
    columns->addWidget(MakeTree(), 1);
    auto* right = new QVBoxLayout;
    right->addWidget(MakeTable());
    auto* totals = new QHBoxLayout;
    totals->addWidget(new QLabel(QStringLiteral("Total")));
    totals->addWidget(new QLineEdit(QStringLiteral("0.00")));
    totals->addWidget(new QLineEdit(QStringLiteral("0.00")));
    right->addLayout(totals);
    columns->addLayout(right, 4);
    window.setCentralWidget(inner);
    window.statusBar()->showMessage(QStringLiteral("Ready"));
    window.resize(1160, 740);
    EndWhenPainted end;
    window.installEventFilter(&end);
    window.show();
    return QApplication::exec();
}
