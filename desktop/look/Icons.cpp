#include "desktop/look/Icons.h"

#include <QFile>

#include "desktop/look/IconEngine.h"
#include "ports/IMessageBox.h"

// Resources of a static library are linked only when they are asked for by name.
static void InitResources()
{
    Q_INIT_RESOURCE(icons);
}

namespace clb::icons {

namespace {

QIcon Load(const QString& name, bool inMenu = false)
{
    static const bool ready = [] {
        InitResources();
        return true;
    }();
    if (!ready || !QFile::exists(QStringLiteral(":/icons/%1.svg").arg(name)))
        return {};
    return QIcon(new IconEngine(name, inMenu));
}

}  // namespace

QIcon Application()
{
    return Load(QStringLiteral("ledgerbook"));
}

QIcon Command(const char* name)
{
    return Load(QLatin1String(name));
}

QIcon MenuLine(const char* name)
{
    return Load(QLatin1String(name), true);
}

QIcon TreeImage(std::int32_t image)
{
    switch (image) {
        case 6: return Load(QStringLiteral("book-closed"));
        case 7: return Load(QStringLiteral("book-open"));
        default: return {};
    }
}

QIcon Account(const std::string& type)
{
    QString name = QString::fromStdString(type).toLower();
    return Load(QStringLiteral("account-") + name.replace(u' ', u'-'));
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
    switch (box_style::Icon(style)) {
        case box_style::Critical: return Load(QStringLiteral("error"));
        case box_style::Question: return Load(QStringLiteral("question"));
        case box_style::Exclamation: return Load(QStringLiteral("warning"));
        case box_style::Information: return Load(QStringLiteral("information"));
        default: return {};
    }
}

}  // namespace clb::icons
