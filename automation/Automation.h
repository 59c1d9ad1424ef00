#pragma once
#include "app/frmController.h"
#include "ports/IClock.h"

#include <cstdint>
#include <iosfwd>
#include <string>

namespace clb {

/// What a driven program runs on.
struct AutomationOptions {
    std::string folder;  ///< the program folder
    IClock& clock;       ///< borrowed; outlives the run
    /// Scheme, host and port, reached directly; empty: the settings file's, by way of the system's
    /// proxy.
    std::string quoteService;
};

/// A real window around the driven program. It draws the controls and follows them; what the driver
/// does goes to the controls, never to the window.
class IPresenter {
public:
    virtual ~IPresenter() = default;
    /// Sizes that the window's layout starts from; asked before the main window is made.
    virtual WindowMetrics Metrics() = 0;
    /// Binds the window to the controls and shows it. The controller is not loaded yet; it outlives
    /// the binding, which ends with Detach.
    virtual void Attach(frmController& controller) = 0;
    virtual void Detach() = 0;
    /// Gives the main window's inner area the size in pixels.
    virtual void Resize(std::int32_t width, std::int32_t height) = 0;
    /// Shows a form above the others, and takes it away again.
    virtual void ShowForm(Form& form) = 0;
    virtual void HideForm(Form& form) = 0;
    /// Lets the window draw and do what it has put off.
    virtual void ProcessEvents() = 0;
    /// Writes a picture of the foremost window; the kind follows the file's extension. False when
    /// that fails.
    virtual bool Screenshot(const std::string& file) = 0;
};

/// Runs the program from loading to unloading, driven by requests: one JSON object a line in, one
/// reply object a line out, each written out at once. presenter: nullptr without a window.
/// Returns the process's exit code: 0 after quit or the end of input, 1 when loading failed or a
/// request could not be read or a reply not written. Throws std::bad_alloc when there is no memory
/// for a reply, and Interrupted when the program is told to end; the command on its way is taken
/// back.
int RunAutomation(std::istream& requests, std::ostream& replies, const AutomationOptions& options,
                  IPresenter* presenter);

}  // namespace clb
