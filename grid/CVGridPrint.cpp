// Printing: the grid is written to a file, the system prints the file, and the file is removed.

#include <filesystem>

#include "files/WholeFile.h"
#include "grid/CVGrid.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

/// Only the user can read the printed file, whatever an earlier run left under its name.
void WriteFile(const std::string& path, const std::string& text)
{
    WholeFile file(path, Existing::ReplaceName);
    file.Write(text);
    file.Keep();
}

/// Removes every file print.*, on purpose also files that printing did not make.
void RemovePrinted(const std::string& folder)
{
    std::error_code ignored;
    std::vector<fs::path> printed;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored))
        if (entry.path().filename().string().starts_with("print.") && !entry.is_directory(ignored))
            printed.push_back(entry.path());
    for (const fs::path& path : printed)
        fs::remove(path, ignored);
}

}  // namespace

void CVGrid::PrintMe()
{
    const std::string file = folder_ + "/print.html";
    WriteFile(file, GridHtml(*this, page_ ? page_() : GridPage()));
    printing_.Print(file);
    RemovePrinted(folder_);
}

}  // namespace clb
