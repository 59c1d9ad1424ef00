// Opens the window of a program folder at 1400 x 900 and goes from one month of its first account
// to the next one and back, waiting each time until the window is painted.
//   clb_bench_month_step FOLDER STEPS
#include <QApplication>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <span>

#include "app/frmController.h"
#include "bench/MonthStepFigures.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/Appearance.h"
#include "desktop/ports/DateFormPort.h"
#include "desktop/ports/FileDialogPort.h"
#include "desktop/ports/MessageBoxPort.h"
#include "desktop/ports/PointerPort.h"
#include "desktop/ports/PrintJobPort.h"
#include "desktop/ports/QtModalHost.h"
#include "desktop/ports/ShellPort.h"
#include "desktop/window/MainWindow.h"
#include "platform/CurlHttpClient.h"
#include "platform/SystemClock.h"
#include "views/NodeTag.h"

namespace clb {
namespace {

constexpr int kWidth = 1400;
constexpr int kHeight = 900;

void Paint()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

void GoThrough(const std::string& folder, int steps)
{
    MessageBoxPort boxes;
    FileDialogPort files;
    ShellPort shell(boxes);
    PrintJobPort printing;
    PointerPort pointer;
    DateFormPort dates;
    UserEvents events(boxes);
    QtModalHost forms(events);
    CurlHttpClient http({"bench", false, {}, {}, {}});
    SystemClock clock;
    frmController controller(
        {folder, clock, boxes, files, shell, pointer, dates, forms, printing, http, "", true, true},
        MainWindow::Metrics());
    MainWindow window(controller, events);
    events.Attach([&] { controller.Settle(); }, [&] { window.Sync(); });
    controller.Load();
    window.InnerSize(kWidth, kHeight);
    window.show();
    controller.ChooseMonth(0);
    controller.EnterYear(std::to_string(kMonthStepYear));
    const std::string tag = node_tag::OfAccount(vwAccount, kMonthStepAccount);
    events.Run([&] { controller.PressNode(controller.View().FindTreeNodeByTag(tag)); });
    Paint();
    for (int step = 0; step < steps; ++step) {
        events.Run([&] { controller.StepMonth(step % 2 == 0 ? 1 : -1); });
        Paint();
    }
    if (controller.Grid.Rows().NewRow() != kMonthStepRows + 1)
        throw std::runtime_error("the month does not show its rows");
    controller.Unload();
}

}  // namespace
}  // namespace clb

int main(int argc, char** argv)
{
    try {
        QApplication application(argc, argv);
        const clb::Appearance appearance;
        const std::span arguments(argv, static_cast<std::size_t>(argc));
        if (arguments.size() != 3)
            throw std::runtime_error("usage: clb_bench_month_step FOLDER STEPS");
        clb::GoThrough(arguments[1], std::atoi(arguments[2]));
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "clb_bench_month_step: " << error.what() << '\n';
        return 1;
    }
}
