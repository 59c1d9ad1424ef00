// Runs forms as dialogs.
#pragma once
#include "controls/Form.h"

namespace clb {

class UserEvents;

/// Shows forms as dialogs above the topmost window.
class QtModalHost : public IModalHost {
public:
    /// events is borrowed and outlives the host.
    explicit QtModalHost(UserEvents& events) : events_(events) {}
    void Run(Form& form) override;

private:
    UserEvents& events_;
};

}  // namespace clb
