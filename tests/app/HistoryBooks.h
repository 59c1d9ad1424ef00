// Books whose commands a test gives, with another program at the same file.
#pragma once
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

#include "history/History.h"
#include "tests/support/Books.h"

namespace clb {

/// The accounts Checking and Savings, two transactions in Checking in March 2006 and one in May,
/// and a budget line in each of these months. Each was made without the history.
class HistoryBooks : public testing::Test {
protected:
    HistoryBooks()
    {
        clock().now = *Date::Of(2006, 3, 20, 9, 5, 0);
        books_.AddAccount("C1", "Bank", "Checking");
        books_.AddAccount("S1", "Bank", "Savings");
        AddTransaction("C1", 3, "Baker");
        AddTransaction("C1", 3, "Grocer");
        AddTransaction("C1", 5, "Tailor");
        for (const char* month : {"3", "5"})
            books_.Execute(
                "INSERT INTO Budget (Category, Amount, [Year], Period, CategoryGroup, [Sequence]) "
                "VALUES ('Food', 300, 2006, " +
                std::string(month) + ", 'Household', " + month + ")");
        Window().Settle();
        Raw("DELETE FROM CvStep; DELETE FROM CvChange");
        Window().ReloadWindow();
        Window().FollowHistory();
    }

    frmController& Window() { return books_.window; }
    FakeClock& clock() { return books_.clock; }

    /// A command of these statements.
    void Command(const std::string& what, const std::string& statement)
    {
        Window().Steps().Begin(what);
        books_.Execute(statement);
        Window().Settle();
    }
    void Press(const std::string& item)
    {
        Window().menus.Find(item)->Press();
        Window().Settle();
    }
    void Click(const std::string& text)
    {
        for (std::int32_t node = 1; node <= Window().TreeView.Count(); ++node)
            if (Window().TreeView.Node(node).text == text) {
                Window().PressNode(node);
                break;
            }
        Window().Settle();
    }
    std::string Caption(const std::string& item) { return Window().menus.Find(item)->Caption(); }

    /// A step that another program makes.
    void Elsewhere(const std::string& what, const std::string& statement)
    {
        Connection connection;
        connection.Open("Data Source=" + books_.folder.Path() + "/db/clb.mdb");
        History history(
            connection, [] { return *Date::Of(2006, 3, 20); }, "another one");
        history.Begin(what);
        connection.Execute(statement);
        connection.Settle();
    }
    /// Writes past every history.
    void Raw(const std::string& sql) const
    {
        sqlite3* file = nullptr;
        ASSERT_EQ(sqlite3_open((books_.folder.Path() + "/db/clb.mdb").c_str(), &file), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(file, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(file);
        sqlite3_close(file);
    }

    void AddTransaction(const std::string& account, int month, const std::string& description)
    {
        const std::string period = std::to_string(month);
        books_.Execute(
            "INSERT INTO Trans (AccountID, PostDate, Description, Amount, [Year], Period, "
            "Category, [Sequence], SubSequence) VALUES ('" +
            account + "', #2006-0" + period + "-10#, '" + description + "', -4.5, 2006, " + period +
            ", '(none)', " + std::to_string(++sequence_) + ", 0)");
    }

    Books books_;

private:
    int sequence_ = 0;
};

}  // namespace clb
