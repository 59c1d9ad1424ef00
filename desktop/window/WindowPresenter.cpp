#include "desktop/window/WindowPresenter.h"

#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QPixmap>
#include <QWindow>
#include <algorithm>

#include "desktop/forms/FormDialog.h"
#include "desktop/input/InputEvents.h"
#include "desktop/look/TextConvert.h"
#include "desktop/window/MainWindow.h"
#include "files/FileError.h"
#include "files/WholeFile.h"

namespace clb {

bool InputShield::eventFilter(QObject* /*watched*/, QEvent* event)
{
    return IsInput(*event);
}

WindowPresenter::WindowPresenter() = default;

WindowPresenter::~WindowPresenter() = default;

BoxAnswer WindowPresenter::NoBoxes::Show(const std::string& /*text*/, std::int32_t /*style*/,
                                         const std::string& /*title*/)
{
    return BoxAnswer::OK;
}

WindowMetrics WindowPresenter::Metrics()
{
    return MainWindow::Metrics();
}

void WindowPresenter::Attach(frmController& controller)
{
    window_ = std::make_unique<MainWindow>(controller, events_);
    window_->show();
    window_->windowHandle()->installEventFilter(&shield_);
}

void WindowPresenter::Detach()
{
    forms_.clear();
    window_.reset();
}

void WindowPresenter::Resize(std::int32_t width, std::int32_t height)
{
    window_->InnerSize(width, height);
}

void WindowPresenter::ShowForm(Form& form)
{
    auto dialog = std::make_unique<FormDialog>(form, events_, window_.get());
    dialog->show();
    dialog->windowHandle()->installEventFilter(&shield_);
    forms_.push_back(std::move(dialog));
    ProcessEvents();
}

void WindowPresenter::HideForm(Form& form)
{
    std::erase_if(forms_, [&form](const auto& dialog) { return &dialog->Model() == &form; });
}

void WindowPresenter::ProcessEvents()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

bool WindowPresenter::Screenshot(const std::string& file)
{
    ProcessEvents();
    QWidget* foremost = window_.get();
    if (!forms_.empty())
        foremost = forms_.back().get();
    return foremost != nullptr && WritePicture(*foremost, file);
}

bool WritePicture(QWidget& window, const std::string& file)
{
    try {
        WholeFile picture(file);
        const QByteArray format = QFileInfo(ToQString(file)).suffix().toLatin1();
        if (!window.grab().save(ToQString(picture.Path()), format.constData()))
            return false;
        picture.Keep();
        return true;
    } catch (const FileError&) {
        return false;
    }
}

}  // namespace clb
