// A book with a history, and a look at everything in it from outside.
#pragma once
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <functional>
#include <memory>
#include <string>

#include "data/EmptyDatabase.h"
#include "history/History.h"
#include "history/HistoryJson.h"
#include "history/SentSql.h"
#include "tests/support/TempFolder.h"

namespace clb {

class HistoryFixture : public testing::Test {
protected:
    void SetUp() override
    {
        path_ = folder_.Write("clb.mdb", EmptyDatabase());
        connection_.Open("Data Source=" + path_);
        history_ = std::make_unique<History>(
            connection_, [] { return *Date::Of(2026, 3, 4); }, "this one");
    }

    /// One command of these statements.
    void Command(const std::string& what, const std::vector<std::string>& statements)
    {
        history_->Begin(what);
        for (const std::string& sql : statements)
            connection_.Execute(sql);
        End();
    }
    void End()
    {
        connection_.Settle();
        history_->End();
    }
    HistoryOutcome Undo(std::int64_t most = 1)
    {
        HistoryOutcome outcome = history_->Undo(most);
        End();
        return outcome;
    }
    HistoryOutcome Redo(std::int64_t most = 1)
    {
        HistoryOutcome outcome = history_->Redo(most);
        End();
        return outcome;
    }

    /// What Undo says; "undone" if it does not refuse.
    std::string Refusal(std::int64_t most = 1)
    {
        try {
            Undo(most);
            return "undone";
        } catch (const HistoryRefusal& refusal) {
            End();
            return refusal.what();
        }
    }

    /// What another program does to the file.
    void Elsewhere(const std::string& sql) const
    {
        sqlite3* other = nullptr;
        ASSERT_EQ(sqlite3_open(path_.c_str(), &other), SQLITE_OK);
        char* message = nullptr;
        EXPECT_EQ(sqlite3_exec(other, sql.c_str(), nullptr, nullptr, &message), SQLITE_OK)
            << message;
        sqlite3_free(message);
        sqlite3_close(other);
    }

    /// Every row of every table with its identity, but for the history's own: one line a row, each
    /// cell with its kind. Read by a connection of its own.
    [[nodiscard]] std::string Everything() const
    {
        std::string text;
        for (const std::string& table :
             Column("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT IN "
                    "('CvStep', 'CvChange') AND name NOT LIKE 'sqlite%' ORDER BY name"))
            for (const std::string& line :
                 Column("SELECT * FROM (SELECT rowid, * FROM \"" + table + "\") ORDER BY 1"))
                text += table + ": " + line + "\n";
        return text;
    }
    [[nodiscard]] std::vector<std::string> Column(const std::string& sql) const
    {
        std::vector<std::string> lines;
        sqlite3* other = nullptr;
        EXPECT_EQ(sqlite3_open(path_.c_str(), &other), SQLITE_OK);
        sqlite3_stmt* rows = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(other, sql.c_str(), -1, &rows, nullptr), SQLITE_OK)
            << sqlite3_errmsg(other);
        while (sqlite3_step(rows) == SQLITE_ROW) {
            std::string line;
            const int columns = sqlite3_column_count(rows);
            for (int i = 0; i < columns; ++i) {
                const bool shown = columns > 1;
                if (shown)
                    line += std::to_string(sqlite3_column_type(rows, i)) + ":";
                const auto* cell = sqlite3_column_text(rows, i);
                line.append(cell ? reinterpret_cast<const char*>(cell) : "",
                            static_cast<std::size_t>(sqlite3_column_bytes(rows, i)));
                if (shown)
                    line += "|";
            }
            lines.push_back(line);
        }
        sqlite3_finalize(rows);
        sqlite3_close(other);
        return lines;
    }

    TempFolder folder_{TempFolder::Memory()};
    std::string path_;
    Connection connection_;
    std::unique_ptr<History> history_;
};

}  // namespace clb
