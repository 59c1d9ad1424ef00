#include "tests/crash/FaultyFiles.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>

#include "tests/crash/DiskModel.h"

namespace clb {

/// An open file: the storage's part first, then ours, then the system's own after it.
struct FaultyFiles::File {
    sqlite3_file base;
    FaultyFiles* owner;
    std::string* path;  // null: a file without a name, removed when closed
    bool unsyncedName;  // a new journal; the first sync brings its name to the disk
    bool lasting;       // the database or its journal: counted, and kept in the model

    sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
    [[nodiscard]] std::string Name() const { return path ? *path : std::string("temporary"); }
};

namespace {

constexpr int kLasting = SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_MAIN_JOURNAL;

std::string BytesOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

/// The functions that the storage calls.
struct FaultyFiles::Calls {
    static File& Of(sqlite3_file* file) { return *reinterpret_cast<File*>(file); }
    static FaultyFiles& Of(sqlite3_vfs* vfs) { return *static_cast<FaultyFiles*>(vfs->pAppData); }

    static int Close(sqlite3_file* raw)
    {
        File& file = Of(raw);
        const int code = file.Real()->pMethods->xClose(file.Real());
        delete file.path;
        return code;
    }
    static int Read(sqlite3_file* raw, void* bytes, int count, sqlite3_int64 offset)
    {
        File& file = Of(raw);
        if (file.owner->Dark())
            return SQLITE_IOERR_READ;
        return file.Real()->pMethods->xRead(file.Real(), bytes, count, offset);
    }
    static int Write(sqlite3_file* raw, const void* bytes, int count, sqlite3_int64 offset)
    {
        File& file = Of(raw);
        if (const int code = file.owner->WriteFails(file, bytes, count, offset))
            return code;
        if (file.lasting && file.owner->model_)
            file.owner->model_->Write(file.Name(), bytes, static_cast<std::size_t>(count),
                                      static_cast<std::size_t>(offset));
        return file.Real()->pMethods->xWrite(file.Real(), bytes, count, offset);
    }
    static int Truncate(sqlite3_file* raw, sqlite3_int64 size)
    {
        File& file = Of(raw);
        if (const int code = file.owner->Fails("truncate", file.Name(), SQLITE_IOERR_TRUNCATE))
            return code;
        if (file.lasting && file.owner->model_)
            file.owner->model_->Truncate(file.Name(), static_cast<std::size_t>(size));
        return file.Real()->pMethods->xTruncate(file.Real(), size);
    }
    static int Sync(sqlite3_file* raw, int flags)
    {
        File& file = Of(raw);
        if (const int code = file.owner->Fails("sync", file.Name(), SQLITE_IOERR_FSYNC))
            return code;
        if (file.owner->plan_.dropsSyncs)
            return SQLITE_OK;
        if (file.lasting && file.owner->model_)
            file.owner->model_->Sync(file.Name(), file.unsyncedName);
        file.unsyncedName = false;
        return file.Real()->pMethods->xSync(file.Real(), flags);
    }
    static int FileSize(sqlite3_file* raw, sqlite3_int64* size)
    {
        File& file = Of(raw);
        if (file.owner->Dark())
            return SQLITE_IOERR_FSTAT;
        return file.Real()->pMethods->xFileSize(file.Real(), size);
    }
    static int Lock(sqlite3_file* raw, int level)
    {
        File& file = Of(raw);
        if (file.owner->Dark())
            return SQLITE_IOERR_LOCK;
        return file.Real()->pMethods->xLock(file.Real(), level);
    }
    static int Unlock(sqlite3_file* raw, int level)
    {
        return Of(raw).Real()->pMethods->xUnlock(Of(raw).Real(), level);
    }
    static int CheckReservedLock(sqlite3_file* raw, int* held)
    {
        return Of(raw).Real()->pMethods->xCheckReservedLock(Of(raw).Real(), held);
    }
    static int FileControl(sqlite3_file* raw, int operation, void* argument)
    {
        return Of(raw).Real()->pMethods->xFileControl(Of(raw).Real(), operation, argument);
    }
    static int SectorSize(sqlite3_file* raw)
    {
        return Of(raw).Real()->pMethods->xSectorSize(Of(raw).Real());
    }
    static int DeviceCharacteristics(sqlite3_file* raw)
    {
        return Of(raw).Real()->pMethods->xDeviceCharacteristics(Of(raw).Real());
    }

    static int Open(sqlite3_vfs* vfs, sqlite3_filename name, sqlite3_file* raw, int flags,
                    int* outFlags);
    static int Delete(sqlite3_vfs* vfs, const char* name, int syncFolder);
    static int Access(sqlite3_vfs* vfs, const char* name, int flags, int* result)
    {
        FaultyFiles& files = Of(vfs);
        if (files.Dark())
            return SQLITE_IOERR_ACCESS;
        return files.real_->xAccess(files.real_, name, flags, result);
    }
    static int FullPathname(sqlite3_vfs* vfs, const char* name, int size, char* full)
    {
        return Of(vfs).real_->xFullPathname(Of(vfs).real_, name, size, full);
    }
    static int Randomness(sqlite3_vfs* vfs, int size, char* bytes)
    {
        return Of(vfs).real_->xRandomness(Of(vfs).real_, size, bytes);
    }
    static int Sleep(sqlite3_vfs* vfs, int microseconds)
    {
        return Of(vfs).real_->xSleep(Of(vfs).real_, microseconds);
    }
    static int CurrentTime(sqlite3_vfs* vfs, sqlite3_int64* moment)
    {
        return Of(vfs).real_->xCurrentTimeInt64(Of(vfs).real_, moment);
    }
    static int LastError(sqlite3_vfs* vfs, int size, char* text)
    {
        return Of(vfs).real_->xGetLastError(Of(vfs).real_, size, text);
    }
};

int FaultyFiles::Calls::Open(sqlite3_vfs* vfs, sqlite3_filename name, sqlite3_file* raw, int flags,
                             int* outFlags)
{
    static const sqlite3_io_methods methods = {1,
                                               Close,
                                               Read,
                                               Write,
                                               Truncate,
                                               Sync,
                                               FileSize,
                                               Lock,
                                               Unlock,
                                               CheckReservedLock,
                                               FileControl,
                                               SectorSize,
                                               DeviceCharacteristics,
                                               nullptr,
                                               nullptr,
                                               nullptr,
                                               nullptr,
                                               nullptr,
                                               nullptr};
    FaultyFiles& files = Of(vfs);
    File& file = Of(raw);
    file.base.pMethods = nullptr;
    if (files.Dark())
        return SQLITE_CANTOPEN;
    const std::string path = name ? name : "";
    const bool lasting = name != nullptr && (flags & kLasting) != 0;
    int there = 0;
    if (lasting)
        files.real_->xAccess(files.real_, name, SQLITE_ACCESS_EXISTS, &there);
    const bool creates = lasting && there == 0 && (flags & SQLITE_OPEN_CREATE) != 0;
    if (creates)
        if (const int code = files.Fails("create", path, SQLITE_CANTOPEN))
            return code;
    const int code = files.real_->xOpen(files.real_, name, file.Real(), flags, outFlags);
    if (code != SQLITE_OK)
        return code;
    file.base.pMethods = &methods;
    file.owner = &files;
    file.path = name ? new std::string(path) : nullptr;
    file.lasting = lasting;
    file.unsyncedName = creates && (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0;
    if (files.model_ && creates)
        files.model_->Create(path);
    else if (files.model_ && lasting && !files.model_->Knows(path))
        files.model_->Existing(path, BytesOf(path));
    return SQLITE_OK;
}

int FaultyFiles::Calls::Delete(sqlite3_vfs* vfs, const char* name, int syncFolder)
{
    FaultyFiles& files = Of(vfs);
    if (const int failure = files.Fails("delete", name, SQLITE_IOERR_DELETE)) {
        if (files.Dark() || files.operations_ % 2 == 0)
            return failure;
        // The file is removed, but the change of the folder could not be brought to the disk.
        files.real_->xDelete(files.real_, name, 0);
        return SQLITE_IOERR_DIR_FSYNC;
    }
    const bool synced = syncFolder != 0 && !files.plan_.dropsSyncs;
    const int code = files.real_->xDelete(files.real_, name, syncFolder);
    if (code == SQLITE_OK && files.model_)
        files.model_->Delete(name, synced);
    return code;
}

FaultyFiles::FaultyFiles() : real_(sqlite3_vfs_find("unix"))
{
    vfs_.iVersion = 2;
    vfs_.szOsFile = static_cast<int>(sizeof(File)) + real_->szOsFile;
    vfs_.mxPathname = real_->mxPathname;
    vfs_.zName = "faulty";
    vfs_.pAppData = this;
    vfs_.xOpen = Calls::Open;
    vfs_.xDelete = Calls::Delete;
    vfs_.xAccess = Calls::Access;
    vfs_.xFullPathname = Calls::FullPathname;
    vfs_.xRandomness = Calls::Randomness;
    vfs_.xSleep = Calls::Sleep;
    vfs_.xGetLastError = Calls::LastError;
    vfs_.xCurrentTimeInt64 = Calls::CurrentTime;
    sqlite3_vfs_register(&vfs_, 1);
}

FaultyFiles::~FaultyFiles()
{
    sqlite3_vfs_register(real_, 1);
    sqlite3_vfs_unregister(&vfs_);
}

void FaultyFiles::Begin(const FaultPlan& plan, DiskModel* model)
{
    plan_ = plan;
    model_ = model;
    operations_ = 0;
    failures_ = 0;
    firstFailure_.clear();
    paused_ = false;
}

bool FaultyFiles::IsTime()
{
    if (paused_)
        return false;
    ++operations_;
    if (plan_.fault == Fault::None || plan_.at == 0 || operations_ < plan_.at)
        return false;
    return plan_.fault == Fault::PowerLoss || !plan_.once || failures_ == 0;
}

void FaultyFiles::Note(const char* what, const std::string& path)
{
    if (++failures_ > 1)
        return;
    const char* const file = path.ends_with("-journal") ? " journal"
                             : path.ends_with(".mdb")   ? " database"
                                                        : " other";
    firstFailure_ = std::string(what) + file;
}

int FaultyFiles::Fails(const char* what, const std::string& path, int code)
{
    if (!IsTime())
        return SQLITE_OK;
    // On a full disk, only operations that need room fail.
    if (plan_.fault == Fault::Full && std::strcmp(what, "create") != 0)
        return SQLITE_OK;
    if (plan_.fault == Fault::Full && plan_.room > 0)
        return SQLITE_OK;
    // Only a write can be done partly.
    if (plan_.fault == Fault::ShortWrite && !plan_.once)
        return SQLITE_OK;
    Note(what, path);
    return code;
}

int FaultyFiles::WriteFails(File& file, const void* bytes, int count, sqlite3_int64 offset)
{
    if (!IsTime())
        return SQLITE_OK;
    if (plan_.fault == Fault::Full)
        return Grows(file, bytes, count, offset);
    Note("write", file.Name());
    if (plan_.fault == Fault::ShortWrite && count > 1)
        file.Real()->pMethods->xWrite(
            file.Real(), bytes, 1 + static_cast<int>(operations_ * 7919 % (count - 1)), offset);
    return plan_.fault == Fault::ShortWrite && operations_ % 2 == 0 ? SQLITE_FULL
                                                                    : SQLITE_IOERR_WRITE;
}

/// A write that does not grow the file is done. One that does is done as far as there is room.
int FaultyFiles::Grows(File& file, const void* bytes, int count, sqlite3_int64 offset)
{
    sqlite3_int64 size = 0;
    file.Real()->pMethods->xFileSize(file.Real(), &size);
    const std::int64_t more = std::max<std::int64_t>(0, offset + count - size);
    if (more <= plan_.room) {
        plan_.room -= more;
        return SQLITE_OK;
    }
    Note("write", file.Name());
    const auto part = static_cast<int>(count - more + plan_.room);
    plan_.room = 0;
    if (part > 0)
        file.Real()->pMethods->xWrite(file.Real(), bytes, part, offset);
    return SQLITE_FULL;
}

}  // namespace clb
