#include "platform/HelpFolder.h"

#include <unistd.h>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <system_error>

#include "files/FileError.h"
#include "files/Folders.h"
#include "files/ReadFile.h"
#include "files/WholeFile.h"
#include "platform/HelpFiles.h"

namespace clb {
namespace {

/// Holds the version of the manual in the same folder. It is written last and removed first, so
/// that a half-written manual never counts as complete.
std::string VersionFile(const std::string& help)
{
    return help + "/version";
}

/// Returns an empty text if there is no complete manual.
std::string VersionOf(const std::string& help)
{
    try {
        return ReadFile(VersionFile(help));
    } catch (const FileError&) {
        return "";
    }
}

bool IsWhole(const std::string& help)
{
    const auto [files, version] = HelpFiles();
    return VersionOf(help) == version &&
           std::all_of(files.begin(), files.end(), [&](const EmbeddedFile& file) {
               std::error_code missing;
               const auto size =
                   std::filesystem::file_size(help + "/" + std::string(file.name), missing);
               return !missing && size == file.bytes.size();
           });
}

void Replace(const std::string& path, std::string_view bytes)
{
    WholeFile file(path, Existing::ReplaceName);
    file.Write(bytes);
    file.TakePlace();
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
        MakePrivateFolder(help);
        unlink(VersionFile(help).c_str());
        for (const EmbeddedFile& file : HelpFiles().files)
            Replace(help + "/" + std::string(file.name), file.bytes);
        SyncFolder(help);
        Replace(VersionFile(help), HelpFiles().version);
        SyncFolder(help);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace clb
