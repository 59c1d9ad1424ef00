// The connection to a database file.
#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "engine/rows/Recordset.h"

namespace clb {

class IChangeWatch;
class IRowObserver;

/// The connection to one database file. For one thread only. Other programs may read and write the
/// same file.
///
/// Each query takes effect by itself. What it writes stays in one pending group until Settle()
/// makes it durable. If the program is killed before that, the file is as it was at the last
/// Settle(). An error in writing the file loses the whole group. After such an error every attempt
/// to write throws the same error until the next Settle().
class Connection {
public:
    Connection();
    ~Connection();
    Connection(Connection&&) noexcept;
    Connection& operator=(Connection&&) noexcept;

    /// Opens the existing file named by "Data Source=" in a connection string such as
    /// "Provider=...;Data Source=/home/me/books\db\clb.mdb;Persist Security Info=False". Both kinds
    /// of slashes separate folders. Throws EngineError, also if the file is missing, locked or
    /// damaged.
    void Open(std::string_view connectionString);
    [[nodiscard]] bool IsOpen() const;

    /// Runs one query of the dialect. Returns the rows of a SELECT, read-only, or a closed result
    /// set for other queries. Throws EngineError and changes nothing then.
    Recordset Execute(std::string_view sql);

    /// Opens the pending group now instead of at the first write. For a command that reads and
    /// writes very often: the file is locked only once. The group is kept completely or not at all;
    /// an error of the file loses it. Throws EngineError if the file is locked or read-only.
    void Group();
    /// Takes the write lock until Settle() or Abandon(), so that no other program writes in
    /// between. Call it before the first read of a command that writes depending on what it reads.
    /// Waits for another program for some time. Does nothing while the pending group is open.
    /// Throws EngineError (FileTrouble::Locked) if the other program takes too long.
    void Lock();
    /// Whether the pending group is open. No other program can write then.
    [[nodiscard]] bool Locked() const;
    /// Makes everything written so far durable. Throws EngineError if that fails (disk full, file
    /// locked). The pending group is lost then, and the file is unchanged.
    void Settle();
    /// Rolls back what was written since the last Settle(), and releases the write lock. For a
    /// command that was interrupted. Never throws.
    void Abandon() noexcept;
    /// Whether another program has written to the file since the last call, or since opening. Never
    /// waits: returns false while another program is writing, and the next call reports it.
    /// Directly after Lock() the result includes everything written before.
    bool ChangedElsewhere();
    /// A state of the file, for telling whether it was written since.
    struct Contents {
        std::int64_t elsewhere = -1;  ///< a number that another program's writing changes
        std::uint64_t groups = 0;     ///< how many pending groups were opened here before
        std::string header;           ///< see Database::HeaderUnlocked
    };
    /// The state that the file has now. Waits for another program that is writing; throws
    /// EngineError if it is not done in time.
    [[nodiscard]] Contents ContentsNow();
    /// Whether nothing was written since, here or elsewhere. For use without a pending group. Much
    /// quicker than a query, and waits and throws where one would.
    [[nodiscard]] bool IsUnchanged(const Contents& since);
    /// Whether another program has written since. Never waits: false while another program is
    /// writing, and the next call reports it. May be called within the pending group.
    [[nodiscard]] bool WrittenElsewhere(const Contents& since);
    /// Whether an error in writing has lost the pending group, and Settle() was not called since.
    [[nodiscard]] bool LostGroup() const;

    [[nodiscard]] bool Traced() const;
    /// Passes the text of each query (Execute, and Open and Requery of result sets) to the sink
    /// before the query runs. An empty function ends this.
    void Trace(std::function<void(std::string_view)> sink);

    /// While this object lives, queries are not passed to the sink of Trace. For reads that do not
    /// belong to a command.
    class Untraced {
    public:
        explicit Untraced(Connection& connection);
        ~Untraced();
        Untraced(const Untraced&) = delete;
        Untraced& operator=(const Untraced&) = delete;

    private:
        Connection& connection_;
        std::function<void(std::string_view)> sink_;
    };

    /// From now on the watch sees each row that changes, and the end of each group. Borrowed; it
    /// outlives the connection, or is ended by nullptr. The connection is open and stays where it
    /// is.
    void Watch(IChangeWatch* watch);
    /// From now on the observer is told which rows change, and the end of each group. Borrowed
    /// until RemoveObserver, which must be called before the connection goes. The connection is
    /// open and stays where it is.
    void AddObserver(IRowObserver& observer);
    void RemoveObserver(const IRowObserver& observer) noexcept;

    /// Creates a new database file with a script in the storage's own SQL. Throws EngineError, also
    /// if the file exists.
    static void CreateFile(const std::string& path, const std::string& script);

    struct State;
    [[nodiscard]] State& Internals() const;  ///< for the engine's own result sets

private:
    std::unique_ptr<State> state_;
};

/// Several reads in one block see one state of the file and lock it once. Does nothing inside the
/// pending group or another ReadGroup. Nothing may be written while it lives.
class ReadGroup {
public:
    explicit ReadGroup(const Connection& connection);
    explicit ReadGroup(Connection::State& session);
    ~ReadGroup();
    ReadGroup(const ReadGroup&) = delete;
    ReadGroup& operator=(const ReadGroup&) = delete;

private:
    Connection::State* session_ = nullptr;  // null: somebody else's group goes on
};

}  // namespace clb
