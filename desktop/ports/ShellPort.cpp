#include "desktop/ports/ShellPort.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include "desktop/look/TextConvert.h"

namespace clb {

void ShellPort::Open(const std::string& address)
{
    // An address may be typed without "https://". Anything else is not opened: it could be a
    // program, and the settings that name it could come from somebody else.
    const QUrl url = QUrl::fromUserInput(ToQString(address));
    if (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http"))
        QDesktopServices::openUrl(url);
}

void ShellPort::Help(const std::string& file)
{
    QFileInfo named(ToQString(file).replace(u'\\', u'/'));
    // The manual consists of pages for the browser. A help file of the given name is preferred.
    if (!named.exists())
        named.setFile(named.dir(), QStringLiteral("index.html"));
    QDesktopServices::openUrl(QUrl::fromLocalFile(named.absoluteFilePath()));
}

}  // namespace clb
