// Fakes for everything outside the program, in one object.
#pragma once
#include <string>

#include "app/Ports.h"
#include "tests/support/FakePorts.h"

namespace clb {

/// A fake for everything that the program needs from outside.
struct FakeOutside {
    /// Returns the ports of a program over this folder. They borrow the fakes. keepsCopies: makes
    /// backups, as for a person's own books and not as under automation. importsEveryKind: see
    /// Ports.
    Ports PortsOver(const std::string& folder, bool keepsCopies = false,
                    bool importsEveryKind = false)
    {
        return {folder, clock,    messages, files, shell,       pointer, dates,
                modal,  printing, http,     "",    keepsCopies, true,    importsEveryKind};
    }

    FakeClock clock;
    FakeMessageBox messages;
    FakeFileDialog files;
    FakeShell shell;
    FakePrintJob printing;
    FakePointer pointer;
    IsoDateForm dates;
    FakeModalHost modal;
    FakeHttp http;
};

}  // namespace clb
