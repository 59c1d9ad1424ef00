#include "data/BackupFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <new>
#include <set>
#include <sstream>
#include <thread>
#include <tuple>

#include "base/Date.h"
#include "engine/storage/DatabaseCopy.h"
#include "engine/storage/EngineError.h"
#include "files/FileError.h"
#include "files/Folders.h"
#include "files/ReadFile.h"
#include "files/WholeFile.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kDaysKept = 10;
constexpr std::size_t kDayLength = std::char_traits<char>::length("2026-11-21");
constexpr std::string_view kBefore = "clb-";
constexpr std::string_view kAfter = ".mdb";
constexpr const char* kList = "order";
constexpr const char* kFailure = "failed";

bool IsDay(const std::string& name)
{
    return name.size() == kDayLength && Date::FromIso(name);
}

EngineError FolderError(const std::string& path, const std::string& what)
{
    return {engine_errors::Unavailable, "The file '" + path + "' " + what,
            FileTrouble::FolderReadOnly};
}

bool IsFolder(const std::string& path)
{
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// The part of a file name that names a copy; empty for other files.
std::string NameIn(const std::string& file)
{
    if (file.size() < kBefore.size() + kDayLength + kAfter.size() || !file.starts_with(kBefore) ||
        !file.ends_with(kAfter))
        return {};
    std::string name = file.substr(kBefore.size(), file.size() - kBefore.size() - kAfter.size());
    return IsDay(name.substr(0, kDayLength)) ? name : std::string();
}

/// The contents of one of the folder's own files. A file counts as empty if it is missing, is not a
/// regular file or cannot be read. Reading a pipe of that name would make the program wait for
/// ever.
std::string BytesOf(const std::string& path)
{
    std::error_code unknown;
    if (!fs::is_regular_file(path, unknown))
        return {};
    try {
        return ReadFile(path);
    } catch (const FileError&) {
        return {};
    }
}

/// A free name for something that has the path's name but is not what it should be.
std::string NameAside(const std::string& path)
{
    std::string kept = path + ".damaged";
    for (int number = 2; IsThere(kept); ++number)
        kept = path + ".damaged-" + std::to_string(number);
    return kept;
}

}  // namespace

std::string BackupFolder::PathOf(const std::string& name) const
{
    return path_ + "/" + std::string(kBefore) + name + std::string(kAfter);
}

std::string BackupFolder::FreeName(const std::string& name) const
{
    std::string free = name;
    for (int number = 2; IsThere(PathOf(free)); ++number)
        free = name + "-" + std::to_string(number);
    return free;
}

void BackupFolder::Make() const
{
    if (mkdir(path_.c_str(), 0700) == 0)
        return FlushToDisk(path_);
    const int error = errno;
    if (error != EEXIST)
        throw FolderError(path_, std::string("cannot be made: ") + std::strerror(error) + ".");
    if (!IsFolder(path_))
        throw FolderError(path_, "is not a folder.");
}

std::string BackupFolder::Obstacle(std::uintmax_t bytes) const
{
    if (!IsThere(path_))
        return {};
    if (!IsFolder(path_))
        return FolderError(path_, "is not a folder.").what();
    if (faccessat(AT_FDCWD, path_.c_str(), W_OK | X_OK, AT_EACCESS) != 0)
        return FolderError(path_, std::string("cannot be written: ") + std::strerror(errno) + ".")
            .what();
    struct statvfs disk {};
    if (statvfs(path_.c_str(), &disk) == 0 && disk.f_bavail < bytes / disk.f_frsize)
        return "The disk of '" + path_ + "' has no room for a copy of the database.";
    return {};
}

std::optional<BackupFolder::Mark> BackupFolder::MarkOf(const std::string& path)
{
    struct stat status {};
    if (stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return Mark(status.st_size,
                status.st_mtim.tv_sec * std::int64_t{1000000000} + status.st_mtim.tv_nsec);
}

std::string BackupFolder::Written(const std::optional<Mark>& mark)
{
    return mark ? std::to_string(mark->first) + " " + std::to_string(mark->second) : "-";
}

std::map<std::string, BackupFolder::Mark> BackupFolder::Present() const
{
    std::map<std::string, Mark> present;
    for (const std::string& file : NamesIn(path_)) {
        const std::string name = NameIn(file);
        if (!name.empty())
            present.emplace(name, MarkOf(path_ + "/" + file).value_or(Mark()));
    }
    return present;
}

BackupFolder::Listed BackupFolder::List() const
{
    std::map<std::string, Mark> unlisted = Present();
    Listed list;
    std::istringstream lines(BytesOf(path_ + "/" + kList));
    for (std::string line; std::getline(lines, line);) {
        const std::size_t end = std::min(line.find('\t'), line.size());
        if (unlisted.erase(line.substr(0, end)) > 0)
            list.emplace_back(line.substr(0, end), line.substr(std::min(end + 1, line.size())));
    }
    if (lines.bad())
        throw std::bad_alloc();
    const std::int64_t now = std::int64_t{std::time(nullptr)} * 1000000000;
    std::vector<std::tuple<bool, std::int64_t, std::string>> found;
    found.reserve(unlisted.size());
    for (const auto& [name, mark] : unlisted)
        found.emplace_back(mark.second <= now + 1000000000, mark.second, name);
    std::sort(found.begin(), found.end());
    for (const auto& [past, time, name] : found)
        list.emplace_back(name, "-");
    return list;
}

std::vector<std::string> BackupFolder::Names() const
{
    std::vector<std::string> names;
    for (const auto& [name, mark] : List())
        names.push_back(name);
    return names;
}

void BackupFolder::Add(const std::string& name) const noexcept
{
    try {
        Listed list = List();
        std::erase_if(list, [&](const auto& line) { return line.first == name; });
        list.emplace_back(name, Written(MarkOf(PathOf(name))));
        WriteList(list);
    } catch (const std::exception&) {
    }
}

void BackupFolder::Confirm(const std::string& name) const noexcept
{
    try {
        Listed list = List();
        for (auto& [listed, mark] : list)
            if (listed == name)
                mark = Written(MarkOf(PathOf(name)));
        WriteList(list);
    } catch (const std::exception&) {
    }
}

bool BackupFolder::IsConfirmed(const std::string& name) const
{
    const auto mark = MarkOf(PathOf(name));
    const Listed list = List();
    return mark && LooksWhole(PathOf(name)) &&
           std::find(list.begin(), list.end(), std::pair(name, Written(mark))) != list.end();
}

void BackupFolder::WriteList(const Listed& list) const
{
    std::string text;
    for (const auto& [name, mark] : list)
        text.append(name).append("\t").append(mark).append("\n");
    static_cast<void>(WriteWhole(kList, text));
}

bool BackupFolder::WriteWhole(const std::string& file, const std::string& text) const
{
    const std::string path = path_ + "/" + file;
    // A pipe or a link is replaced by the file; a folder is not.
    if (IsFolder(path))
        ::rename(path.c_str(), NameAside(path).c_str());
    try {
        WholeFile whole(path, Existing::ReplaceName);
        whole.Write(text);
        whole.Keep();
        return true;
    } catch (const FileError&) {
        return false;
    }
}

void BackupFolder::PutAside(const std::string& name) const
{
    const std::string path = PathOf(name);
    const auto mark = MarkOf(path);
    if (!IsThere(path))
        return;
    if (mark && mark->first == 0 && unlink(path.c_str()) == 0)
        return;
    if (rename(path.c_str(), NameAside(path).c_str()) != 0)
        throw FolderError(path, std::string("cannot be renamed: ") + std::strerror(errno) + ".");
}

void BackupFolder::DropOld() const
{
    std::vector<std::string> days = Names();
    std::erase_if(days, [](const std::string& name) { return !IsDay(name); });
    std::set<std::string> stay;
    std::set<std::string> months;
    for (const std::string& day : days)
        if (LooksWhole(PathOf(day)) && months.insert(day.substr(0, 7)).second)
            stay.insert(day);
    std::size_t whole = 0;
    for (auto day = days.rbegin(); day != days.rend(); ++day) {
        if (whole >= kDaysKept && !stay.contains(*day))
            unlink(PathOf(*day).c_str());
        whole += LooksWhole(PathOf(*day)) ? 1U : 0U;
    }
}

void BackupFolder::Failure(const std::optional<BackupFailure>& failure) const noexcept
{
    try {
        if (failure)
            static_cast<void>(WriteWhole(kFailure, failure->Lines()));
        else
            unlink((path_ + "/" + kFailure).c_str());
    } catch (const std::exception&) {
    }
}

std::optional<BackupFailure> BackupFolder::Failure() const
{
    return BackupFailure::FromLines(BytesOf(path_ + "/" + kFailure));
}

BackupFolder::Turn::Turn(const BackupFolder& folder)
    : file_(open(folder.path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    constexpr int kTries = 1200;
    constexpr std::chrono::milliseconds kPause(50);
    for (int attempt = 0; file_ >= 0 && attempt < kTries; ++attempt) {
        if (flock(file_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK)
            return;
        std::this_thread::sleep_for(kPause);
    }
}

BackupFolder::Turn::~Turn()
{
    if (file_ >= 0)
        close(file_);
}

}  // namespace clb
