#include "desktop/ports/DialogParent.h"

#include <QApplication>
#include <QMainWindow>

namespace clb {

QWidget* DialogParent()
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (qobject_cast<QMainWindow*>(window) && window->isVisible())
            return window;
    return nullptr;
}

}  // namespace clb
