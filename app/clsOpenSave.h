#pragma once
#include <cstdint>
#include <string>

#include "ports/IFileDialog.h"

namespace clb {

/// The system's dialogs for opening and saving a file. Set the properties, ask, read them again.
class clsOpenSave {
public:
    /// The dialogs are borrowed; they outlive the object.
    explicit clsOpenSave(IFileDialog& dialogs) : dialogs_(dialogs) {}

    /// Extension of the chosen file, without its period; set after a dialog.
    std::string FileExt;
    /// Owner window; 0 for none.
    std::int32_t hWnd = 0;
    /// Most characters of a file name.
    std::int32_t MaxFileSize = 260;
    /// Folder that the dialog opens in.
    std::string InitDir;
    /// Sum of file_flags.
    std::int32_t Flags = 0;
    /// 1-based pair of the filter that is chosen.
    std::int32_t FilterIndex = 1;
    /// File name without its folder; set after a dialog.
    std::string FileTitle;
    /// Before a dialog the name it opens with, then the full path of the chosen file.
    std::string FileName;
    std::string DialogTitle;
    /// Added to a name typed without an extension.
    std::string DefaultExt;

    /// Pairs of description and pattern, divided by "|"; an end without "|" gets one.
    [[nodiscard]] std::string Filter() const;
    void Filter(const std::string& pairs);

    /// Asks for a file to open, or to save to. False when the user cancels; nothing has changed
    /// then.
    bool GetFileName();
    bool ShowSave();

private:
    bool Ask(bool save);

    IFileDialog& dialogs_;
    std::string filter_{"All Files (*.*)\0*.*", 19};  // each divider a NUL
};

}  // namespace clb
