#include "desktop/SecondStart.h"

#include <QFileInfo>

#include "desktop/IncomingFiles.h"
#include "desktop/MainWindow.h"
#include "desktop/TextConvert.h"

namespace clb {

namespace {

/// What the desktop gives a start that the user asked for, so that a window may come to the front.
std::string ActivationToken()
{
    for (const char* name : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"})
        if (const QByteArray token = qgetenv(name); !token.isEmpty())
            return token.toStdString();
    return {};
}

void Serve(const StartRequest& request, MainWindow& window, IncomingFiles& incoming)
{
    if (!request.activation.empty())
        qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(request.activation));
    window.ComeToFront();
    QStringList files;
    for (const std::string& file : request.files)
        files << ToQString(file);
    incoming.Take(files);
}

}  // namespace

QStringList AbsolutePaths(const std::vector<std::string>& files)
{
    QStringList paths;
    for (const std::string& file : files)
        paths << QFileInfo(ToQString(file)).absoluteFilePath();
    return paths;
}

bool HandOver(const RunningProgram& first, const QStringList& files)
{
    StartRequest request;
    for (const QString& file : files)
        request.files.push_back(ToUtf8(file));
    request.activation = ActivationToken();
    return first.HandOver(request);
}

std::unique_ptr<QSocketNotifier> ServeLaterStarts(RunningProgram& first, MainWindow& window,
                                                  IncomingFiles& incoming)
{
    if (first.Descriptor() < 0)
        return nullptr;
    auto requests = std::make_unique<QSocketNotifier>(first.Descriptor(), QSocketNotifier::Read);
    QObject::connect(requests.get(), &QSocketNotifier::activated, requests.get(), [&] {
        for (const StartRequest& request : first.Requests())
            Serve(request, window, incoming);
    });
    return requests;
}

}  // namespace clb
