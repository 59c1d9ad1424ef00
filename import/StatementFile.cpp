#include "import/StatementFile.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "base/Text.h"
#include "import/FileErrors.h"

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
    std::error_code failure;
    const auto size = fs::file_size(path, failure);
    std::ifstream file(path, std::ios::binary);
    if (failure || !file)
        throw PathAccessError(path);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (file.bad())
        throw PathAccessError(path);
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

std::string ReadStatement(const std::string& path)
{
    return DecodeFile(ReadBytes(path));
}

std::string KeptStatement(const std::string& path)
{
    return path + ".org";
}

}  // namespace clb
