// The dialogs in which the user chooses a file.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace clb {

/// The flags of a file dialog that the program uses.
namespace file_flags {
enum : std::int32_t {
    OverwritePrompt = 2,
    HideReadOnly = 4,
    PathMustExist = 2048,
    FileMustExist = 4096
};
}  // namespace file_flags

/// How a file dialog opens.
struct FileQuestion {
    bool save = false;
    std::string filter;            ///< pairs of description and pattern; "|" ends each part
    std::int32_t filterIndex = 1;  ///< the pair chosen at first, from 1
    std::int32_t flags = 0;        ///< sum of file_flags
    std::string title;             ///< empty: the dialog's own
    std::string folder;            ///< empty: the last one used
    std::string name;              ///< the file name shown at first
    std::string defaultExtension;  ///< added to a name typed without one; empty: none
    bool several = false;          ///< the user may choose several files to open
};

/// What the user chose.
struct FileChoice {
    std::string path;
    std::string folder;
    std::int32_t filterIndex = 1;
    std::int32_t flags = 0;
    std::vector<std::string> further{};  ///< paths after the first, if several may be chosen
};

/// The system's dialogs for choosing a file.
class IFileDialog {
public:
    virtual ~IFileDialog() = default;
    /// Returns nothing if the user cancels.
    [[nodiscard]] virtual std::optional<FileChoice> Ask(const FileQuestion& question) = 0;
};

}  // namespace clb
