#pragma once
#include "controls/Form.h"
#include "controls/Inputs.h"

namespace clb {

class IShell;

/// The about box.
class frmAbout {
public:
    /// Both borrowed; they outlive the box.
    frmAbout(IModalHost& host, IShell& shell);
    void ShowDialog();

private:
    IModalHost& host_;
    Form form_;
    Control picAppIcon;
    Label lblAppName;
    Label lblLegal;
    Label lblWebSite;
    Button cmdOK;
};

}  // namespace clb
