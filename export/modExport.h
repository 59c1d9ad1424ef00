// The export of an account as a statement file.
#pragma once
#include <iosfwd>
#include <string>

#include "export/IExportHost.h"

namespace clb {

class IClock;
class clsDatabase;
class clsView;
class ExportLosses;

/// Writes the shown account's transactions as an OFX 1.02 statement. Borrows the objects that it is
/// made with; they outlive it.
class modExport {
public:
    modExport(clsDatabase& database, clsView& view, IExportHost& host, const IClock& clock);

    /// The export command: asks for a file and writes it. Cancelling writes nothing.
    void ExportOFX();
    /// Writes the shown account's transactions and replaces an existing file. The file is encoded
    /// in Windows-1252; a character that this encoding does not have becomes "?". Throws
    /// RuntimeError if the file cannot be written; an existing file then stays as it was. If a row
    /// cannot be read and there was no file, a file with only the header is left.
    void WriteOFX(const std::string& path);
    /// From now on passes every written row to the watcher, which is borrowed. nullptr ends this.
    /// The window never sets a watcher.
    void Watch(ExportLosses* watcher) { watcher_ = watcher; }

private:
    void WriteTo(const std::string& path, const std::string& account);
    void Write(std::ostream& out, const std::string& account);

    clsDatabase& database_;
    clsView& view_;
    IExportHost& host_;
    const IClock& clock_;
    ExportLosses* watcher_ = nullptr;
    bool rowsBegun_ = false;  // whether a row of the statement has been read
};

}  // namespace clb
