// A file system for the storage whose operations can fail.
#pragma once
#include <sqlite3.h>

#include <cstdint>
#include <string>

namespace clb {

class DiskModel;

/// What goes wrong below the storage.
enum class Fault { None, Error, ShortWrite, Full, PowerLoss };

/// When something goes wrong. Operations that change a file are counted from 1: creating, writing,
/// synchronising, truncating and deleting.
struct FaultPlan {
    Fault fault = Fault::None;
    std::int64_t at = 0;      ///< the first operation that fails; 0: none
    bool once = false;        ///< only that operation
    std::int64_t room = 0;    ///< Full: bytes that files may still grow by, from that operation on
    bool dropsSyncs = false;  ///< synchronising does nothing and reports success
};

/// A file system between the storage and the system's own. It is the default one while it is in
/// use. It passes everything on and counts, until the plan lets something fail. Only one user at a
/// time.
class FaultyFiles {
public:
    FaultyFiles();
    ~FaultyFiles();
    FaultyFiles(const FaultyFiles&) = delete;
    FaultyFiles& operator=(const FaultyFiles&) = delete;

    /// Starts counting at 1 again. model: records what is on the disk and what is not yet; may be
    /// null; must outlive its use.
    void Begin(const FaultPlan& plan, DiskModel* model = nullptr);
    /// From now on nothing fails.
    void Lift() { plan_.fault = Fault::None; }
    /// Nothing fails and nothing is counted until Resume.
    void Pause() { paused_ = true; }
    void Resume() { paused_ = false; }
    [[nodiscard]] std::int64_t Operations() const { return operations_; }
    /// How often something has failed.
    [[nodiscard]] std::int64_t Failures() const { return failures_; }
    /// What kind of operation failed first: "write journal", "sync database".
    [[nodiscard]] const std::string& FirstFailure() const { return firstFailure_; }
    /// Whether the power is off: then every operation fails, reading too.
    [[nodiscard]] bool Dark() const
    {
        return !paused_ && plan_.fault == Fault::PowerLoss && failures_ > 0;
    }

private:
    struct File;
    struct Calls;

    /// The code with which this operation fails, or SQLITE_OK if it must be done.
    int Fails(const char* what, const std::string& path, int code);
    int WriteFails(File& file, const void* bytes, int count, sqlite3_int64 offset);
    int Grows(File& file, const void* bytes, int count, sqlite3_int64 offset);
    bool IsTime();
    void Note(const char* what, const std::string& path);

    sqlite3_vfs vfs_{};
    sqlite3_vfs* real_ = nullptr;
    FaultPlan plan_;
    DiskModel* model_ = nullptr;
    bool paused_ = false;
    std::int64_t operations_ = 0;
    std::int64_t failures_ = 0;
    std::string firstFailure_;
};

}  // namespace clb
