#include "desktop/window/IncomingFiles.h"

#include <QApplication>
#include <QFileInfo>
#include <utility>

#include "app/ImportCommand.h"
#include "app/frmController.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"
#include "desktop/window/MainWindow.h"

namespace clb {

namespace {

constexpr int kLookAgain = 100;  // milliseconds

std::vector<std::string> PathsOf(const QStringList& files)
{
    std::vector<std::string> paths;
    for (const QString& file : files)
        paths.push_back(ToUtf8(file));
    return paths;
}

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
        const QStringList files = std::exchange(waiting_, {});
        if (window_.GridAgrees())
            events_.Run([&] { ImportStatements(controller_, PathsOf(files)); });
        else
            events_.Run([&] { OfferAgain(files); });
        importing_ = false;
    }
    if (!waiting_.isEmpty())
        timer_.start(kLookAgain);
}

/// The row in edit could not be saved.
void IncomingFiles::OfferAgain(const QStringList& files)
{
    QStringList names;
    for (const QString& file : files)
        names << QFileInfo(file).fileName();
    controller_.Results().Say(
        "Not imported: " + ToUtf8(names.join(QStringLiteral(", "))) +
            ". The row that you are editing must be completed or discarded first.",
        {{"Import", [this, files] { Take(files); }}});
}

bool IncomingFiles::CanBegin() const
{
    return !importing_ && !events_.Running() && controller_.window.Enabled() &&
           QApplication::activeModalWidget() == nullptr &&
           QApplication::activePopupWidget() == nullptr;
}

}  // namespace clb
