#include "desktop/window/WindowMemory.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <algorithm>

#include "app/frmController.h"
#include "desktop/help/HelpWindow.h"
#include "desktop/ports/FileDialogPort.h"
#include "desktop/window/MainWindow.h"

namespace clb {

namespace {

constexpr int kLeastWidth = 320;
constexpr int kLeastHeight = 200;
constexpr double kPartOfScreen = 0.92;  // part of the screen that a first window takes at most

/// Whether enough of the title is visible to drag the window with the mouse.
bool TitleInSight(const QRect& place)
{
    constexpr int kHeight = 24;
    constexpr int kLeastShown = 80;
    const QRect title(place.topLeft(), QSize(place.width(), kHeight));
    const QList<QScreen*> screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&title](const QScreen* screen) {
        const QRect shown = screen->availableGeometry() & title;
        return shown.width() >= kLeastShown && shown.height() >= kHeight / 2;
    });
}

/// The place nearest to a remembered one at which the whole window is on the screen.
QPoint Fitted(const QPoint& place, const QSize& size, const QRect& screen)
{
    const auto fit = [](int at, int length, int least, int room) {
        return std::max(least, std::min(at, least + room - length));
    };
    return {fit(place.x(), size.width(), screen.left(), screen.width()),
            fit(place.y(), size.height(), screen.top(), screen.height())};
}

/// Makes a folder that only its user can read, and the missing folders above it.
bool MakeFolder(const QString& folder)
{
    if (QFileInfo(folder).isDir())
        return true;
    const QString above = QFileInfo(folder).path();
    return above != folder && MakeFolder(above) &&
           ::mkdir(QFile::encodeName(folder).constData(), S_IRWXU) == 0;
}

}  // namespace

QString WindowMemory::File()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/corvane-ledgerbook/window.ini");
}

WindowMemory::WindowMemory(QString file, MainWindow& window, frmController& controller,
                           const Others& others)
    : file_(std::move(file)), window_(window), controller_(controller), others_(others)
{
    window_.installEventFilter(this);
    controller_.Unloading().connect(sigc::track_obj([this] { Save(); }, *this));
}

void WindowMemory::Restore()
{
    QSettings settings(file_, QSettings::IniFormat);
    RestorePlace(settings);
    if (const int width = settings.value(QStringLiteral("Tree/width")).toInt(); width > 0)
        window_.TreeWidth(width);
    else  // room for names and balances
        window_.TreeWidth(std::min(window_.width() / 3, controller_.TreeWidth() * 4 / 3));
    RestoreColumns(settings);
    if (const int zoom = settings.value(QStringLiteral("Grid/zoom")).toInt(); zoom > 0)
        window_.GridZoomPercent(zoom);
    others_.dialogs.LastFolder(settings.value(QStringLiteral("Files/folder")).toString());
    RestoreHelp(settings);
}

void WindowMemory::RestoreHelp(const QSettings& settings)
{
    const QSize size(settings.value(QStringLiteral("Help/width")).toInt(),
                     settings.value(QStringLiteral("Help/height")).toInt());
    if (size.width() > 0 && size.height() > 0)
        others_.help.size = size;
    if (const int zoom = settings.value(QStringLiteral("Help/zoom")).toInt(); zoom > 0)
        others_.help.zoom = zoom;
    others_.help.contents =
        settings.value(QStringLiteral("Help/contents")) != QStringLiteral("false");
}

void WindowMemory::RestorePlace(const QSettings& settings)
{
    const auto number = [&settings](const char* key) {
        return settings.value(QStringLiteral("Window/") + QLatin1String(key)).toInt();
    };
    QRect place(number("left"), number("top"), number("width"), number("height"));
    const bool known = place.width() >= kLeastWidth && place.height() >= kLeastHeight;
    if (!known)
        place.setSize(window_.size());
    const bool inSight = known && settings.contains(QStringLiteral("Window/left")) &&
                         settings.contains(QStringLiteral("Window/top")) && TitleInSight(place);
    const QScreen* screen = inSight ? QGuiApplication::screenAt(place.center()) : nullptr;
    if (!screen)
        screen = window_.screen();
    window_.resize(place.size().boundedTo(known ? screen->availableSize()
                                                : screen->availableSize() * kPartOfScreen));
    if (inSight)
        window_.move(Fitted(place.topLeft(), window_.size(), screen->availableGeometry()));
    if (settings.value(QStringLiteral("Window/maximized")) == QStringLiteral("true"))
        window_.setWindowState(Qt::WindowMaximized);
}

void WindowMemory::RestoreColumns(QSettings& settings)
{
    clsView::HandWidths widths;
    settings.beginGroup(QStringLiteral("Columns"));
    for (const QString& key : settings.childKeys()) {
        const QStringList place = key.split(u'-');
        const int width = settings.value(key).toInt();
        if (place.size() == 2 && place[0].toInt() > 0 && place[1].toInt() > 0 && width > 0)
            widths[place[0].toInt()][place[1].toInt()] = width;
    }
    settings.endGroup();
    controller_.View().WidthsByHand(widths);
}

bool WindowMemory::MakeFile() const
{
    if (!MakeFolder(QFileInfo(file_).path()))
        return false;
    const int file = ::open(QFile::encodeName(file_).constData(),
                            O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0)
        return false;
    const bool mine = ::fchmod(file, S_IRUSR | S_IWUSR) == 0;
    ::close(file);
    return mine;
}

void WindowMemory::Save() const
{
    if (!MakeFile())
        return;
    QSettings settings(file_, QSettings::IniFormat);
    settings.clear();
    const auto put = [&settings](const char* key, const QVariant& value) {
        settings.setValue(QLatin1String(key), value);
    };
    if (place_.isValid()) {
        put("Window/left", place_.left());
        put("Window/top", place_.top());
        put("Window/width", place_.width());
        put("Window/height", place_.height());
    }
    put("Window/maximized", maximized_);
    put("Tree/width", controller_.TreeWidth());
    put("Grid/zoom", window_.GridZoomPercent());
    put("Files/folder", others_.dialogs.LastFolder());
    SaveHelp(settings);
    for (const auto& [view, columns] : controller_.View().WidthsByHand())
        for (const auto& [column, pixels] : columns)
            settings.setValue(QStringLiteral("Columns/%1-%2").arg(view).arg(column), pixels);
}

void WindowMemory::SaveHelp(QSettings& settings) const
{
    const HelpLook& help = others_.help;
    if (help.size.isValid()) {
        settings.setValue(QStringLiteral("Help/width"), help.size.width());
        settings.setValue(QStringLiteral("Help/height"), help.size.height());
    }
    settings.setValue(QStringLiteral("Help/zoom"), help.zoom);
    settings.setValue(QStringLiteral("Help/contents"), help.contents);
}

void WindowMemory::NotePlace()
{
    if (!window_.isVisible() || window_.isMinimized())
        return;
    maximized_ = window_.isMaximized();
    if (!maximized_ && !window_.isFullScreen())
        place_ = QRect(window_.pos(), window_.size());
}

bool WindowMemory::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
        case QEvent::Show:
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::WindowStateChange: NotePlace(); break;
        default: break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace clb
