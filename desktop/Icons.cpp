#include "desktop/Icons.h"

#include <QFile>

#include "desktop/TextConvert.h"
#include "ports/IMessageBox.h"

// Resources of a static library are linked only when they are asked for by name.
static void InitResources()
{
    Q_INIT_RESOURCE(icons);
}

namespace clb::icons {

namespace {

QIcon Load(const QString& name)
{
    static const bool ready = [] {
        InitResources();
        return true;
    }();
    const QString path = QStringLiteral(":/icons/%1.svg").arg(name);
    if (!ready || !QFile::exists(path))
        return {};
    QIcon icon(path);
    // A selected line shows the picture as it is; the toolkit would tint it.
    icon.addFile(path, QSize(), QIcon::Selected);
    return icon;
}

}  // namespace

QIcon Application()
{
    return Load(QStringLiteral("ledgerbook"));
}

QIcon Toolbar(const std::string& key)
{
    return Load(ToQString(key).toLower());
}

QIcon TreeImage(std::int32_t image)
{
    switch (image) {
        case 6: return Load(QStringLiteral("book-closed"));
        case 7: return Load(QStringLiteral("book-open"));
        default: return {};
    }
}

QIcon Calendar()
{
    return Load(QStringLiteral("calendar"));
}

QIcon DropDown()
{
    return Load(QStringLiteral("drop-down"));
}

QIcon Message(std::int32_t style)
{
    const auto icon = [](const char* desktop, const char* own) {
        return QIcon::fromTheme(QLatin1String(desktop), Load(QLatin1String(own)));
    };
    switch (box_style::Icon(style)) {
        case box_style::Critical: return icon("dialog-error", "error");
        case box_style::Question: return icon("dialog-question", "question");
        case box_style::Exclamation: return icon("dialog-warning", "warning");
        case box_style::Information: return icon("dialog-information", "information");
        default: return {};
    }
}

}  // namespace clb::icons
