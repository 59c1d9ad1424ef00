#pragma once
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "engine/rows/Connection.h"
#include "engine/storage/EngineError.h"

namespace clb {

/// The tables of a delivered database, as the storage declares them.
extern const char* const kTestSchema;

/// A fresh database file in a folder of its own, opened as the program opens it.
class EngineTest : public ::testing::Test {
protected:
    EngineTest();
    ~EngineTest() override;

    /// "Provider=...;Data Source=..." for this file.
    [[nodiscard]] std::string ConnectionText() const;
    /// A second connection to the same file, as another program would have it.
    [[nodiscard]] Connection Another() const;
    /// Ends the connection as a killed program would, and opens the file again.
    void KillAndReopen();

    void Run(std::string_view sql) { connection_.Execute(sql); }
    void RunAll(const std::vector<std::string>& statements);
    Recordset Opened(std::string_view sql, LockKind lock = LockKind::Optimistic);
    /// All rows as text: fields divided by "|", nulls as "-".
    std::vector<std::string> Rows(std::string_view sql);
    /// The one value that the statement gives.
    Value Single(std::string_view sql);
    /// Names and types of the fields: "Name:type,...".
    std::string FieldsOf(std::string_view sql);

    std::string path_;
    Connection connection_;

private:
    std::string folder_;
};

/// All rows of an open result set from the current one on, as Rows gives them.
std::vector<std::string> RowsOf(Recordset& rows);

/// The error that the action raises, for its number and its message; fails when it raises none.
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
