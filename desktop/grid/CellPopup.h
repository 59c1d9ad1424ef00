#pragma once
#include <QDate>
#include <QFrame>
#include <QStringList>
#include <functional>

class QCalendarWidget;
class QListWidget;

namespace clb {

/// What drops down from a cell: a list of texts or a month's calendar. A click or Enter picks,
/// Escape closes it. It deletes itself when closed.
class CellPopup : public QFrame {
public:
    /// texts in a list of at most `rows` lines, the current one marked.
    static CellPopup* List(QWidget* parent, const QStringList& texts, const QString& current,
                           int rows, std::function<void(const QString&)> pick);
    static CellPopup* Calendar(QWidget* parent, const QDate& day,
                               std::function<void(const QDate&)> pick);

    /// Below a rectangle of the screen, above it where there is no room; at least as wide as
    /// `least`.
    void ShowAt(const QRect& cell, int least);
    QListWidget* ListWidget() { return list_; }
    QCalendarWidget* CalendarWidget() { return calendar_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit CellPopup(QWidget* parent);
    void FitRows(int rows);

    QListWidget* list_ = nullptr;
    QCalendarWidget* calendar_ = nullptr;
    int contentWidth_ = 0;
};

}  // namespace clb
