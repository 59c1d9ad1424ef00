// The window in which the manual opens where there is no browser.
#pragma once
#include <QKeySequence>
#include <QWidget>
#include <functional>

class QAction;
class QSplitter;
class QToolBar;
class QUrl;

namespace clb {

class FindBar;
class GridZoom;
class HelpContents;
class HelpPage;

/// How the person left the window of the manual.
struct HelpLook {
    QSize size;      ///< invalid: not known
    int zoom = 100;  ///< in percent
    bool contents = true;
};

/// Shows the pages of the manual: the contents at the left, the page at the right, and below it a
/// bar that finds a text in it. It never keeps the program running and is no dialog: the main
/// window takes input meanwhile.
class HelpWindow : public QWidget {
public:
    /// Opens an address of the web, above the window that is given.
    using OpenAddress = std::function<void(QWidget& window, const QString& address)>;
    /// look is borrowed; it is kept up to date.
    HelpWindow(HelpLook& look, const OpenAddress& open);

    /// Shows the window above the others. If it was closed, it shows this page; otherwise it stays
    /// where it is.
    void Open(const QUrl& page);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildBar();
    void BuildParts();
    QAction* Add(const char* icon, const QString& caption, const QString& tip,
                 const QList<QKeySequence>& keys, const std::function<void()>& run);
    void ShowContents(bool on);
    void ZoomChanged();

    HelpLook& look_;
    QToolBar* bar_;
    QSplitter* parts_;
    HelpContents* contents_;
    HelpPage* page_;
    FindBar* find_;
    GridZoom* zoom_;
    QAction* back_ = nullptr;
    QAction* forward_ = nullptr;
    QAction* contentsShown_ = nullptr;
    QAction* ordinary_ = nullptr;
};

}  // namespace clb
