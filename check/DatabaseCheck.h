// Checks a database.
#pragma once
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "check/CheckFindings.h"
#include "check/CheckHistory.h"
#include "check/CheckNumbers.h"
#include "check/CheckRows.h"
#include "data/NoticedBalances.h"

namespace clb {

struct DatabaseReport {
    std::string file;
    std::int16_t schemaVersion = 0;  ///< 0: the file has never had one
    std::vector<Finding> findings;
};

/// What a repair has to do, as found by a check.
struct RepairPlan {
    struct Balance {
        std::int64_t row = 0;  ///< the storage's number of the account's row
        OddBalance odd;        ///< has a sum
    };
    struct BudgetLine {
        std::int32_t year = 0;
        std::int32_t period = 0;
        std::string category;
    };

    std::vector<Balance> balances;
    std::vector<NewNumber> numbers;
    std::vector<std::string> schema;  ///< makes missing indexes and triggers, in the storage's SQL
    std::vector<BudgetLine> budgetLines;
    HistoryRepair history;
};

/// Checks everything in a database that the program relies on: every cell, numbers, accounts,
/// balances, categories, months, the noticed balances that the user has not acknowledged, what the
/// file declares, and the history. A million rows take a few seconds. What cannot be read is also a
/// finding.
class DatabaseCheck {
public:
    /// Borrows the database. Throws EngineError only if another program locks it.
    explicit DatabaseCheck(RawSql& raw);

    /// 0: the file has never had one.
    [[nodiscard]] std::int16_t SchemaVersion() const { return version_; }
    FindingList& Findings() { return findings_; }
    [[nodiscard]] const RepairPlan& Plan() const { return plan_; }

private:
    struct Account {
        std::int64_t row = 0;
        std::string number;
        std::string description;
        std::int32_t view = 0;
        bool stored = false;  ///< whether it has a balance
        std::int64_t balance = 0;
        std::string instead{};  ///< what it has instead of a balance, in words
    };
    using Rows = std::map<std::optional<std::string>, AccountRows>;

    template <typename Step>
    void Try(const std::string& table, Step step);
    void Scan(const std::string& table, const TableInfo& expected);
    void ReadAccounts();
    void FindOrphans(const std::string& table);
    void FindBalances();
    void CompareBalance(const Account& account);
    void FindNoticed();
    bool IsNoticedList(const TableInfo& list);
    void FindCategories();
    void AddCategory(const BudgetPlace& place, const RowGroup& rows);
    [[nodiscard]] std::string DescriptionOf(const std::string& number) const;

    RawSql& raw_;
    std::int16_t version_ = 0;
    FindingList findings_;
    std::set<std::string> reported_;  ///< errors in reading, each once
    FindingList months_;
    RepairPlan plan_;
    std::vector<Account> accounts_;
    std::map<std::string, Rows> rows_;  ///< by table; only tables that were read to their end
    std::map<std::string, std::map<BudgetPlace, RowGroup>> places_;
};

/// Checks a program folder's database without changing it. The file may be read-only. A damaged
/// file is checked as far as it can be read. Throws EngineError if the file cannot be opened
/// (missing, locked, no permission).
DatabaseReport CheckDatabase(const std::string& folder);

}  // namespace clb
