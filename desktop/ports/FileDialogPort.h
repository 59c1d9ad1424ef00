// Asks for files with the desktop's dialogs.
#pragma once
#include <QString>
#include <QStringList>
#include <optional>
#include <string>

#include "ports/IFileDialog.h"

namespace clb {

/// Asks for files with the desktop's own dialogs. They open in the folder where a file was chosen
/// last, at first in the user's folder for downloads.
class FileDialogPort : public IFileDialog {
public:
    std::optional<FileChoice> Ask(const FileQuestion& question) override;

    /// Converts a filter, one text for each pair: "Statements|*.ofx;*.qif|" becomes "Statements
    /// (*.ofx *.OFX *.qif *.QIF)".
    static QStringList NameFilters(const std::string& filter);

    /// The folder in which a file was chosen last; empty if there is none.
    [[nodiscard]] const QString& LastFolder() const { return folder_; }
    void LastFolder(const QString& folder) { folder_ = folder; }
    /// The folder in which the dialog for a question opens.
    [[nodiscard]] QString FolderFor(const FileQuestion& question) const;

private:
    QString folder_;
};

}  // namespace clb
