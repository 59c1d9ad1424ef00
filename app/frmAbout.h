#pragma once
#include <cstdint>

#include "controls/Form.h"
#include "controls/Inputs.h"

namespace clb {

class IShell;

/// The about box.
class frmAbout {
public:
    /// Both borrowed; they outlive the box. A data file of a later schema version than the
    /// program's has a line of its own.
    frmAbout(IModalHost& host, IShell& shell, std::int16_t schemaVersion = 0);
    void ShowDialog();

private:
    IModalHost& host_;
    Form form_;
    Control picAppIcon;
    Label lblAppName;
    Label lblLegal;
    Label lblSchema;
    Label lblWebSite;
    Button cmdOK;
};

}  // namespace clb
