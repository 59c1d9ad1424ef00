// Opens pages and files with the desktop's programs.
#pragma once
#include <memory>

#include "desktop/help/HelpWindow.h"
#include "ports/IShell.h"

class QWidget;

namespace clb {

class IMessageBox;

/// Opens addresses and files with the desktop's browser and viewers. Without a browser the manual
/// opens in a window of the program, and addresses are shown so that they can be copied.
class ShellPort : public IShell {
public:
    /// messages is borrowed and outlives this.
    explicit ShellPort(IMessageBox& messages) : messages_(messages) {}

    void Open(const std::string& address) override;
    /// Opens the file. If it does not exist, opens index.html in the same folder. A box says if
    /// neither can be read.
    void Help(const std::string& file) override;

    /// How the window of the manual was left.
    [[nodiscard]] HelpLook& Look() { return look_; }
    /// The window of the manual; null until it was needed.
    [[nodiscard]] HelpWindow* Manual() { return manual_.get(); }

private:
    static void OpenAbove(QWidget* window, const QString& address);
    void OpenManual(const QString& page);

    IMessageBox& messages_;
    HelpLook look_;
    std::unique_ptr<HelpWindow> manual_;
};

}  // namespace clb
