// The list of the manual's pages.
#pragma once
#include <QTreeWidget>
#include <functional>

class QUrl;

namespace clb {

/// Lists the pages of the manual below their headings, as each page does in a browser.
class HelpContents : public QTreeWidget {
public:
    /// choose is called with the file name of a page that the user chooses.
    HelpContents(std::function<void(const QString& page)> choose, QWidget* parent);

    /// Reads the list of contents from a page of the manual.
    void Read(const QUrl& page);
    /// Shows which page is read; none if it is not in the list.
    void Follow(const QUrl& page);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers held) override;

private:
    void Add(const QString& heading, const QString& page, const QString& title);

    std::function<void(const QString&)> choose_;
    bool following_ = false;
};

}  // namespace clb
