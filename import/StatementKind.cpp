#include "import/StatementKind.h"

#include <stdlib.h>

#include <filesystem>
#include <new>

#include "import/FileErrors.h"
#include "import/StatementFile.h"
#include "import/modImport.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

/// A folder for the user alone, gone with what it holds.
class PrivateFolder {
public:
    PrivateFolder() : name_((fs::temp_directory_path() / "clb-XXXXXX").string())
    {
        if (!mkdtemp(name_.data()))
            throw PathAccessError(name_);
    }
    ~PrivateFolder()
    {
        try {
            std::error_code ignored;
            fs::remove_all(name_, ignored);
        } catch (const std::bad_alloc&) {
            return;  // what is left, the system clears from its folder for temporary files
        }
    }
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    std::string Path(const std::string& name) const { return name_ + "/" + name; }

private:
    std::string name_;
};

}  // namespace

std::int32_t StatementKind(const std::string& path)
{
    RequireRegularFile(path);
    const PrivateFolder folder;
    // The name's end tells a QIF file.
    const std::string copy = folder.Path(fs::path(path).filename().string());
    std::error_code failure;
    if (!fs::copy_file(path, copy, failure))
        throw PathAccessError(path);
    modImport::FixLineEndings(copy);
    return modImport::DetectFileFormat(copy);
}

}  // namespace clb
