// Uses the storage library without the program, as the reference of the benchmarks.
#pragma once
#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace clb {

/// One prepared statement of the storage library, used without the program. Parameters count from
/// 1, columns from 0. Errors throw std::runtime_error with the storage's message.
class BareStatement {
public:
    BareStatement(sqlite3* database, std::string_view sql);

    /// Does not copy the text: it must live until the statement has run.
    void Bind(int parameter, std::string_view text)
    {
        sqlite3_bind_text(raw_.get(), parameter, text.data(), static_cast<int>(text.size()),
                          SQLITE_STATIC);
    }
    void Bind(int parameter, std::int64_t value)
    {
        sqlite3_bind_int64(raw_.get(), parameter, value);
    }
    /// Returns true for a row, false at the end; the statement can then be run again.
    bool Step()
    {
        const int code = sqlite3_step(raw_.get());
        if (code == SQLITE_ROW)
            return true;
        sqlite3_reset(raw_.get());
        if (code != SQLITE_DONE)
            Throw();
        return false;
    }
    /// Steps to the only row of a statement such as SELECT MAX(...) and returns its first column.
    std::int64_t One()
    {
        const std::int64_t value = Step() ? Integer(0) : 0;
        sqlite3_reset(raw_.get());
        return value;
    }

    [[nodiscard]] int Columns() const { return sqlite3_column_count(raw_.get()); }
    [[nodiscard]] std::int64_t Integer(int column) const
    {
        return sqlite3_column_int64(raw_.get(), column);
    }
    /// Valid until the next step.
    [[nodiscard]] std::string_view Text(int column) const
    {
        const auto* text = sqlite3_column_text(raw_.get(), column);
        if (!text)
            return {};
        return {reinterpret_cast<const char*>(text),
                static_cast<std::size_t>(sqlite3_column_bytes(raw_.get(), column))};
    }

private:
    [[noreturn]] void Throw() const;

    struct Finalize {
        void operator()(sqlite3_stmt* raw) const { sqlite3_finalize(raw); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> raw_;
};

/// An existing database file without the program, opened with the program's own settings (rollback
/// journal, extra synchronous, 16 MiB of cache). Errors throw std::runtime_error.
class BareDatabase {
public:
    explicit BareDatabase(const std::string& path);

    BareStatement Prepare(std::string_view sql) { return {raw_.get(), sql}; }
    void Run(const std::string& script);

private:
    struct CloseIt {
        void operator()(sqlite3* raw) const { sqlite3_close_v2(raw); }
    };
    std::unique_ptr<sqlite3, CloseIt> raw_;
};

}  // namespace clb
