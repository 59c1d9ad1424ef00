#include "import/StatementFile.h"

#include <filesystem>
#include <system_error>

#include "base/Text.h"
#include "files/FileError.h"
#include "files/ReadFile.h"
#include "import/PathErrors.h"

namespace clb {

namespace fs = std::filesystem;

void RequireRegularFile(const std::string& path)
{
    std::error_code failure;
    const fs::file_status status = fs::status(path, failure);
    if (status.type() == fs::file_type::not_found)
        throw FileNotFound();
    if (status.type() != fs::file_type::regular)
        throw PathAccessError(path);
}

std::string ReadBytes(const std::string& path)
{
    RequireRegularFile(path);
    try {
        return ReadFile(path);
    } catch (const FileError&) {
        throw PathAccessError(path);
    }
}

std::string ReadStatement(const std::string& path)
{
    return DecodeFile(ReadBytes(path));
}

std::string BackupOfStatement(const std::string& path)
{
    return path + ".org";
}

}  // namespace clb
