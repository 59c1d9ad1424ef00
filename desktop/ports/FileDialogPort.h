#pragma once
#include <QString>
#include <QStringList>
#include <optional>
#include <string>

#include "ports/IFileDialog.h"

namespace clb {

/// The desktop's own dialogs for choosing a file.
class FileDialogPort : public IFileDialog {
public:
    std::optional<FileChoice> Ask(const FileQuestion& question) override;

    /// Answers the next question with this file without asking: the user has dropped it.
    void AnswerNext(const std::string& path) { dropped_ = path; }

    /// "Statements|*.ofx;*.qif|" becomes "Statements (*.ofx *.OFX *.qif *.QIF)", one text a pair.
    static QStringList NameFilters(const std::string& filter);

private:
    FileChoice Choice(const FileQuestion& question, const QString& path, int filterIndex);

    QString folder_;
    std::optional<std::string> dropped_;
};

}  // namespace clb
