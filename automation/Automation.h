// Runs the program under the control of a driver.
#pragma once
#include <cstdint>
#include <iosfwd>
#include <string>

#include "app/frmController.h"
#include "ports/IClock.h"

namespace clb {

/// The surroundings of a driven program.
struct AutomationOptions {
    std::string folder;  ///< the program folder
    IClock& clock;       ///< borrowed; outlives the run
    /// Scheme, host and port of the quote service, reached without a proxy. Empty: the settings
    /// file's service, reached through the system's proxy.
    std::string quoteService;
};

/// A real window for the driven program. It draws the controls and follows their changes. The
/// driver works the controls, never the window.
class IPresenter {
public:
    virtual ~IPresenter() = default;
    /// The sizes that the window's layout starts from. Called before the main window is made.
    [[nodiscard]] virtual WindowMetrics Metrics() = 0;
    /// Binds the window to the controls and shows it, before the controller is loaded. The
    /// controller is borrowed until Detach.
    virtual void Attach(frmController& controller) = 0;
    virtual void Detach() = 0;
    /// Resizes the main window's inner area, in pixels.
    virtual void Resize(std::int32_t width, std::int32_t height) = 0;
    /// Shows a form above the others.
    virtual void ShowForm(Form& form) = 0;
    /// Removes a form that was shown.
    virtual void HideForm(Form& form) = 0;
    /// Lets the window paint and handle its pending events.
    virtual void ProcessEvents() = 0;
    /// Writes a picture of the topmost window. The file's extension decides the format. Returns
    /// false if that fails.
    [[nodiscard]] virtual bool Screenshot(const std::string& file) = 0;
};

/// Runs the program from loading to unloading. Reads one request, a JSON object, from each line and
/// writes one reply, also a JSON object on a line, at once. presenter: nullptr without a window.
/// Returns the exit code of the process: 0 after quit or the end of input, 1 if loading failed, a
/// request could not be read or a reply could not be written. Throws std::bad_alloc if there is no
/// memory for a reply. Throws Interrupted if the program is asked to end; the running command is
/// then taken back.
int RunAutomation(std::istream& requests, std::ostream& replies, const AutomationOptions& options,
                  IPresenter* presenter);

}  // namespace clb
