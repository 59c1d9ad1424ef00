#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "engine/Recordset.h"

namespace clb {

/// The connection to one database file. One thread; other programs may read and write the same
/// file.
///
/// Every statement takes effect by itself. What was written is kept in one pending group until
/// Settle(), which makes it durable; a program that is killed before leaves the file as it was at
/// the last Settle(). An error in writing the file loses the whole group; until the next Settle()
/// nothing more is written then, every attempt throws that error again.
class Connection {
public:
    Connection();
    ~Connection();
    Connection(Connection&&) noexcept;
    Connection& operator=(Connection&&) noexcept;

    /// Opens the existing file named by "Data Source=" in a connection string such as
    /// "Provider=...;Data Source=/home/me/books\db\clb.mdb;Persist Security Info=False". Both kinds
    /// of slashes divide folders. Throws EngineError, also when the file is missing, locked or
    /// damaged.
    void Open(std::string_view connectionString);
    [[nodiscard]] bool IsOpen() const;

    /// Runs one statement of the dialect. The result holds the rows of a SELECT, read-only; it is
    /// closed for other statements. Throws EngineError, with nothing changed.
    Recordset Execute(std::string_view sql);

    /// Opens the pending group now instead of at the first write, for a command that reads and
    /// writes a great many times: the file is locked once for all of it. It is kept whole or not at
    /// all: trouble with the file loses it. Throws EngineError when the file is locked or
    /// read-only.
    void Group();
    /// Takes the write lock before the first read of a command that will write by what it reads,
    /// and keeps it until Settle() or Abandon(): nobody else writes in between. Waits for a program
    /// that is soon done. Does nothing while the pending group is open. Throws EngineError
    /// (FileTrouble::Locked) when the other program is not done in time.
    void Lock();
    /// Whether the pending group is open: nobody else can write now.
    [[nodiscard]] bool Locked() const;
    /// Makes everything written so far durable. Throws EngineError when that fails (disk full, file
    /// locked); what was pending is then lost and the file as before.
    void Settle();
    /// Takes back what was written since the last Settle(), and gives the write lock up. For a
    /// command that was broken off in the middle. Never throws.
    void Abandon() noexcept;
    /// Whether another program has written to the file since the last call, or since opening. Never
    /// waits: while another program is writing the answer is false, and the next call reports it.
    /// Right after Lock() it knows of everything that was written before.
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
    /// quicker than a statement, and waits and throws where one would.
    [[nodiscard]] bool IsUnchanged(const Contents& since);
    /// Whether an error in writing has lost what was pending, and Settle() was not called since.
    [[nodiscard]] bool LostGroup() const;

    [[nodiscard]] bool Traced() const;
    /// From now on each statement text sent (Execute, Open and Requery of result sets) is handed on
    /// before it runs; an empty function ends it.
    void Trace(std::function<void(std::string_view)> sink);

    /// While it lives, statements are not handed to the sink of Trace: for reads that belong to no
    /// command.
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

    /// Creates a new database file by a script of the storage's own SQL. Throws EngineError, also
    /// when the file exists.
    static void CreateFile(const std::string& path, const std::string& script);

    struct State;
    [[nodiscard]] State& Internals() const;  ///< For the engine's own result sets.

private:
    std::unique_ptr<State> state_;
};

}  // namespace clb
