#include "desktop/ports/ShellPort.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include "base/Product.h"
#include "desktop/help/HelpPage.h"
#include "desktop/look/TextConvert.h"
#include "desktop/ports/AddressBox.h"
#include "desktop/ports/Browser.h"
#include "desktop/ports/DialogParent.h"
#include "desktop/ports/PointerPort.h"
#include "ports/IMessageBox.h"

namespace clb {

namespace {

void ShowAddress(QWidget* window, const QString& why, const QString& address)
{
    const PlainPointer pointer;
    AddressBox(why, address, window).exec();
}

}  // namespace

void ShellPort::Open(const std::string& address)
{
    OpenAbove(DialogParent(), ToQString(address));
}

void ShellPort::OpenAbove(QWidget* window, const QString& address)
{
    // An address may be typed without "https://". Anything else is not opened: it could be a
    // program, and the settings that name it could come from somebody else.
    const QUrl url = QUrl::fromUserInput(address);
    if (url.scheme() != QLatin1String("https") && url.scheme() != QLatin1String("http"))
        return ShowAddress(window,
                           QStringLiteral("This is not the address of a web page, so it was not "
                                          "opened."),
                           address);
    const auto browser = Browser::For(QLatin1String(page_type::kWeb));
    if (!browser)
        ShowAddress(window,
                    QStringLiteral("No web browser was found on this computer. You can copy the "
                                   "address and open it elsewhere."),
                    url.toString());
    else if (!browser->Open(url))
        ShowAddress(window,
                    QStringLiteral("The web browser could not be started. You can copy the "
                                   "address and open it elsewhere."),
                    url.toString());
}

void ShellPort::Help(const std::string& file)
{
    const QFileInfo named(ToQString(file).replace(u'\\', u'/'));
    // The manual consists of pages for the browser. A help file of the given name is preferred.
    if (named.exists() && QDesktopServices::openUrl(QUrl::fromLocalFile(named.absoluteFilePath())))
        return;
    OpenManual(named.dir().absoluteFilePath(QStringLiteral("index.html")));
}

void ShellPort::OpenManual(const QString& page)
{
    const QUrl url = QUrl::fromLocalFile(page);
    if (!HelpPage::Readable(url)) {
        messages_.Show("The help cannot be shown, because its first page cannot be read:\n\n" +
                           ToUtf8(page) +
                           "\n\nIf the page is missing, it is put back at the next start of the "
                           "program.",
                       box_style::Exclamation, product::kTitle);
        return;
    }
    const bool reading = manual_ && manual_->isVisible();
    const auto browser = Browser::For(QLatin1String(page_type::kFile));
    if (!reading && browser && !browser->sandboxed && browser->Open(url))
        return;
    if (!manual_)
        manual_ = std::make_unique<HelpWindow>(
            look_, [](QWidget& window, const QString& address) { OpenAbove(&window, address); });
    manual_->Open(url);
}

}  // namespace clb
