#include "desktop/look/Icons.h"

#include <QFile>
#include <map>

#include "desktop/look/IconEngine.h"
#include "desktop/look/TextConvert.h"
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
    if (!ready || !QFile::exists(QStringLiteral(":/icons/%1.svg").arg(name)))
        return {};
    return QIcon(new IconEngine(name));
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

QIcon MenuItem(const std::string& name)
{
    static const std::map<std::string, const char*> drawings = {
        {"mnuF_Import", "import"},   {"mnuF_Export", "export"},
        {"mnuF_Print", "print"},     {"mnuF_Exit", "exit"},
        {"mnuE_New", "new"},         {"mnuE_Delete", "delete"},
        {"mnuE_Copy", "copy"},       {"mnuE_MovePrev", "previous"},
        {"mnuE_MoveNext", "next"},   {"mnuE_Split", "split"},
        {"mnuT_Options", "options"}, {"mnuT_UpdateQuotes", "quotes"},
        {"mnuH_HelpTopics", "help"}, {"mnuH_OnlineTutorial", "tutorial"},
        {"mnuH_OnTheWeb", "link"},   {"mnuH_About", "about"}};
    const auto found = drawings.find(name);
    return found == drawings.end() ? QIcon() : Load(QLatin1String(found->second));
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
    switch (box_style::Icon(style)) {
        case box_style::Critical: return Load(QStringLiteral("error"));
        case box_style::Question: return Load(QStringLiteral("question"));
        case box_style::Exclamation: return Load(QStringLiteral("warning"));
        case box_style::Information: return Load(QStringLiteral("information"));
        default: return {};
    }
}

}  // namespace clb::icons
