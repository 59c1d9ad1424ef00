#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/Value.h"
#include "engine/EngineError.h"

struct sqlite3;
struct sqlite3_stmt;

namespace clb {

/// One prepared statement of the storage. May outlive its Database, but not run then.
class Statement {
public:
    Statement() = default;
    explicit Statement(sqlite3_stmt* raw) : raw_(raw) {}

    explicit operator bool() const { return raw_ != nullptr; }
    [[nodiscard]] sqlite3_stmt* Raw() const { return raw_.get(); }

    /// 1-based parameter. The value is not copied: it must live until the statement has been reset.
    /// Money is bound scaled, dates as ISO text, booleans as 0 or 1. Throws EngineError when the
    /// value is too big; so do the next two.
    void Bind(int parameter, const Value& value);
    void Bind(int parameter, const Value&& value) = delete;
    /// Binds the values from the first parameter on; they must live as long.
    void BindAll(std::span<const Value> values);
    void BindText(int parameter, std::string_view text);  ///< copied
    void BindInteger(int parameter, std::int64_t value);
    [[nodiscard]] int ParameterCount() const;

    /// 0-based column of the row that Step gave. Throws EngineError (TypeMismatch) when the cell
    /// holds something else than the type's values: other programs can put anything into any
    /// column, and an amount is never made of a text or a binary fraction.
    [[nodiscard]] Value Get(int column, FieldType type) const;
    /// What the cell holds in words, such as "the text '12,50'"; the beginning of a long text.
    [[nodiscard]] std::string Describe(int column) const;
    [[nodiscard]] std::string Text(int column) const;
    /// The same without a copy: good until the statement moves on or is reset.
    [[nodiscard]] std::string_view TextView(int column) const;
    [[nodiscard]] std::int64_t Integer(int column) const;
    void Reset() noexcept;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* raw) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> raw_;
};

/// Resets a statement when the block is left, so that none stays open.
class ResetAtExit {
public:
    explicit ResetAtExit(Statement& statement) : statement_(&statement) {}
    ~ResetAtExit() { statement_->Reset(); }
    ResetAtExit(const ResetAtExit&) = delete;
    ResetAtExit& operator=(const ResetAtExit&) = delete;

private:
    Statement* statement_;
};

/// The storage's file. Its errors leave as EngineError, with the file's name where the file is the
/// matter. If the storage has run out of memory, std::bad_alloc leaves instead.
class Database {
public:
    Database() = default;
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Opens an existing file for reading and writing; never creates one. Refuses a file that could
    /// not be written.
    void OpenExisting(const std::string& path);
    /// Opens an existing file to look at it: one that may not be written will do, and nothing is
    /// written but what an interrupted program left undone.
    void OpenToRead(const std::string& path);
    /// Opens the bytes of a database file, in memory and to be read only.
    void OpenImage(std::string_view bytes);
    /// Creates a file and keeps writes to it unsynchronised: for filling it.
    void Create(const std::string& path);
    void Close();
    [[nodiscard]] bool IsOpen() const { return raw_ != nullptr; }

    /// One statement of the storage's own SQL. lasting: it will be run many times.
    Statement Prepare(std::string_view sql, bool lasting = false);
    /// True with a row, false at the end; the statement is reset at the end and before throwing.
    bool Step(Statement& statement);
    /// Runs all statements of a script, without results.
    void Run(const std::string& script);

    [[nodiscard]] std::int64_t LastRowId() const;
    [[nodiscard]] std::int64_t ChangedRows() const;
    [[nodiscard]] bool InTransaction() const;
    /// The bytes of the file's header that every program changes when it writes, read without a
    /// lock. Empty if another program is writing now, and for a file that is written in another
    /// way.
    [[nodiscard]] std::string HeaderUnlocked() const;
    /// Takes back the open transaction by a statement that was prepared for it, so that even a
    /// program without memory can. InTransaction() says whether it worked.
    void RollBack(Statement& rollback) noexcept;

    /// While it lives, a statement that meets another program's lock fails at once.
    class Impatient {
    public:
        explicit Impatient(Database& database);
        ~Impatient();
        Impatient(const Impatient&) = delete;
        Impatient& operator=(const Impatient&) = delete;

    private:
        Database& database_;
    };

    /// An error that a function of ours raises inside a running statement; Step and Run throw it.
    void Fail(const EngineError& error) { failure_ = error; }
    /// A collation of ours has no memory and cannot say so to the storage; Step throws for it.
    void FailForMemory() noexcept { noMemory_ = true; }

    /// Throws the error for a code that the storage gave elsewhere.
    [[noreturn]] void Refuse(int code);

    /// Throws the latest error that was about the file or about memory: what made the storage give
    /// up a transaction.
    [[noreturn]] void ThrowLastTrouble() const;

    [[nodiscard]] sqlite3* Raw() const { return raw_; }

private:
    void Connect(const std::string& path, int flags);
    /// Refuses what cannot be a database; an empty file would be taken for a new one.
    static void RequireFile(const std::string& path);
    void RequireWritable();
    /// Closes what a file of somebody else's making could use against the user.
    void Distrust();
    void Configure();
    void ReadFirst();
    [[noreturn]] void Throw(int code, const char* message);

    sqlite3* raw_ = nullptr;
    std::string path_;
    std::optional<EngineError> failure_;
    EngineError fileError_{engine_errors::Unavailable, ""};
    bool noMemory_ = false;        ///< a collation has run out of memory
    bool troubleIsMemory_ = true;  ///< the latest trouble was memory, not fileError_
};

}  // namespace clb
