// A database file for the tests of the engine.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "engine/rows/Connection.h"
#include "engine/storage/EngineError.h"

namespace clb {

/// The tables of a delivered database, in the storage's SQL.
extern const char* const kTestSchema;

/// A new database file in a separate folder, opened as the program opens it.
class EngineTest : public ::testing::Test {
protected:
    EngineTest();
    ~EngineTest() override;

    /// "Provider=...;Data Source=..." for this file.
    [[nodiscard]] std::string ConnectionText() const;
    /// Opens a second connection to the same file, as another program would.
    [[nodiscard]] Connection Another() const;
    /// Ends the connection like a killed program, and opens the file again.
    void KillAndReopen();

    void Run(std::string_view sql) { connection_.Execute(sql); }
    void RunAll(const std::vector<std::string>& queries);
    Recordset Opened(std::string_view sql, LockKind lock = LockKind::Optimistic);
    /// Returns all rows as text: fields separated by "|", null as "-".
    std::vector<std::string> Rows(std::string_view sql);
    /// Returns the only value of the query.
    Value Single(std::string_view sql);
    /// Returns the names and types of the fields: "Name:type,...".
    std::string FieldsOf(std::string_view sql);

    std::string path_;
    Connection connection_;

private:
    std::string folder_;
};

/// Returns the rows of an open result set from the current one on, in the form of EngineTest::Rows.
std::vector<std::string> RowsOf(Recordset& rows);

/// Returns the error that the action throws. Fails the test if it throws none.
template <typename Action>
EngineError ErrorOf(Action action)
{
    try {
        action();
    } catch (const EngineError& error) {
        return error;
    }
    ADD_FAILURE() << "no error was raised";
    return {0, ""};
}

}  // namespace clb
