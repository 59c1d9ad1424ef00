// One SQLite database file.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/storage/EngineError.h"
#include "engine/storage/Query.h"

struct sqlite3;

namespace clb {

class IChangeWatch;
class IRowObserver;

/// One open SQLite file. Throws EngineError, which names the file if the problem is with the file,
/// or std::bad_alloc if the storage is out of memory.
class Database {
public:
    Database() = default;
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Opens an existing file for reading and writing. Never creates one. Rejects a file that
    /// cannot be written.
    void OpenExisting(const std::string& path);
    /// Opens an existing file for reading. The file may be read-only. Nothing is written, except
    /// that the journal of an interrupted program is rolled back.
    void OpenToRead(const std::string& path);
    /// Opens the bytes of a database file in memory, for reading.
    void OpenImage(std::string_view bytes);
    /// Creates a file. Writes to it are not synchronised to the disk.
    void Create(const std::string& path);
    void Close();
    [[nodiscard]] bool IsOpen() const { return raw_ != nullptr; }

    /// Prepares one query in the storage's own SQL. lasting: it will run many times.
    Query Prepare(std::string_view sql, bool lasting = false);
    /// Returns true if there is a row, false at the end. Resets the query at the end and before it
    /// throws.
    bool Step(Query& query);
    /// Runs all queries of a script and drops their rows.
    void Run(const std::string& script);

    [[nodiscard]] std::int64_t LastRowId() const;
    /// The bytes of the file's header that every program changes when it writes, read without a
    /// lock. Empty if another program is writing now, and for a file that is written in another
    /// way.
    [[nodiscard]] std::string HeaderUnlocked() const;
    [[nodiscard]] std::int64_t ChangedRows() const;
    [[nodiscard]] bool InTransaction() const;
    /// Rolls back the open transaction, if any, with a query that was prepared earlier, so that it
    /// works even without memory. InTransaction() shows whether it worked.
    void RollBack(Query& rollback) noexcept;

    /// While this object lives, a query that meets another program's lock fails at once.
    class Impatient {
    public:
        explicit Impatient(Database& database);
        ~Impatient();
        Impatient(const Impatient&) = delete;
        Impatient& operator=(const Impatient&) = delete;

    private:
        Database& database_;
    };

    /// Records an error of one of our functions inside a running query. Step and Run throw it.
    void Fail(const EngineError& error) { failure_ = error; }
    /// Records that our collation or the watch ran out of memory. The storage has no way to take
    /// such an error, so Step throws it.
    void FailForMemory() noexcept { noMemory_ = true; }

    /// Throws the error for a code that the storage returned elsewhere.
    [[noreturn]] void Refuse(int code);

    /// Throws the latest error about the file or about memory. Such an error makes the storage give
    /// up a transaction.
    [[noreturn]] void ThrowLastTrouble() const;

    /// From now on the watch sees each row that a statement changes. Borrowed; nullptr ends it.
    void Watch(IChangeWatch* watch);
    /// From now on the observer is told which rows statements change. Borrowed until
    /// RemoveObserver. Statements that were prepared while SeesChanges() was false may not be seen.
    void AddObserver(IRowObserver& observer);
    void RemoveObserver(const IRowObserver& observer) noexcept;
    [[nodiscard]] bool SeesChanges() const { return watch_ != nullptr || !observers_.empty(); }
    [[nodiscard]] const std::vector<IRowObserver*>& Observers() const { return observers_; }
    /// Whether triggers run when rows change; they do at first.
    void Triggers(bool run);

    [[nodiscard]] sqlite3* Raw() const { return raw_; }

private:
    static void Changing(void* self, sqlite3* raw, int operation, const char* database,
                         const char* table, std::int64_t before, std::int64_t after);
    void SetHook() noexcept;
    void Connect(const std::string& path, int flags);
    /// Rejects what cannot be a database. The storage would take an empty file for a new database.
    static void RequireFile(const std::string& path);
    void RequireWritable();
    /// Disables the features that a hostile file could use against the user.
    void Distrust();
    void Configure();
    void ReadFirst();
    [[noreturn]] void Throw(int code, const char* message);

    sqlite3* raw_ = nullptr;
    std::string path_;
    std::optional<EngineError> failure_;
    EngineError fileError_{engine_errors::Unavailable, ""};
    IChangeWatch* watch_ = nullptr;
    std::vector<IRowObserver*> observers_;
    bool noMemory_ = false;        ///< a collation or the watch has run out of memory
    bool troubleIsMemory_ = true;  ///< the latest error was about memory, not fileError_
};

}  // namespace clb
