#pragma once
#include <iosfwd>
#include <string>

#include "export/IExportHost.h"

namespace clb {

class IClock;
class clsDatabase;
class clsView;
class NotReturned;

/// Writes the shown account's transactions as an OFX 1.02 statement. All members borrowed; they
/// outlive the export.
class modExport {
public:
    modExport(clsDatabase& database, clsView& view, IExportHost& host, const IClock& clock);

    /// The export command: asks for a file and writes it. Cancelling writes nothing.
    void ExportOFX();
    /// Writes the shown account's transactions, replacing an existing file. The file is
    /// Windows-1252; a character that it lacks becomes "?". Throws RuntimeError when it cannot be
    /// written; a former file then stays whole. If a row cannot be read and there was no file, one
    /// with the header alone is left.
    void WriteOFX(const std::string& path);
    /// From now on every row written is shown to the watcher, which is borrowed; null ends it. The
    /// window never sets one.
    void Watch(NotReturned* watcher) { watcher_ = watcher; }

private:
    void WriteTo(const std::string& path, const std::string& account);
    void Write(std::ostream& out, const std::string& account);

    clsDatabase& database_;
    clsView& view_;
    IExportHost& host_;
    const IClock& clock_;
    NotReturned* watcher_ = nullptr;
    bool rowsBegun_ = false;  ///< the statement being written has come to its rows
};

}  // namespace clb
