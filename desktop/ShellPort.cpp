#include "desktop/ShellPort.h"

#include <QDesktopServices>
#include <QUrl>

#include "desktop/TextConvert.h"

namespace clb {

void ShellPort::Open(const std::string& address)
{
    // An address typed without "https://" in front is one all the same.
    QDesktopServices::openUrl(QUrl::fromUserInput(ToQString(address)));
}

void ShellPort::Help(const std::string& file)
{
    QString path = ToQString(file);
    QDesktopServices::openUrl(QUrl::fromLocalFile(path.replace(u'\\', u'/')));
}

}  // namespace clb
