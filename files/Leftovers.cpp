#include "files/Leftovers.h"

#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <exception>
#include <filesystem>
#include <new>

#include "files/Folders.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kUnfinished = ".clb-";
constexpr std::string_view kTemporary = "clb-";
constexpr std::size_t kRandom = std::char_traits<char>::length("XXXXXX");

/// Parses the process number out of a name of ours. Returns 0 if it is not one.
pid_t ProcessOf(std::string_view name, std::string_view front)
{
    if (!name.starts_with(front))
        return 0;
    name.remove_prefix(front.size());
    pid_t process = 0;
    const auto read = std::from_chars(name.data(), name.data() + name.size(), process);
    const auto rest = name.substr(static_cast<std::size_t>(read.ptr - name.data()));
    const bool ours = read.ec == std::errc() && rest.size() == kRandom + 1 && rest[0] == '-' &&
                      std::all_of(rest.begin() + 1, rest.end(),
                                  [](unsigned char c) { return std::isalnum(c) != 0; });
    return ours ? process : 0;
}

bool HasEnded(pid_t process)
{
    return process > 0 && ::kill(process, 0) != 0 && errno == ESRCH;
}

bool IsLeftover(const std::string& folder, const std::string& name)
{
    struct stat status {};
    if (::lstat((folder + "/" + name).c_str(), &status) != 0 || status.st_uid != ::geteuid())
        return false;
    if (S_ISDIR(status.st_mode))
        return HasEnded(ProcessOf(name, kTemporary));
    return S_ISREG(status.st_mode) && HasEnded(ProcessOf(name, kUnfinished));
}

/// Looks at the name alone, before the file itself is asked.
bool MayBeOurs(std::string_view name)
{
    return name.starts_with(kTemporary) || name.starts_with(kUnfinished);
}

}  // namespace

std::string UnfinishedFront()
{
    return std::string(kUnfinished) + std::to_string(::getpid()) + "-";
}

std::string TemporaryFront()
{
    return std::string(kTemporary) + std::to_string(::getpid()) + "-";
}

void RemoveLeftovers(const std::string& folder) noexcept
{
    try {
        std::error_code ignored;
        for (const std::string& name : NamesIn(folder))
            if (MayBeOurs(name) && IsLeftover(folder, name))
                fs::remove_all(fs::path(folder) / name, ignored);
    } catch (const std::exception&) {
        // The next start tries again.
    }
}

void RemoveTemporaryLeftovers() noexcept
{
    try {
        std::error_code failure;
        const fs::path folder = fs::temp_directory_path(failure);
        if (!failure)
            RemoveLeftovers(folder.string());
    } catch (const std::bad_alloc&) {
        return;  // the next start tries again
    }
}

}  // namespace clb
