#include "check/CheckHistory.h"

#include <algorithm>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>

#include "base/Date.h"
#include "engine/storage/Catalogue.h"
#include "history/StepBytes.h"
#include "history/StepStore.h"

namespace clb {
namespace {

using Limits = std::numeric_limits<std::int64_t>;

/// Counts the rows that the parts of a record describe, each once.
class DistinctRows {
public:
    /// Throws packed::BrokenBytes.
    void Add(std::string_view part)
    {
        if (++parts_ == 1) {
            // Most records have one part, which has each row once.
            first_ = part;
            ForEach(part, [this](const std::string&, std::int64_t) { ++count_; });
            return;
        }
        if (parts_ == 2) {
            count_ = 0;
            Collect(std::exchange(first_, {}));
        }
        Collect(part);
    }
    [[nodiscard]] std::int64_t Count() const { return count_; }

private:
    template <typename Take>
    static void ForEach(std::string_view part, Take&& take)
    {
        RowChanged row;
        for (StepReader reader(part); reader.NextTable();)
            while (reader.NextRow(row))
                take(reader.Table(), row.row);
    }
    void Collect(std::string_view part)
    {
        ForEach(part, [this](const std::string& table, std::int64_t row) {
            count_ += rows_[table].insert(row).second ? 1 : 0;
        });
    }

    std::int64_t parts_ = 0;
    std::int64_t count_ = 0;
    std::string first_;
    std::map<std::string, std::unordered_set<std::int64_t>> rows_;
};

}  // namespace

/// A step as it is read, with what its parts add up to.
struct CheckHistory::Step {
    std::int64_t number = 0;
    std::string what{};
    bool dated = false;
    bool named = false;
    std::optional<std::int64_t> rows{};
    std::optional<std::int64_t> bytes{};
    std::optional<std::int64_t> state{};
    std::int64_t parts = 0;
    DistinctRows rowsFound{};
    std::int64_t bytesFound = 0;
    bool summed = false;  ///< there is a checksum
    std::optional<std::int64_t> sum{};
    std::int64_t sumFound = 0;
    bool readable = true;
    bool numbered = true;  ///< the parts are 1, 2, 3 ...

    explicit Step(const RawSql::Row& row) : number(row.Integer(0)), what(row.Text(2))
    {
        const auto whole = [&row](int column) {
            return row.KindOf(column) == RawSql::Kind::Integer ? std::optional(row.Integer(column))
                                                               : std::nullopt;
        };
        dated = Date::FromIso(row.Text(1)).has_value();
        named = row.KindOf(2) == RawSql::Kind::Text;
        rows = whole(3);
        state = whole(4);
        bytes = whole(5);
        summed = !row.IsNull(8);
        sum = whole(8);
    }
    [[nodiscard]] bool IsUndone() const { return state == kUndone; }
    [[nodiscard]] std::string Name() const
    {
        return "step " + std::to_string(number) + (what.empty() ? "" : " ('" + what + "')");
    }
    /// What is wrong with it; empty: nothing.
    [[nodiscard]] std::string Fault() const
    {
        if (number < 1 || number > kLastStep)
            return "has a number that no step can have";
        if (!state || *state < kDone || *state > kHistoryEnded)
            return "is neither done nor undone";
        if (!dated)
            return "has no time";
        if (*state == kHistoryEnded)
            return {};
        if (!named)
            return "has no name";
        if (parts == 0 || !numbered || bytes != bytesFound + kStepBytes)
            return "lacks a part of its record";
        if (!readable)
            return "has a record that cannot be read";
        if (summed && sum != sumFound)
            return "has a record that is not what was stored";
        if (!rows || *rows < rowsFound.Count())
            return "has a record of more rows than it says";
        return {};
    }
};

CheckHistory::CheckHistory(RawSql& raw, FindingList& findings)
    : raw_(raw), findings_(findings), brokenUpTo_(Limits::min()), brokenFrom_(Limits::max())
{
    FindTables();
    if (!repair_.sql.empty() || raw_.Find("CvStep") == nullptr)
        return;
    FindSteps();
    FindStray();
    PlanRepair();
}

void CheckHistory::FindTables()
{
    std::vector<std::string> sound;
    raw_.Select(StepStore::SoundTables(),
                [&](const RawSql::Row& row) { sound.emplace_back(row.Text(0)); });
    std::vector<std::string> drops;
    raw_.Select(
        "SELECT type, name FROM sqlite_master WHERE name COLLATE NOCASE IN ('CvStep', 'CvChange') "
        "AND type <> 'trigger' ORDER BY name",
        [&](const RawSql::Row& row) {
            drops.push_back("DROP " + std::string(row.Text(0)) + " " + QuoteName(row.Text(1)));
        });
    if (drops.empty() || sound.size() == 2)
        return;
    for (const char* table : {"CvStep", "CvChange"})
        if (std::ranges::find(sound, table) == sound.end())
            FindUnsoundTable(table);
    if (std::ranges::find(sound, "CvStep") != sound.end())
        repair_.steps = CountSteps("Undone IS NOT 2");
    repair_.sql = drops;
}

void CheckHistory::FindUnsoundTable(const std::string& table)
{
    bool there = false;
    raw_.Select("SELECT 1 FROM sqlite_master WHERE name = " + QuoteText(table) + " COLLATE NOCASE",
                [&there](const RawSql::Row&) { there = true; });
    findings_.Add({.kind = "history",
                   .table = table,
                   .text = "The history cannot be read: the table " + table +
                           (there ? " is not as the program makes it." : " is missing."),
                   .meaning = "Nothing that was done before can be undone. A repair drops the "
                              "history; the next command begins a new one. Nothing else is lost.",
                   .repairable = true});
}

void CheckHistory::FindSteps()
{
    std::optional<Step> step;
    const bool summed = raw_.Find("CvStep")->Find("Checksum") != nullptr;
    raw_.Select(
        "SELECT s.Step, s.At, s.What, s.\"Rows\", s.Undone, s.Bytes, c.Part, c.Data, " +
            std::string(summed ? "s.Checksum" : "NULL") +
            " FROM CvStep s LEFT JOIN CvChange c ON c.Step = s.Step ORDER BY s.Step, c.Part",
        [&](const RawSql::Row& row) {
            if (step && step->number != row.Integer(0)) {
                Close(*step);
                step.reset();
            }
            if (!step)
                step.emplace(row);
            TakePart(*step, row);
        });
    if (step)
        Close(*step);
}

void CheckHistory::TakePart(Step& step, const RawSql::Row& row)
{
    if (row.IsNull(6))
        return;
    const std::string_view data = row.Text(7);
    step.numbered = step.numbered && row.Integer(6) == ++step.parts;
    step.bytesFound += static_cast<std::int64_t>(data.size());
    step.sumFound = packed::Checksum(step.sumFound, data);
    try {
        step.rowsFound.Add(data);
    } catch (const packed::BrokenBytes&) {
        step.readable = false;
    }
}

void CheckHistory::Close(const Step& step)
{
    const std::string fault = step.Fault();
    if (fault.empty()) {
        FindOrder(step);
    } else {
        Add(step, fault);
        if (step.IsUndone())
            brokenFrom_ = std::min(brokenFrom_, step.number);
        else
            brokenUpTo_ = std::max(brokenUpTo_, step.number);
    }
    last_ = step.number;
    if (step.IsUndone())
        lastUndone_ = step.number;
}

/// Steps that are done come first, then those that were undone. The mark of a change of tables
/// comes before all.
void CheckHistory::FindOrder(const Step& step)
{
    if (step.state == kHistoryEnded && last_ != 0) {
        Add(step, "ends the history, but there are steps before it");
        brokenUpTo_ = std::max(brokenUpTo_, last_);
    } else if (step.state == kDone && lastUndone_ != 0) {
        Add(step, "is done, but step " + std::to_string(lastUndone_) + " before it is not");
        brokenUpTo_ = std::max(brokenUpTo_, lastUndone_);
        lastUndone_ = 0;  // reported once
    }
}

void CheckHistory::Add(const Step& step, const std::string& fault)
{
    findings_.Add({.kind = "history",
                   .table = "CvStep",
                   .text = "The history is damaged: " + step.Name() + " " + fault + ".",
                   .rows = 1,
                   .row = step.number,
                   .repairable = true});
}

/// Changes that belong to no step.
void CheckHistory::FindStray()
{
    const std::string stray = "Step NOT IN (SELECT Step FROM CvStep WHERE Undone IS NOT 2)";
    raw_.Select("SELECT Step, count(*) FROM CvChange WHERE " + stray + " GROUP BY Step",
                [&](const RawSql::Row& row) {
                    findings_.Add({.kind = "history",
                                   .table = "CvChange",
                                   .text = "The history is damaged: there are changes of step " +
                                           std::string(row.Text(0)) + ", which is not there.",
                                   .rows = static_cast<std::int32_t>(row.Integer(1)),
                                   .meaning = "They only take room. A repair drops them.",
                                   .repairable = true});
                    if (repair_.sql.empty())
                        repair_.sql.push_back("DELETE FROM CvChange WHERE " + stray);
                });
}

void CheckHistory::PlanRepair()
{
    const auto drop = [this](const std::string& condition) {
        repair_.steps += CountSteps(condition);
        repair_.sql.push_back("DELETE FROM CvChange WHERE Step IN (SELECT Step FROM CvStep WHERE " +
                              condition + ")");
        repair_.sql.push_back("DELETE FROM CvStep WHERE " + condition);
    };
    if (brokenUpTo_ != Limits::min())
        drop("Step <= " + std::to_string(brokenUpTo_));
    if (brokenFrom_ != Limits::max())
        drop("Step >= " + std::to_string(brokenFrom_) + " AND Step > " +
             std::to_string(brokenUpTo_));
}

std::int32_t CheckHistory::CountSteps(const std::string& condition)
{
    std::int64_t count = 0;
    raw_.Select("SELECT count(*) FROM CvStep WHERE " + condition,
                [&count](const RawSql::Row& row) { count = row.Integer(0); });
    return static_cast<std::int32_t>(count);
}

}  // namespace clb
