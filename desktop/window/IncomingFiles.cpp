#include "desktop/window/IncomingFiles.h"

#include <QApplication>
#include <utility>

#include "app/ImportCommand.h"
#include "app/frmController.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"
#include "desktop/window/MainWindow.h"

namespace clb {

namespace {

constexpr int kLookAgain = 100;  // milliseconds

}  // namespace

IncomingFiles::IncomingFiles(frmController& controller, MainWindow& window, UserEvents& events)
    : controller_(controller), window_(window), events_(events)
{
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &IncomingFiles::Import);
}

void IncomingFiles::Take(const QStringList& paths)
{
    waiting_ += paths;
    if (!waiting_.isEmpty())
        timer_.start(0);
}

void IncomingFiles::Import()
{
    if (waiting_.isEmpty() || !controller_.Loaded())
        return;
    if (CanBegin()) {
        importing_ = true;
        std::vector<std::string> paths;
        for (const QString& path : std::exchange(waiting_, {}))
            paths.push_back(ToUtf8(path));
        if (window_.GridAgrees())
            events_.Run([&] { ImportStatements(controller_, paths); });
        importing_ = false;
    }
    if (!waiting_.isEmpty())
        timer_.start(kLookAgain);
}

bool IncomingFiles::CanBegin() const
{
    return !importing_ && !events_.Running() && controller_.window.Enabled() &&
           QApplication::activeModalWidget() == nullptr &&
           QApplication::activePopupWidget() == nullptr;
}

}  // namespace clb
