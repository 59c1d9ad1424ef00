// The list or calendar that drops down from a cell.
#pragma once
#include <QDate>
#include <QFrame>
#include <QStringList>
#include <functional>

class QCalendarWidget;
class QListWidget;

namespace clb {

/// A list of texts or a calendar that drops down from a cell. A click or Enter picks, Escape
/// closes. It deletes itself when it is closed.
class CellPopup : public QFrame {
public:
    /// Shows the texts in a list of at most `rows` visible lines, with the current one marked.
    static CellPopup* List(QWidget* parent, const QStringList& texts, const QString& current,
                           int rows, std::function<void(const QString&)> pick);
    static CellPopup* Calendar(QWidget* parent, const QDate& day,
                               std::function<void(const QDate&)> pick);

    /// Shows it below a rectangle of the screen, or above if there is no room. It is at least
    /// `least` pixels wide.
    void ShowAt(const QRect& cell, int least);
    QListWidget* ListWidget() { return list_; }
    QCalendarWidget* CalendarWidget() { return calendar_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    explicit CellPopup(QWidget* parent);
    void FitRows(int rows);

    QListWidget* list_ = nullptr;
    QCalendarWidget* calendar_ = nullptr;
    int contentWidth_ = 0;
};

}  // namespace clb
