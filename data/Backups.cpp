#include "data/Backups.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <new>

#include "base/Text.h"
#include "data/SchemaVersion.h"
#include "data/WholeBook.h"
#include "engine/rows/Connection.h"
#include "engine/storage/DatabaseCopy.h"
#include "engine/storage/EngineError.h"
#include "files/Folders.h"
#include "files/Leftovers.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

constexpr const char* kBeforeAnything = "-before-";
constexpr const char* kBeforeRestore = "-before-restore";

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

EngineError NoCopy(const std::string& path, const std::string& what, FileTrouble trouble)
{
    return {engine_errors::Unavailable, "The file '" + path + "' " + what, trouble};
}

/// Makes the folder, readable by the user only, if it does not exist.
void MakeOwnFolder(const std::string& folder)
{
    if (mkdir(folder.c_str(), 0700) == 0)
        FlushToDisk(folder);
    else if (errno != EEXIST)
        throw NoCopy(folder, std::string("cannot be made: ") + std::strerror(errno) + ".",
                     FileTrouble::FolderReadOnly);
}

/// The first fault, without the storage's heading. The first row may have many lines.
std::string FirstOf(const std::vector<std::string>& faults)
{
    std::vector<std::string> lines = Split(faults.front(), '\n');
    std::erase_if(lines, [](const std::string& line) { return line.starts_with("***"); });
    return lines.empty() ? faults.front() : lines.front();
}

/// A copy under a temporary name, which is removed unless it gets its own name.
class UnfinishedCopy {
public:
    /// Throws also if the source is damaged; FileTrouble::Damaged always means the source.
    UnfinishedCopy(const std::string& from, const std::string& to)
        : UnfinishedCopy(UnfinishedName(to))
    {
        RemoveUnfinishedOf(to);
        RemoveUnfinishedIn(FolderOf(to));
        Copy(from, to);
        if (FaultsOf(path_).empty())
            return;
        const auto faults = FaultsOf(from);
        if (faults.empty())
            throw NoCopy(to, "cannot be written: the disk keeps other data than it is given.",
                         FileTrouble::Unreadable);
        throw NoCopy(from, "is damaged: " + FirstOf(faults) + ".", FileTrouble::Damaged);
    }
    ~UnfinishedCopy() { unlink(path_.c_str()); }
    UnfinishedCopy(const UnfinishedCopy&) = delete;
    UnfinishedCopy& operator=(const UnfinishedCopy&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }
    void Name(const std::string& to) const { NameFinished(path_, to); }

private:
    // From here on the destructor runs even if the copying throws.
    explicit UnfinishedCopy(std::string path) : path_(std::move(path)) { unlink(path_.c_str()); }

    /// Messages name the file by its own name: the user does not know the temporary one.
    void Copy(const std::string& from, const std::string& to) const
    {
        try {
            CopyDatabase(from, path_);
        } catch (const EngineError& error) {
            throw EngineError(error.Number(), Replace(error.what(), path_, to), error.Trouble());
        }
    }

    std::string path_;
};

/// Gives the actual reason for files that the storage would only report as damaged.
void RequireDatabase(const std::string& file)
{
    std::error_code none;
    const char* what = nullptr;
    if (fs::is_directory(file, none))
        what = "is a folder, not a backup.";
    else if (fs::is_regular_file(file, none) && fs::file_size(file, none) == 0)
        what = "is empty: it is not a backup.";
    else if (fs::is_regular_file(file, none) && !HasDatabaseHeader(file))
        what = "is not a backup: it is not a database.";
    if (what)
        throw NoCopy(file, what, FileTrouble::None);
}

void RequireBook(const std::string& file, const std::string& name)
{
    Connection connection;
    connection.Open("Data Source=" + file);
    const std::string missing = MissingFrom(connection);
    if (!missing.empty())
        throw NoCopy(name, "is not a backup of this program: " + missing + ".", FileTrouble::None);
}

}  // namespace

Backups::Backups(const std::string& programFolder)
    : database_(programFolder + "/db/clb.mdb"), folder_(programFolder + "/db/backup")
{
}

bool Backups::HasDay(const Date& day) const
{
    return folder_.IsConfirmed(DayOf(day));
}

bool Backups::IsSound(const std::string& name) const
{
    try {
        return LooksWhole(PathOf(name)) && FaultsOf(PathOf(name)).empty();
    } catch (const EngineError&) {
        return false;
    }
}

void Backups::Take(const std::string& name) const
{
    UnfinishedCopy(database_, PathOf(name)).Name(PathOf(name));
    folder_.Add(name);
    folder_.Failure(std::nullopt);
}

std::optional<BackupFailure> Backups::Daily(const Date& now)
{
    std::optional<BackupFailure> failure;
    try {
        MakeDaily(now);
    } catch (const EngineError& error) {
        failure = {error.Trouble() == FileTrouble::Damaged, LastGood(), error.what()};
    } catch (const std::exception& error) {
        failure = {false, LastGood(), error.what()};
    }
    folder_.Failure(failure);
    return failure;
}

void Backups::MakeDaily(const Date& now)
{
    const std::string name = DayOf(now);
    folder_.Make();
    const BackupFolder::Turn turn(folder_);
    if (HasDay(now))
        return;
    if (IsSound(name))
        return folder_.Confirm(name);
    folder_.PutAside(name);
    try {
        Take(name);
    } catch (const EngineError&) {
        // If programs cannot wait for each other, another one may have been quicker.
        if (!IsSound(name))
            throw;
    }
    folder_.DropOld();
}

/// The copy that another program has made while this one waited for its turn, if nothing was
/// written to the database after it.
std::optional<std::string> Backups::MadeMeanwhile(const std::vector<std::string>& before) const
{
    const std::vector<std::string> names = Names();
    if (names.empty() || names.back().find(kBeforeAnything) != std::string::npos ||
        std::find(before.begin(), before.end(), names.back()) != before.end())
        return std::nullopt;
    // The copy's last write is made while the database is still locked for reading.
    std::error_code unknown;
    const auto written = fs::last_write_time(database_, unknown);
    if (unknown || written >= fs::last_write_time(PathOf(names.back()), unknown) || unknown)
        return std::nullopt;
    return names.back();
}

std::string Backups::Make(const Date& now)
{
    std::string name = DayOf(now);
    folder_.Make();
    const std::vector<std::string> before = Names();
    const BackupFolder::Turn turn(folder_);
    if (const auto meanwhile = MadeMeanwhile(before))
        return PathOf(*meanwhile);
    if (HasDay(now) || IsSound(name))
        name = folder_.FreeName(name + "-" + TimeOf(now));
    folder_.PutAside(name);
    Take(name);
    return PathOf(name);
}

std::string Backups::Before(const std::string& what, const Date& now)
{
    folder_.Make();
    const BackupFolder::Turn turn(folder_);
    const std::string name = folder_.FreeName(DayOf(now) + "-before-" + what);
    Take(name);
    return PathOf(name);
}

std::optional<std::string> Backups::BeforeUpgrade(const Date& now)
{
    try {
        Connection connection;
        connection.Open("Data Source=" + database_);
        const std::int16_t version = SchemaVersionOf(connection).value_or(0);
        if (version < 0 || version >= kSchemaVersion ||
            fs::exists(PathOf(DayOf(now) + "-before-upgrade")))
            return std::nullopt;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const EngineError& error) {
        // Opening the database reports the problem itself; trying here would only wait for another
        // program a second time.
        if (error.Trouble() == FileTrouble::Locked)
            throw;
        return std::nullopt;
    } catch (const std::exception&) {
        return std::nullopt;
    }
    try {
        Before("upgrade", now);
        return std::nullopt;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        return "No backup was made before the data was brought up to date. " +
               std::string(error.what());
    }
}

void Backups::CopyTo(const std::string& file) const
{
    if (fs::exists(fs::symlink_status(file)))
        throw EngineError(errors::FileAlreadyExists, "File already exists: " + file);
    UnfinishedCopy(database_, file).Name(file);
}

std::optional<BackupFailure> Backups::Failure() const
{
    if (auto kept = KeptFailure())
        return kept;
    std::error_code none;
    const std::uintmax_t size = fs::file_size(database_, none);
    const std::string obstacle = folder_.Obstacle(none ? 0 : size);
    if (obstacle.empty())
        return std::nullopt;
    return BackupFailure{false, LastGood(), obstacle};
}

std::string Backups::LastGood() const
{
    const std::vector<std::string> names = Names();
    for (auto name = names.rbegin(); name != names.rend(); ++name)
        if (name->find(kBeforeRestore) == std::string::npos && IsSound(*name))
            return *name;
    return {};
}

std::optional<std::string> Backups::Restore(const std::string& file, const Date& now)
{
    RequireDatabase(file);
    MakeOwnFolder(fs::path(database_).parent_path().parent_path().string());
    MakeOwnFolder(fs::path(database_).parent_path().string());
    const UnfinishedCopy fresh(file, database_);
    RequireBook(fresh.Path(), file);
    const bool replaces = fs::exists(database_);
    folder_.Make();
    const BackupFolder::Turn turn(folder_);
    const std::string kept = folder_.FreeName(DayOf(now) + kBeforeRestore);
    std::optional path = PathOf(kept);
    ReplaceDatabase(database_, fresh.Path(), *path);
    folder_.Failure(std::nullopt);
    if (!replaces)
        return std::nullopt;
    folder_.Add(kept);
    return path;
}

}  // namespace clb
