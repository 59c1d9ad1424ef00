#pragma once
#include <QEvent>

namespace clb {

/// Whether an event of a window is something that the user does to it.
inline bool IsInput(const QEvent& event)
{
    switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Close: return true;
        default: return false;
    }
}

}  // namespace clb
