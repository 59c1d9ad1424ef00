// Handles files that are dropped on the window, and brings it to the front.

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>

#include "desktop/window/MainWindow.h"

namespace clb {

namespace {

QStringList LocalFiles(const QMimeData& data)
{
    QStringList files;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            files << url.toLocalFile();
    return files;
}

}  // namespace

void MainWindow::OnDrop(std::function<void(const QStringList&)> taken)
{
    dropped_ = std::move(taken);
    setAcceptDrops(true);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (controller_.window.Enabled() && !LocalFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    dropped_(LocalFiles(*event->mimeData()));
}

void MainWindow::ComeToFront()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    QApplication::alert(this);
}

}  // namespace clb
