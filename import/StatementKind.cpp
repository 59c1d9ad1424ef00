#include "import/StatementKind.h"

#include <filesystem>

#include "files/FileError.h"
#include "files/TemporaryFolder.h"
#include "import/PathErrors.h"
#include "import/StatementFile.h"
#include "import/modImport.h"

namespace clb {
namespace fs = std::filesystem;

std::int32_t StatementKind(const std::string& path)
{
    RequireRegularFile(path);
    const TemporaryFolder folder;
    // A QIF file is recognised by its extension.
    const std::string copy = folder.Path(fs::path(path).filename().string());
    std::error_code failure;
    if (!fs::copy_file(path, copy, failure))
        throw PathAccessError(path);
    modImport::FixLineEndings(copy);
    return modImport::DetectFileFormat(copy);
}

}  // namespace clb
