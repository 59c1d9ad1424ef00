// Recognises and blocks what the user does.
#pragma once
#include <QCoreApplication>
#include <QEvent>
#include <QObject>

namespace clb {

/// Whether an event of a window is input of the user.
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
        case QEvent::Shortcut:
        case QEvent::ContextMenu:
        case QEvent::InputMethod:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletMove:
        case QEvent::TabletRelease:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
        case QEvent::Close: return true;
        default: return false;
    }
}

/// Blocks all input for its own lifetime. The program still paints.
class InputBlock : public QObject {
public:
    InputBlock() { QCoreApplication::instance()->installEventFilter(this); }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override { return IsInput(*event); }
};

}  // namespace clb
