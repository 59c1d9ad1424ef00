#include "platform/HelpFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/HelpFiles.h"
#include "platform/NewFile.h"

namespace clb {
namespace {

/// Says which manual lies beside it. Written last and removed first, so that one left half written
/// is never taken for whole.
std::string VersionFile(const std::string& help)
{
    return help + "/version";
}

bool IsWhole(const std::string& help)
{
    std::ifstream in(VersionFile(help), std::ios::binary);
    const std::string version{std::istreambuf_iterator<char>(in), {}};
    const auto files = HelpFiles();
    return version == HelpVersion() &&
           std::all_of(files.begin(), files.end(), [&](const HelpFile& file) {
               std::error_code missing;
               const auto size =
                   std::filesystem::file_size(help + "/" + std::string(file.name), missing);
               return !missing && size == file.bytes.size();
           });
}

void Replace(const std::string& path, std::string_view bytes)
{
    unlink(path.c_str());
    NewFile file(path);
    file.Write(bytes);
    file.Keep();
}

}  // namespace

std::string HelpFolder(const std::string& folder)
{
    return folder + "/Help";
}

bool DeliverHelp(const std::string& folder) noexcept
{
    try {
        const std::string help = HelpFolder(folder);
        if (IsWhole(help))
            return true;
        mkdir(help.c_str(), 0700);
        unlink(VersionFile(help).c_str());
        for (const HelpFile& file : HelpFiles())
            Replace(help + "/" + std::string(file.name), file.bytes);
        Replace(VersionFile(help), HelpVersion());
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace clb
