#include "desktop/ports/Browser.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QStandardPaths>
#include <algorithm>

namespace clb {

namespace {

constexpr const char* kAddress = "%u";
constexpr const char* kKnown[] = {"x-www-browser",    "firefox",       "firefox-esr", "chromium",
                                  "chromium-browser", "google-chrome", "epiphany",    "konqueror",
                                  "falkon",           "opera"};
constexpr const char* kInTerminal[] = {"www-browser", "w3m", "lynx", "links", "links2", "elinks"};

/// A section of a file of keys and values.
using Section = QHash<QString, QString>;

/// Reads one section; empty if there is none.
Section Read(const QString& path, const QString& name)
{
    Section section;
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return section;
    bool inside = false;
    for (const QByteArray& bytes : file.readAll().split('\n')) {
        const QString line = QString::fromUtf8(bytes).trimmed();
        if (line.startsWith(u'['))
            inside = line == u'[' + name + u']';
        else if (const auto mark = line.indexOf(u'='); inside && mark > 0)
            section.insert(line.left(mark).trimmed(), line.mid(mark + 1).trimmed());
    }
    return section;
}

bool Runs(const QString& program)
{
    return !program.isEmpty() && !QStandardPaths::findExecutable(program).isEmpty();
}

/// Files of this name in the folders of settings and of programs, the user's own first.
QStringList Lists(const QString& name)
{
    return QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation, name) +
           QStandardPaths::locateAll(QStandardPaths::ApplicationsLocation, name);
}

/// The menu entries that open a type, the preferred ones first.
QStringList EntriesFor(const QString& type)
{
    QStringList lists;
    for (const QString& desktop :
         qEnvironmentVariable("XDG_CURRENT_DESKTOP").toLower().split(u':', Qt::SkipEmptyParts))
        lists += Lists(desktop + QStringLiteral("-mimeapps.list"));
    lists += Lists(QStringLiteral("mimeapps.list"));
    QStringList entries;
    const auto take = [&](const QString& path, const char* section) {
        entries += Read(path, QLatin1String(section)).value(type).split(u';', Qt::SkipEmptyParts);
    };
    for (const char* section : {"Default Applications", "Added Associations"})
        for (const QString& list : lists)
            take(list, section);
    for (const QString& cache : QStandardPaths::locateAll(QStandardPaths::ApplicationsLocation,
                                                          QStringLiteral("mimeinfo.cache")))
        take(cache, "MIME Cache");
    return entries;
}

/// A program of the desktop, as its menu entry describes it.
struct Entry {
    QStringList command;
    bool inTerminal = false;
    bool browses = false;
};

/// Returns nothing if the program was removed.
std::optional<Entry> EntryOf(const QString& name)
{
    const Section lines = Read(QStandardPaths::locate(QStandardPaths::ApplicationsLocation, name),
                               QStringLiteral("Desktop Entry"));
    const QString tried = lines.value(QStringLiteral("TryExec"));
    Entry entry{
        QProcess::splitCommand(lines.value(QStringLiteral("Exec"))),
        lines.value(QStringLiteral("Terminal")) == QStringLiteral("true"),
        lines.value(QStringLiteral("Categories")).contains(QStringLiteral("WebBrowser")) ||
            lines.value(QStringLiteral("MimeType")).contains(QLatin1String(page_type::kWeb))};
    const bool gone = lines.value(QStringLiteral("Hidden")) == QStringLiteral("true") ||
                      (!tried.isEmpty() && !Runs(tried));
    if (entry.command.isEmpty() || gone || !Runs(entry.command.first()))
        return std::nullopt;
    return entry;
}

bool IsSandbox(const QStringList& command)
{
    const QString& program = command.first();
    return QFileInfo(program).fileName() == QStringLiteral("flatpak") ||
           program.contains(QStringLiteral("/snap/"));
}

/// What the desktop opens the type with, if that is a browser with a window.
std::optional<Browser> OfDesktop(const QString& type)
{
    for (const QString& name : EntriesFor(type))
        if (const auto entry = EntryOf(name)) {
            if (entry->inTerminal || !entry->browses)
                return std::nullopt;
            return Browser{entry->command, true, IsSandbox(entry->command)};
        }
    return std::nullopt;
}

std::optional<Browser> OfEnvironment()
{
    for (const QString& line : qEnvironmentVariable("BROWSER").split(u':', Qt::SkipEmptyParts)) {
        QStringList command = QProcess::splitCommand(line);
        if (command.isEmpty() || !Runs(command.first()))
            continue;
        const QString name = QFileInfo(command.first()).fileName();
        if (std::any_of(std::begin(kInTerminal), std::end(kInTerminal),
                        [&](const char* other) { return name == QLatin1String(other); }))
            continue;
        return Browser{command.replaceInStrings(QStringLiteral("%s"), QLatin1String(kAddress))};
    }
    return std::nullopt;
}

std::optional<Browser> WellKnown()
{
    for (const char* name : kKnown)
        if (Runs(QLatin1String(name)))
            return Browser{{QLatin1String(name)}};
    return std::nullopt;
}

/// The command with the address in its place.
QStringList With(QStringList command, const QUrl& page)
{
    const QString address = page.toString(QUrl::FullyEncoded);
    bool placed = false;
    for (QString& part : command) {
        for (const char* code : {"%u", "%U", "%f", "%F"})
            if (part.contains(QLatin1String(code))) {
                part.replace(QLatin1String(code), address);
                placed = true;
            }
    }
    // Other codes of a menu entry, such as that of its icon, have no value here.
    command.removeIf([](const QString& part) { return part.size() == 2 && part[0] == u'%'; });
    if (!placed)
        command.append(address);
    return command;
}

}  // namespace

std::optional<Browser> Browser::For(const QString& type)
{
    if (auto desktops = OfDesktop(type))
        return desktops;
    if (auto named = OfEnvironment())
        return named;
    return WellKnown();
}

bool Browser::Open(const QUrl& page) const
{
    // The desktop brings an open window of the browser to the front. Without its own helper program
    // the toolkit knows only a few browsers.
    if (desktops && QDesktopServices::openUrl(page))
        return true;
    QStringList parts = With(command, page);
    const QString program = parts.takeFirst();
    return QProcess::startDetached(program, parts);
}

}  // namespace clb
