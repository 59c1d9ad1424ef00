// A fixture with a data store over a fresh database.
#pragma once
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "data/EmptyDatabase.h"
#include "data/clsDatabase.h"
#include "tests/support/TempFolder.h"

namespace clb {

/// What is shown, set by the test.
struct Shown : IShownState {
    std::int32_t view = 0;
    std::int32_t period = 3;
    std::int32_t year = 2006;
    std::string type;
    std::string account;

    [[nodiscard]] std::int32_t View() const override { return view; }
    [[nodiscard]] std::int32_t Period() const override { return period; }
    [[nodiscard]] std::int32_t Year() const override { return year; }
    [[nodiscard]] const std::string& AccountType() const override { return type; }
    [[nodiscard]] const std::string& AccountID() const override { return account; }
};

/// The grid's current row, set by the test.
struct CurrentRow : ICurrentRow {
    std::map<std::int32_t, Value> cells;

    Value ColumnValue(std::int32_t column) override { return cells[column]; }
    void ColumnValue(std::int32_t column, const Value& value) override { cells[column] = value; }
};

/// A data store over a fresh copy of the delivered database.
class StoreTest : public testing::Test {
protected:
    StoreTest() { folder_.Write("db/clb.mdb", EmptyDatabase()); }

    clsDatabase& Store()
    {
        if (!store_)
            store_ = std::make_unique<clsDatabase>(folder_.Path(), shown_, row_);
        return *store_;
    }
    void Execute(const std::string& sql) { Store().Execute(sql); }

    /// The rows of a SELECT, fields separated by "|".
    std::vector<std::string> Rows(const std::string& sql)
    {
        Recordset records;
        Store().Fill(records, sql, true);
        return Lines(records);
    }
    static std::vector<std::string> Lines(Recordset& records)
    {
        std::vector<std::string> lines;
        for (; !records.AtEnd(); records.MoveNext()) {
            std::string line;
            for (std::size_t field = 0; field < records.Fields().size(); ++field)
                line += (field > 0 ? "|" : "") + ToText(records.Get(field));
            lines.push_back(line);
        }
        return lines;
    }

    void AddAccount(const std::string& id, const std::string& type,
                    const std::string& opening = "0", const std::string& current = "0")
    {
        Execute(
            "INSERT INTO Account (AccountID, Description, Type, OpeningBalance, CurrentBalance) "
            "VALUES ('" +
            clsDatabase::ToSqlString(id) + "', '" + clsDatabase::ToSqlString(id) + "', '" + type +
            "', " + opening + ", " + current + ")");
    }
    void AddTransaction(std::int32_t sequence, const std::string& account,
                        const std::string& amount, std::int32_t year, std::int32_t period,
                        const std::string& category = "(none)",
                        const std::string& date = "2006-03-05")
    {
        Execute(
            "INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Amount, Year, Period, "
            "Category) VALUES (" +
            std::to_string(sequence) + ", 0, '" + account + "', #" + date + "#, " + amount + ", " +
            std::to_string(year) + ", " + std::to_string(period) + ", '" + category + "')");
    }
    void AddBudget(const std::string& category, const std::string& group, const std::string& amount,
                   std::int32_t year, std::int32_t period)
    {
        Execute("INSERT INTO Budget (Category, CategoryGroup, Amount, Year, Period) VALUES ('" +
                category + "', '" + group + "', " + amount + ", " + std::to_string(year) + ", " +
                std::to_string(period) + ")");
    }

    TempFolder folder_;
    Shown shown_;
    CurrentRow row_;
    std::unique_ptr<clsDatabase> store_;
};

}  // namespace clb
