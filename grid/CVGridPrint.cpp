// Printing: the grid is written to a file, the system prints it, the file goes again.

#include <filesystem>

#include "files/WholeFile.h"
#include "grid/CVGrid.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

/// What is printed is for the user alone, whatever an earlier run has left under the name.
void WriteFile(const std::string& path, const std::string& text)
{
    WholeFile file(path, Existing::ReplaceName);
    file.Write(text);
    file.Keep();
}

/// Removes whatever is called print.*, on purpose also what printing did not make.
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
