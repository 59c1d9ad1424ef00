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

    /// Makes this file the answer to the next question, which is then not asked. The user has
    /// dropped the file.
    void AnswerNext(const std::string& path) { dropped_ = path; }

    /// Converts a filter, one text for each pair: "Statements|*.ofx;*.qif|" becomes "Statements
    /// (*.ofx *.OFX *.qif *.QIF)".
    static QStringList NameFilters(const std::string& filter);

private:
    FileChoice Choice(const FileQuestion& question, const QString& path, int filterIndex);

    QString folder_;
    std::optional<std::string> dropped_;
};

}  // namespace clb
