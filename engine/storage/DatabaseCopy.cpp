#include "engine/storage/DatabaseCopy.h"

#include <fcntl.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <new>
#include <optional>

#include "engine/storage/Database.h"
#include "engine/storage/Refusals.h"
#include "files/FileError.h"
#include "files/Folders.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

/// A new file that only the user can read. Removed on destruction unless it is kept.
class Unfinished {
public:
    explicit Unfinished(const std::string& path) : path_(path)
    {
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (file < 0)
            throw refuse::CannotWrite(path, errno);
        ::close(file);
    }
    ~Unfinished()
    {
        if (!kept_)
            ::unlink(path_.c_str());
    }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;
    void Keep()
    {
        FlushToDisk(path_);
        kept_ = true;
    }

private:
    std::string path_;
    bool kept_ = false;
};

void CopyPages(Database& source, Database& target)
{
    sqlite3_backup* copy = sqlite3_backup_init(target.Raw(), "main", source.Raw(), "main");
    if (copy) {
        sqlite3_backup_step(copy, -1);
        sqlite3_backup_finish(copy);
    }
    const int code = sqlite3_errcode(target.Raw());
    if (code == SQLITE_OK)
        return;
    const bool writing = (code & 0xFF) == SQLITE_FULL || (code & 0xFF) == SQLITE_IOERR;
    (writing ? target : source).Refuse(code);
}

/// Copies what the connection sees. The copy is synchronised only after the source is unlocked, so
/// that a program that waits to write does not wait for the disk.
void CopyTo(Database& source, const std::string& to)
{
    Unfinished file(to);
    Database target;
    target.Create(to);
    CopyPages(source, target);
    target.Close();
    file.Keep();
}

void CopyBytes(const std::string& from, const std::string& to)
{
    Unfinished file(to);
    std::error_code failure;
    fs::copy_file(from, to, fs::copy_options::overwrite_existing, failure);
    if (failure)
        throw refuse::CannotWrite(to, failure.value());
    ::chmod(to.c_str(), 0600);
    file.Keep();
}

std::string JournalOf(const std::string& path)
{
    return path + "-journal";
}

/// Whether another program has the file open, as far as the system can tell.
bool IsOpenElsewhere(const std::string& path)
{
    const int file = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (file < 0)
        return false;
    // The system grants a lease only while nobody else has the file open. If somebody opens it
    // meanwhile, the system sends this signal.
    struct sigaction ignore {};
    struct sigaction before {};
    ignore.sa_handler = SIG_IGN;
    ::sigaction(SIGIO, &ignore, &before);
    const bool open = ::fcntl(file, F_SETLEASE, F_WRLCK) != 0 && errno == EAGAIN;
    ::close(file);
    ::sigaction(SIGIO, &before, nullptr);
    return open;
}

void TakePlace(const std::string& fresh, const std::string& path)
{
    if (::rename(fresh.c_str(), path.c_str()) != 0)
        throw refuse::CannotWrite(path, errno);
    FlushToDisk(path);
}

/// The journal of an interrupted program belongs to the old file and would corrupt a new one.
void PutJournalAside(const std::string& path, const std::string& kept)
{
    const std::string journal = JournalOf(path);
    if (::access(journal.c_str(), F_OK) != 0)
        return;
    CopyBytes(journal, JournalOf(kept));
    if (::unlink(journal.c_str()) != 0)
        throw refuse::CannotWrite(journal, errno);
}

void ReplaceUnusable(const std::string& path, const std::string& fresh, const std::string& kept)
{
    if (::access(path.c_str(), F_OK) == 0)
        CopyBytes(path, kept);
    PutJournalAside(path, kept);
    TakePlace(fresh, path);
}

using Header = std::array<unsigned char, 100>;

/// Reads a big-endian number of the header.
std::uint64_t NumberAt(const Header& header, std::size_t at, std::size_t bytes)
{
    std::uint64_t number = 0;
    for (std::size_t byte = 0; byte < bytes; ++byte)
        number = number << 8 | header[at + byte];
    return number;
}

std::optional<Header> HeaderOf(const std::string& path)
{
    constexpr char kMark[] = "SQLite format 3";
    Header header{};
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(header.data()), header.size());
    if (!file || std::memcmp(header.data(), kMark, sizeof kMark) != 0)
        return std::nullopt;
    return header;
}

/// Whether the size of the file agrees with the header.
bool FitsHeader(const Header& header, std::uint64_t size)
{
    const std::uint64_t named = NumberAt(header, 16, 2);
    const std::uint64_t page = named == 1 ? 65536 : named;
    if (page < 512 || (page & (page - 1)) != 0 || size % page != 0)
        return false;
    // Old versions of the storage did not maintain the page count. The two counters differ then.
    const std::uint64_t pages = NumberAt(header, 28, 4);
    const bool kept = NumberAt(header, 24, 4) == NumberAt(header, 92, 4) && pages != 0;
    return !kept || pages * page == size;
}

/// Runs a function that synchronises a path. A read-only disk has nothing to synchronise.
void Synchronise(const std::string& path, void (*sync)(const std::string&))
{
    try {
        sync(path);
    } catch (const FileError& error) {
        if (error.Reason() != EROFS)
            throw refuse::CannotWrite(path, error.Reason());
    }
}

}  // namespace

bool LooksWhole(const std::string& path)
{
    std::error_code failure;
    if (!fs::is_regular_file(path, failure))
        return false;
    const std::uintmax_t size = fs::file_size(path, failure);
    const auto header = HeaderOf(path);
    return !failure && header && FitsHeader(*header, size);
}

bool HasDatabaseHeader(const std::string& path)
{
    return HeaderOf(path).has_value();
}

void FlushToDisk(const std::string& path)
{
    Synchronise(path, SyncFile);
    Synchronise(FolderOf(path), SyncFolder);
}

void NameFinished(const std::string& from, const std::string& to)
{
    try {
        RenameToNew(from, to);
    } catch (const FileError& error) {
        throw refuse::CannotWrite(to, error.Reason());
    }
    FlushToDisk(to);
}

void CopyDatabase(const std::string& from, const std::string& to)
{
    Database source;
    source.OpenToRead(from);
    CopyTo(source, to);
}

std::string FaultIn(std::string_view line)
{
    for (const int code : {SQLITE_NOMEM, SQLITE_IOERR_NOMEM})
        if (line.ends_with("unable to get the page. error code=" + std::to_string(code)))
            throw std::bad_alloc();
    return std::string(line);
}

std::vector<std::string> FaultsOf(const std::string& path)
{
    Database database;
    database.OpenToRead(path);
    std::vector<std::string> faults;
    try {
        Query check = database.Prepare("PRAGMA integrity_check");
        while (database.Step(check))
            faults.push_back(FaultIn(check.Text(0)));
    } catch (const EngineError& error) {
        // The file is so damaged that the storage gives up.
        if (error.Trouble() != FileTrouble::Damaged)
            throw;
        faults.push_back("it cannot be read to its end");
    }
    if (faults == std::vector<std::string>{"ok"})
        faults.clear();
    return faults;
}

void ReplaceDatabase(const std::string& path, const std::string& fresh, const std::string& kept)
{
    std::error_code ignored;
    const std::string file = fs::weakly_canonical(path, ignored).string();
    if (IsOpenElsewhere(file))
        throw refuse::File(path, "is in use by another program.", FileTrouble::Locked);
    Database present;
    try {
        present.OpenExisting(file);
        // Keeps the lock without a running query, because the copy would wait for that.
        present.Run("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE; COMMIT");
        CopyTo(present, kept);
    } catch (const EngineError& error) {
        present.Close();
        if (error.Trouble() != FileTrouble::Damaged && error.Trouble() != FileTrouble::Missing)
            throw;
        return ReplaceUnusable(file, fresh, kept);
    }
    TakePlace(fresh, file);
}

}  // namespace clb
