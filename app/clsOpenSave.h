// The dialogs for opening and saving a file.
#pragma once
#include <cstdint>
#include <string>

#include "ports/IFileDialog.h"

namespace clb {

/// Asks for a file with the system's dialogs. Set the properties, ask, then read the properties.
class clsOpenSave {
public:
    /// Borrows the dialogs, which outlive it.
    explicit clsOpenSave(IFileDialog& dialogs) : dialogs_(dialogs) {}

    /// Extension of the chosen file, without the period. Set by a dialog.
    std::string FileExt;
    /// Owner window; 0 for none.
    std::int32_t hWnd = 0;
    /// The longest file name, in characters.
    std::int32_t MaxFileSize = 260;
    /// Folder that the dialog opens in.
    std::string InitDir;
    /// Sum of file_flags.
    std::int32_t Flags = 0;
    /// 1-based number of the chosen pair of the filter.
    std::int32_t FilterIndex = 1;
    /// File name without its folder. Set by a dialog.
    std::string FileTitle;
    /// Before a dialog the proposed name; after it the full path of the chosen file.
    std::string FileName;
    std::string DialogTitle;
    /// Added to a name that is typed without an extension.
    std::string DefaultExt;

    /// Pairs of description and pattern, separated by "|". A "|" is added at the end if it is
    /// missing.
    [[nodiscard]] std::string Filter() const;
    void Filter(const std::string& pairs);

    /// Asks for a file to open, or to save to. Returns false and changes nothing if the user
    /// cancels.
    bool GetFileName();
    bool ShowSave();

private:
    bool Ask(bool save);

    IFileDialog& dialogs_;
    std::string filter_{"All Files (*.*)\0*.*", 19};  // each separator is a NUL
};

}  // namespace clb
