#include "data/Backups.h"

#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <new>
#include <set>

#include "data/SchemaVersion.h"
#include "engine/Backup.h"
#include "engine/Connection.h"
#include "engine/EngineError.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kDaysKept = 10;
constexpr std::size_t kDayLength = std::char_traits<char>::length("2026-11-21");
constexpr std::string_view kFront = "clb-";
constexpr std::string_view kBehind = ".mdb";
constexpr std::string_view kUnfinished = ".new-";  // and the number of the process

std::string DayOf(const Date& moment)
{
    return Date::FromDays(moment.Days()).ToIso();
}

std::string TimeOf(const Date& moment)
{
    std::string time;
    for (const int part : {moment.Hour(), moment.Minute(), moment.Second()})
        time += (part < 10 ? "0" : "") + std::to_string(part);
    return time;
}

bool IsDay(const std::string& name)
{
    return name.size() == kDayLength && Date::FromIso(name);
}

EngineError NoCopy(const std::string& path, const std::string& what, FileTrouble trouble)
{
    return {engine_errors::Unavailable, "The file '" + path + "' " + what, trouble};
}

/// For the user alone, unless it is there.
void MakeOwnFolder(const std::string& folder)
{
    if (mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST)
        throw NoCopy(folder, std::string("cannot be made: ") + std::strerror(errno) + ".",
                     FileTrouble::FolderReadOnly);
}

/// A copy under another name, which goes again unless it gets its own.
class UnfinishedCopy {
public:
    /// Throws when the source is damaged, too.
    UnfinishedCopy(const std::string& from, const std::string& to)
        : UnfinishedCopy(to + std::string(kUnfinished) + std::to_string(getpid()))
    {
        CopyDatabase(from, path_);
        const auto faults = FaultsOf(path_);
        if (!faults.empty())
            throw NoCopy(from, "is damaged: " + faults.front() + ".", FileTrouble::Damaged);
    }
    ~UnfinishedCopy() { unlink(path_.c_str()); }
    UnfinishedCopy(const UnfinishedCopy&) = delete;
    UnfinishedCopy& operator=(const UnfinishedCopy&) = delete;

    const std::string& Path() const { return path_; }
    void Rename(const std::string& to) const
    {
        if (rename(path_.c_str(), to.c_str()) != 0)
            throw NoCopy(to, std::string("cannot be written: ") + std::strerror(errno) + ".",
                         FileTrouble::ReadOnly);
    }

private:
    // From here on the destructor runs whatever the copying throws.
    explicit UnfinishedCopy(std::string path) : path_(std::move(path)) { unlink(path_.c_str()); }

    std::string path_;
};

bool HasTable(Connection& connection, const std::string& table)
{
    try {
        connection.Execute("SELECT * FROM " + table + " WHERE false");
        return true;
    } catch (const EngineError& error) {
        if (error.Number() == engine_errors::NoSuchTable)
            return false;
        throw;
    }
}

bool HasOurTables(Connection& connection)
{
    return HasTable(connection, "Account") && HasTable(connection, "Loan");
}

}  // namespace

Backups::Backups(const std::string& programFolder)
    : database_(programFolder + "/db/clb.mdb"), folder_(programFolder + "/db/backup")
{
}

std::string Backups::PathOf(const std::string& name) const
{
    return folder_ + "/" + std::string(kFront) + name + std::string(kBehind);
}

bool Backups::HasDay(const Date& day) const
{
    return fs::exists(PathOf(DayOf(day)));
}

void Backups::MakeFolder() const
{
    MakeOwnFolder(folder_);
}

std::vector<std::string> Backups::Names() const
{
    std::vector<std::string> names;
    std::error_code none;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_, none)) {
        const std::string file = entry.path().filename().string();
        if (file.size() < kFront.size() + kDayLength + kBehind.size() ||
            !file.starts_with(kFront) || !file.ends_with(kBehind))
            continue;
        const std::string name =
            file.substr(kFront.size(), file.size() - kFront.size() - kBehind.size());
        if (IsDay(name.substr(0, kDayLength)))
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string Backups::FreeName(const std::string& name) const
{
    std::string free = name;
    for (int number = 2; fs::exists(PathOf(free)); ++number)
        free = name + "-" + std::to_string(number);
    return free;
}

void Backups::Daily(const Date& now)
{
    if (HasDay(now))
        return;
    MakeFolder();
    DropUnfinished();
    const std::string path = PathOf(DayOf(now));
    UnfinishedCopy(database_, path).Rename(path);
    DropOld();
}

std::string Backups::Make(const Date& now)
{
    MakeFolder();
    const std::string day = DayOf(now);
    const std::string path = PathOf(HasDay(now) ? FreeName(day + "-" + TimeOf(now)) : day);
    UnfinishedCopy(database_, path).Rename(path);
    return path;
}

void Backups::BeforeUpgrade(const Date& now)
{
    try {
        const std::string path = PathOf(DayOf(now) + "-before-upgrade");
        Connection connection;
        connection.Open("Data Source=" + database_);
        const std::int16_t version = SchemaVersionOf(connection).value_or(0);
        if (version < 0 || version >= kSchemaVersion || !HasOurTables(connection) ||
            fs::exists(path))
            return;
        connection = Connection();
        MakeFolder();
        UnfinishedCopy(database_, path).Rename(path);
    } catch (const std::bad_alloc&) {
        throw;  // another try may well make it
    } catch (const std::exception&) {
        // Opening the database itself tells what is the matter with it.
    }
}

void Backups::CopyTo(const std::string& file) const
{
    if (fs::exists(fs::symlink_status(file)))
        throw EngineError(errors::FileAlreadyExists, "File already exists: " + file);
    UnfinishedCopy(database_, file).Rename(file);
}

std::optional<std::string> Backups::Restore(const std::string& file, const Date& now)
{
    MakeOwnFolder(fs::path(database_).parent_path().parent_path().string());
    MakeOwnFolder(fs::path(database_).parent_path().string());
    const UnfinishedCopy fresh(file, database_);
    {
        Connection connection;
        connection.Open("Data Source=" + fresh.Path());
        if (!HasOurTables(connection))
            throw NoCopy(file, "is no copy of this program's database.", FileTrouble::None);
    }
    const bool replaces = fs::exists(database_);
    MakeFolder();
    std::optional kept = PathOf(FreeName(DayOf(now) + "-before-restore"));
    ReplaceDatabase(database_, fresh.Path(), *kept);
    if (!replaces)
        kept.reset();
    return kept;
}

void Backups::DropOld() const
{
    std::vector<std::string> days = Names();
    std::erase_if(days, [](const std::string& name) { return !IsDay(name); });
    std::set<std::string> months;
    for (std::size_t at = 0; at < days.size(); ++at) {
        const bool firstOfMonth = months.insert(days[at].substr(0, 7)).second;
        if (!firstOfMonth && at + kDaysKept < days.size())
            unlink(PathOf(days[at]).c_str());
    }
}

/// What programs that were ended in the middle have left.
void Backups::DropUnfinished() const
{
    std::error_code none;
    std::vector<fs::path> left;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_, none)) {
        const std::string file = entry.path().filename().string();
        const std::size_t at = file.find(kUnfinished);
        if (!file.starts_with(kFront) || at == std::string::npos)
            continue;
        const char* const number = file.c_str() + at + kUnfinished.size();
        int process = 0;
        const auto read = std::from_chars(number, file.c_str() + file.size(), process);
        if (read.ec == std::errc() && process > 0 && kill(process, 0) != 0 && errno == ESRCH)
            left.push_back(entry.path());
    }
    for (const fs::path& path : left)
        fs::remove(path, none);
}

}  // namespace clb
