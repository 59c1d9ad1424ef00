// The ports that the main window is made with.
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

/// Everything that the program needs from outside. Borrowed; they outlive the main window.
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
    std::string quoteService;  ///< scheme, host and port; empty: that of the settings file
    /// Whether a command that corrects something copies the database first, and whether the window
    /// shows notices about it. False under automation and in a trial.
    bool keepsCopies = false;
    /// Whether a bar in the window says what a command has done. False under automation and in a
    /// trial.
    bool showsResults = false;
    /// Whether File > Import takes statements of every kind, several at once. False under
    /// automation, where it takes one OFX, OFC or QIF file.
    bool importsEveryKind = false;
};

}  // namespace clb
