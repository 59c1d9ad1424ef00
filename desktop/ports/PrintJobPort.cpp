#include "desktop/ports/PrintJobPort.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>

#include "base/RuntimeError.h"
#include "desktop/input/InputEvents.h"
#include "desktop/look/TextConvert.h"

namespace clb {

void PrintJobPort::Print(const std::string& file)
{
    QProcess helper;
    helper.setProcessChannelMode(QProcess::ForwardedChannels);
    const InputBlock block;
    QEventLoop wait;
    QObject::connect(&helper, &QProcess::finished, &wait, &QEventLoop::quit);
    helper.start(QCoreApplication::applicationFilePath(),
                 {QStringLiteral("--print"), ToQString(file)});
    if (!helper.waitForStarted(-1))
        throw PortError(errors::FileNotFound,
                        "Printing could not be started: " + ToUtf8(helper.errorString()));
    if (helper.state() != QProcess::NotRunning)
        wait.exec();
}

}  // namespace clb
