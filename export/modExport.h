#pragma once
#include <string>

#include "export/IExportHost.h"

namespace clb {

class IClock;
class clsDatabase;
class clsView;

/// Writes the shown account's transactions as an OFX 1.02 statement. All members borrowed; they
/// outlive the export.
class modExport {
public:
    modExport(clsDatabase& database, clsView& view, IExportHost& host, const IClock& clock);

    /// The export command: asks for a file and writes it. Cancelling writes nothing.
    void ExportOFX();
    /// Writes the shown account's transactions, replacing an existing file. The file is
    /// Windows-1252; a character that it lacks becomes "?". Throws RuntimeError when it cannot be
    /// written; what was written so far stays.
    void WriteOFX(const std::string& path);

private:
    clsDatabase& database_;
    clsView& view_;
    IExportHost& host_;
    const IClock& clock_;
};

}  // namespace clb
