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
#include <functional>
#include <new>

#include "files/Folders.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kUnfinished = ".clb-";
constexpr std::string_view kTemporary = "clb-";
constexpr std::string_view kUnchecked = ".new-";  // the process number follows
constexpr std::string_view kDatabase = ".mdb";
constexpr std::string_view kJournal = "-journal";
constexpr std::size_t kRandom = std::char_traits<char>::length("XXXXXX");

/// Parses the process number at the front of the text and removes it. Returns 0 if there is none.
pid_t TakeProcess(std::string_view& text)
{
    pid_t process = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), process);
    text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
    return read.ec == std::errc() ? process : 0;
}

/// Parses the process number in a name of ours. Returns 0 if the name is not ours.
pid_t ProcessOf(std::string_view name, std::string_view front)
{
    if (!name.starts_with(front))
        return 0;
    name.remove_prefix(front.size());
    const pid_t process = TakeProcess(name);
    const bool ours = name.size() == kRandom + 1 && name[0] == '-' &&
                      std::all_of(name.begin() + 1, name.end(),
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

bool IsOwnFile(const std::string& path)
{
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && status.st_uid == ::geteuid() &&
           S_ISREG(status.st_mode);
}

/// Removes the unfinished copies of ended processes, and their journals, from a folder. ours:
/// decides by the file name that the copy was for.
void RemoveEnded(const std::string& folder, const std::function<bool(std::string_view)>& ours)
{
    for (const std::string& name : NamesIn(folder)) {
        const std::size_t mark = name.rfind(kUnchecked);
        if (mark == std::string::npos || !ours(std::string_view(name).substr(0, mark)))
            continue;
        std::string_view rest = std::string_view(name).substr(mark + kUnchecked.size());
        const pid_t process = TakeProcess(rest);
        const std::string path = std::string(folder).append("/").append(name);
        if ((rest.empty() || rest == kJournal) && HasEnded(process) && IsOwnFile(path))
            ::unlink(path.c_str());
    }
}

/// Checks only the name, before the file itself is examined.
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

std::string UnfinishedName(const std::string& path)
{
    return path + std::string(kUnchecked) + std::to_string(::getpid());
}

void RemoveUnfinishedOf(const std::string& path)
{
    const std::string file = path.substr(path.rfind('/') + 1);
    RemoveEnded(FolderOf(path), [&](std::string_view name) { return name == file; });
}

void RemoveUnfinishedIn(const std::string& folder)
{
    RemoveEnded(folder, [](std::string_view name) { return name.ends_with(kDatabase); });
}

}  // namespace clb
