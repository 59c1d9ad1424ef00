#include "desktop/start/FirstPaint.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <utility>

namespace clb {

namespace {

class FirstPaint : public QObject {
public:
    FirstPaint(QWidget& window, std::function<void()> action)
        : QObject(&window), action_(std::move(action))
    {
        window.installEventFilter(this);
    }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() != QEvent::Paint || seen_)
            return false;
        seen_ = true;
        QTimer::singleShot(0, this, [this] {
            action_();
            deleteLater();
        });
        return false;
    }

private:
    std::function<void()> action_;
    bool seen_ = false;
};

}  // namespace

void AfterFirstPaint(QWidget& window, std::function<void()> action)
{
    new FirstPaint(window, std::move(action));
}

}  // namespace clb
