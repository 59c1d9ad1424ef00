#pragma once
#include <string>

#include "controls/Form.h"
#include "ports/IClock.h"
#include "ports/IDateForm.h"
#include "ports/IFileDialog.h"
#include "ports/IHttpClient.h"
#include "ports/IMessageBox.h"
#include "ports/IPointer.h"
#include "ports/IPrintJob.h"
#include "ports/IShell.h"

namespace clb {

/// Everything that the program needs from outside. All borrowed; they outlive the main window.
struct Ports {
    std::string folder;  ///< the program folder: holds db/clb.mdb, cvlb.ini and Help/
    IClock& clock;
    IMessageBox& messages;
    IFileDialog& files;
    IShell& shell;
    IPointer& pointer;
    IDateForm& dates;
    IModalHost& modal;
    IPrintJob& printing;
    IHttpClient& http;
    std::string quoteService;  ///< scheme, host and port; empty: the settings file's
    /// Whether the data is a person's own: a command that puts something right keeps a copy of the
    /// file first, and the window says so. Never under automation or in a trial.
    bool keepsCopies = false;
};

}  // namespace clb
