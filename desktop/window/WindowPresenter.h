// Shows a driven program in a real window.
#pragma once
#include <QObject>
#include <memory>
#include <vector>

#include "automation/Automation.h"
#include "desktop/input/UserEvents.h"

namespace clb {

class FormDialog;
class MainWindow;

/// Keeps the user's mouse and keys away from windows that a driver works.
class InputShield : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// Shows a driven program in a real window. What a person does to the window has no effect.
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
    /// Ignores errors that a widget raises, because nobody is there to read a message box.
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

/// Writes a picture of a window. The file's extension chooses the format. Returns false if that
/// fails.
bool WritePicture(QWidget& window, const std::string& file);

}  // namespace clb
