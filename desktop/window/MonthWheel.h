// The wheel over the month list and the year box.
#pragma once
#include <QObject>
#include <functional>

namespace clb {

/// Lets the wheel over the month list and the year box change them without taking the focus. The
/// row in edit is saved first; nothing changes if that was refused.
class MonthWheel : public QObject {
public:
    /// What a turn does.
    struct Actions {
        std::function<bool()> rowSaved;        ///< saves the row in edit; false if it was refused
        std::function<void(int months)> step;  ///< shows the month so many months on
    };
    /// The list of months owns it. The year box is borrowed.
    MonthWheel(QWidget& month, QWidget& year, Actions actions);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Turn(int angle);

    QWidget& month_;
    Actions actions_;
    int turned_ = 0;  // how far the wheel over the month list has turned since its last step
};

}  // namespace clb
