#include "desktop/ports/PointerPort.h"

#include <QCursor>
#include <QGuiApplication>

namespace clb {

void PointerPort::Pointer(std::int32_t code)
{
    if (code_ == code)
        return;
    if (code_ != pointer::Default)
        QGuiApplication::restoreOverrideCursor();
    code_ = code;
    if (code_ == pointer::Hourglass)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else if (code_ != pointer::Default)
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
}

PlainPointer::PlainPointer()
{
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
}

PlainPointer::~PlainPointer()
{
    QGuiApplication::restoreOverrideCursor();
}

}  // namespace clb
