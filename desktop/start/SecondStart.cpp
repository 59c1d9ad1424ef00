#include "desktop/start/SecondStart.h"

#include <QFileInfo>

#include "desktop/look/TextConvert.h"
#include "desktop/window/IncomingFiles.h"
#include "desktop/window/MainWindow.h"

namespace clb {

StartRequest RequestFor(const std::vector<std::string>& files)
{
    StartRequest request;
    for (const std::string& file : files)
        request.files << QFileInfo(ToQString(file)).absoluteFilePath();
    // The desktop gives this token to a start that the user asked for.
    for (const char* name : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"})
        if (request.activation.isEmpty())
            request.activation = qgetenv(name);
    return request;
}

void Follow(const StartRequest& request, MainWindow& window, IncomingFiles& incoming)
{
    if (!request.activation.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", request.activation);
    window.ComeToFront();
    incoming.Take(request.files);
}

}  // namespace clb
