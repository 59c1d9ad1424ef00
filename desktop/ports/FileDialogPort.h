// Asks for files with the desktop's dialogs.
#pragma once
#include <QString>
#include <QStringList>
#include <optional>
#include <string>

#include "ports/IFileDialog.h"

namespace clb {

/// Asks for files with the desktop's own dialogs.
class FileDialogPort : public IFileDialog {
public:
    std::optional<FileChoice> Ask(const FileQuestion& question) override;

    /// Converts a filter, one text for each pair: "Statements|*.ofx;*.qif|" becomes "Statements
    /// (*.ofx *.OFX *.qif *.QIF)".
    static QStringList NameFilters(const std::string& filter);

private:
    QString folder_;
};

}  // namespace clb
