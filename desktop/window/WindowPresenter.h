#pragma once
#include <QObject>
#include <memory>
#include <vector>

#include "automation/Automation.h"
#include "desktop/input/UserEvents.h"

namespace clb {

class FormDialog;
class MainWindow;

/// Keeps a user's mouse and keys from windows that a driver works.
class InputShield : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// The real window around a driven program. It only shows; what a person does to it has no effect.
class WindowPresenter : public IPresenter {
public:
    WindowPresenter();
    ~WindowPresenter() override;

    WindowMetrics Metrics() override;
    void Attach(frmController& controller) override;
    void Detach() override;
    void Resize(std::int32_t width, std::int32_t height) override;
    void ShowForm(Form& form) override;
    void HideForm(Form& form) override;
    void ProcessEvents() override;
    bool Screenshot(const std::string& file) override;

private:
    /// Nobody is there to read a box: an error that a widget raises is let go.
    class NoBoxes : public IMessageBox {
    public:
        BoxAnswer Show(const std::string& text, std::int32_t style,
                       const std::string& title) override;
    };

    NoBoxes boxes_;
    UserEvents events_{boxes_};
    InputShield shield_;
    std::unique_ptr<MainWindow> window_;
    std::vector<std::unique_ptr<FormDialog>> forms_;
};

/// Writes a picture of a window; the kind follows the file's extension. False when that fails.
bool WritePicture(QWidget& window, const std::string& file);

}  // namespace clb
