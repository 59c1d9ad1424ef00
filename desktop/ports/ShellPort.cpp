#include "desktop/ports/ShellPort.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include "desktop/look/TextConvert.h"

namespace clb {

void ShellPort::Open(const std::string& address)
{
    // An address typed without "https://" in front is one all the same. What else the desktop opens
    // may be a program, and the settings that name it may be somebody else's.
    const QUrl url = QUrl::fromUserInput(ToQString(address));
    if (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http"))
        QDesktopServices::openUrl(url);
}

void ShellPort::Help(const std::string& file)
{
    QFileInfo named(ToQString(file).replace(u'\\', u'/'));
    // The manual is pages for the browser; a book of the named kind goes before them.
    if (!named.exists())
        named.setFile(named.dir(), QStringLiteral("index.html"));
    QDesktopServices::openUrl(QUrl::fromLocalFile(named.absoluteFilePath()));
}

}  // namespace clb
