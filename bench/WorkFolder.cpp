#include "bench/WorkFolder.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <cstdint>
#include <stdexcept>
#include <system_error>

#include "data/EmptyDatabase.h"
#include "platform/ProgramFolder.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

std::string FileSystemName(const fs::path& path)
{
    struct statfs about {};
    if (statfs(path.c_str(), &about) != 0)
        return "unknown file system";
    switch (static_cast<std::uint32_t>(about.f_type)) {
        case 0xEF53: return "ext4";
        case 0x58465342: return "xfs";
        case 0x9123683E: return "btrfs";
        case 0x794C7630: return "overlay";
        case 0x01021994: return "tmpfs: memory, not a disk; set TMPDIR to a folder on a disk";
        default: return "other file system";
    }
}

}  // namespace

WorkFolder::WorkFolder()
{
    const char* parent = getenv("TMPDIR");
    std::string name =
        std::string(parent && *parent != 0 ? parent : "/var/tmp") + "/clb-bench-XXXXXX";
    if (!mkdtemp(name.data()))
        throw std::runtime_error("cannot make a folder " + name);
    path_ = name;
}

WorkFolder::~WorkFolder()
{
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string WorkFolder::Deliver(const std::string& name) const
{
    std::string folder = Path(name);
    fs::remove_all(folder);
    DeliverFolder(folder, EmptyDatabase());
    return folder;
}

void WorkFolder::Flush() const
{
    const int handle = open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    syncfs(handle);
    close(handle);
}

std::string WorkFolder::Description() const
{
    return path_.string() + " (" + FileSystemName(path_) + ")";
}

}  // namespace clb
