// Checks the history: the record of what commands have changed.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "check/CheckFindings.h"
#include "engine/rows/RawSql.h"

namespace clb {

/// What makes the history sound again, at the price of some steps.
struct HistoryRepair {
    std::vector<std::string> sql;  ///< in the storage's SQL; empty: the history is sound
    std::int32_t steps = 0;        ///< steps that are dropped
};

/// Checks whether every step of the history can be read: its tables, its state, its place among the
/// others and all parts of its record. Whether the rows of the book still are as a step left them
/// is not checked; undo does that.
///
/// A repair drops a broken step, and the steps that can be undone or redone only through it: the
/// older ones, or, if it was undone, those undone before it.
class CheckHistory {
public:
    /// Borrows the database. Throws EngineError if the history cannot be read.
    CheckHistory(RawSql& raw, FindingList& findings);

    [[nodiscard]] const HistoryRepair& Repair() const { return repair_; }

private:
    struct Step;

    void FindTables();
    void FindUnsoundTable(const std::string& table);
    void FindSteps();
    static void TakePart(Step& step, const RawSql::Row& row);
    void Close(const Step& step);
    void FindOrder(const Step& step);
    void FindStray();
    void Add(const Step& step, const std::string& fault);
    void PlanRepair();
    std::int32_t CountSteps(const std::string& condition);

    RawSql& raw_;
    FindingList& findings_;
    HistoryRepair repair_;
    std::int64_t brokenUpTo_;      ///< newest broken step that is not undone
    std::int64_t brokenFrom_;      ///< oldest broken step that is undone
    std::int64_t lastUndone_ = 0;  ///< newest undone step so far; 0: none
    std::int64_t last_ = 0;        ///< newest step so far; 0: none
};

}  // namespace clb
