// The about box.
#pragma once
#include <cstdint>

#include "controls/Form.h"
#include "controls/Inputs.h"

namespace clb {

class IShell;

/// Shows name, version and licence of the program.
class frmAbout {
public:
    /// Borrows both; they outlive the box. If the database has a later schema version than the
    /// program knows, the box says so.
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
