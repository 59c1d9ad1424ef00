#include "desktop/ports/FileDialogPort.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <algorithm>

#include "desktop/look/TextConvert.h"
#include "desktop/ports/DialogParent.h"
#include "desktop/ports/PointerPort.h"

namespace clb {

namespace {

// Some desktops distinguish upper and lower case in file names, and statements are named .ofx or
// .OFX.
QStringList BothCases(const QString& patterns)
{
    QStringList all;
    for (const QString& pattern : patterns.split(u';', Qt::SkipEmptyParts)) {
        const QString trimmed = pattern.trimmed();
        for (const QString& one : {trimmed, trimmed.toLower(), trimmed.toUpper()})
            if (!all.contains(one))
                all << one;
    }
    return all;
}

void Prepare(QFileDialog& dialog, const FileQuestion& question)
{
    const QStringList filters = FileDialogPort::NameFilters(question.filter);
    dialog.setAcceptMode(question.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    const bool mustExist = !question.save && (question.flags & file_flags::FileMustExist) != 0;
    dialog.setFileMode(question.several ? QFileDialog::ExistingFiles
                       : mustExist      ? QFileDialog::ExistingFile
                                        : QFileDialog::AnyFile);
    // The patterns of every kind of statement have no room beside its name.
    dialog.setOption(QFileDialog::HideNameFilterDetails, question.several);
    dialog.setOption(QFileDialog::DontConfirmOverwrite,
                     (question.flags & file_flags::OverwritePrompt) == 0);
    if (!filters.isEmpty()) {
        dialog.setNameFilters(filters);
        const auto chosen = std::clamp<qsizetype>(question.filterIndex - 1, 0, filters.size() - 1);
        dialog.selectNameFilter(filters[chosen]);
    }
    if (!question.title.empty())
        dialog.setWindowTitle(ToQString(question.title));
    dialog.setDefaultSuffix(ToQString(question.defaultExtension));
    if (!question.name.empty())
        dialog.selectFile(ToQString(question.name));
}

}  // namespace

QStringList FileDialogPort::NameFilters(const std::string& filter)
{
    const QStringList parts = ToQString(filter).split(u'|');
    QStringList filters;
    for (qsizetype at = 0; at + 1 < parts.size(); at += 2) {
        QString label = parts[at];
        // The toolkit itself adds the patterns after the description.
        label = label.left(label.indexOf(u'(')).trimmed();
        filters << QStringLiteral("%1 (%2)").arg(label, BothCases(parts[at + 1]).join(u' '));
    }
    return filters;
}

std::optional<FileChoice> FileDialogPort::Ask(const FileQuestion& question)
{
    const PlainPointer pointer;
    QFileDialog dialog(DialogParent());
    const QString folder = question.folder.empty() ? folder_ : ToQString(question.folder);
    dialog.setDirectory(folder.isEmpty() ? QDir::homePath() : folder);
    Prepare(dialog, question);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const qsizetype filter = dialog.nameFilters().indexOf(dialog.selectedNameFilter());
    const QStringList files = dialog.selectedFiles();
    folder_ = QFileInfo(files.first()).absolutePath();
    FileChoice choice{ToUtf8(files.first()), ToUtf8(folder_),
                      std::max(static_cast<int>(filter) + 1, 1), question.flags};
    for (qsizetype further = 1; further < files.size(); ++further)
        choice.further.push_back(ToUtf8(files[further]));
    return choice;
}

}  // namespace clb
