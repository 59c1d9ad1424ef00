#include "history/StepStore.h"

#include <algorithm>

#include "base/Text.h"
#include "engine/storage/Catalogue.h"

namespace clb {
namespace {

constexpr std::int64_t kLeastRoom = std::int64_t{64} << 20;
constexpr std::int64_t kPartOfFile = 5;
/// The size of a step; another program may have stored any number.
constexpr const char* kSize = "max(0, min(Bytes, 1099511627776))";

struct OwnTable {
    const char* name;
    const char* columns;
};

constexpr OwnTable kTables[] = {
    {"CvStep",
     "(Step INTEGER PRIMARY KEY, At DATETIME, What TEXT, \"Rows\" LONG, Undone LONG, Bytes LONG, "
     "Program TEXT, Checksum LONG)"},
    {"CvChange", "(Step LONG, Part LONG, Data BLOB, PRIMARY KEY (Step, Part)) WITHOUT ROWID"}};

/// SELECT of whole steps.
std::string Steps(const std::string& rest)
{
    return "SELECT Step, At, What, \"Rows\", Undone, Program FROM CvStep " + rest;
}

Step StepOf(const Query& row)
{
    return {row.Integer(0), row.Text(1), row.Text(2), row.Integer(3), row.Integer(4) == kUndone,
            row.Text(5)};
}

}  // namespace

bool StepStore::Owns(std::string_view table)
{
    return EqualsIgnoringCase(table, "CvStep") || EqualsIgnoringCase(table, "CvChange");
}

Query& StepStore::Prepared(Query& query, const std::string& sql)
{
    if (!query)
        query = database_->Prepare(sql, true);
    return query;
}

const char* StepStore::SoundTables()
{
    return "SELECT m.name, max(c.name = 'Checksum') FROM sqlite_master m JOIN "
           "pragma_table_info(m.name) c WHERE m.type = 'table' AND m.rootpage > 0 AND (m.name = "
           "'CvStep' AND c.name || c.pk IN ('Step1', 'At0', 'What0', 'Rows0', 'Undone0', 'Bytes0', "
           "'Program0', 'Checksum0') OR m.name = 'CvChange' AND c.name || c.pk IN ('Step1', "
           "'Part2', 'Data0')) GROUP BY m.name HAVING sum(c.name <> 'Checksum') = iif(m.name = "
           "'CvStep', 7, 3)";
}

bool StepStore::Exists()
{
    Query& sound = Prepared(exists_, SoundTables());
    const ResetAtExit reset(sound);
    int found = 0;
    for (sums_ = false; database_->Step(sound); ++found)
        sums_ = sums_ || sound.Integer(1) != 0;
    return found == 2;
}

bool StepStore::IsSound(const std::string& table)
{
    Query& sound = Prepared(exists_, SoundTables());
    const ResetAtExit reset(sound);
    while (database_->Step(sound))
        if (sound.TextView(0) == table)
            return true;
    return false;
}

/// Removes whatever has the table's name.
void StepStore::Remove(const std::string& table)
{
    std::string drop;
    {
        Query found = database_->Prepare(
            "SELECT type, name FROM sqlite_master WHERE name = ?1 COLLATE NOCASE AND type <> "
            "'trigger'");
        found.BindText(1, table);
        while (database_->Step(found))
            drop += "DROP " + found.Text(0) + " " + QuoteName(found.Text(1)) + ";";
    }
    database_->Run(drop);
}

void StepStore::Provide()
{
    if (!Exists())
        MakeTables();
    if (!sums_)
        database_->Run("ALTER TABLE CvStep ADD COLUMN Checksum LONG");
    sums_ = true;
}

void StepStore::MakeTables()
{
    // Steps without changes, or changes without steps, are worth nothing.
    for (const OwnTable& table : kTables) {
        const std::string name = table.name;
        if (IsSound(name)) {
            database_->Run("DELETE FROM " + name);
            continue;
        }
        Remove(name);
        database_->Run("CREATE TABLE " + name + " " + table.columns);
    }
    Exists();
    known_ = -1;
}

std::optional<Step> StepStore::One(Query& query)
{
    const ResetAtExit reset(query);
    if (!database_->Step(query))
        return std::nullopt;
    return StepOf(query);
}

std::optional<Step> StepStore::Newest()
{
    return One(Prepared(newest_, Steps("ORDER BY Step DESC LIMIT 1")));
}

std::optional<Step> StepStore::NextToUndo()
{
    return One(Prepared(nextToUndo_, Steps("WHERE Undone = 0 ORDER BY Step DESC LIMIT 1")));
}

std::optional<Step> StepStore::NextToRedo()
{
    return One(Prepared(
        nextToRedo_, Steps("WHERE Undone = 1 AND Step > (SELECT ifnull(max(Step), -1) FROM CvStep "
                           "WHERE Undone <> 1) ORDER BY Step LIMIT 1")));
}

std::optional<Step> StepStore::Find(std::int64_t number)
{
    Query& find = Prepared(find_, Steps("WHERE Step = ?1 AND Undone <> 2"));
    find.BindInteger(1, number);
    return One(find);
}

void StepStore::Visit(const std::function<bool(const Step&)>& visit)
{
    Query rows = database_->Prepare(Steps("WHERE Undone <> 2 ORDER BY Step DESC"));
    while (database_->Step(rows))
        if (!visit(StepOf(rows)))
            return;
}

std::string StepStore::EndedAt()
{
    Query find = database_->Prepare("SELECT At FROM CvStep WHERE Undone = 2 ORDER BY Step DESC");
    const ResetAtExit reset(find);
    return database_->Step(find) ? find.Text(0) : std::string();
}

std::int64_t StepStore::Number(const std::string& sql)
{
    Query query = database_->Prepare(sql);
    const ResetAtExit reset(query);
    return database_->Step(query) ? query.Integer(0) : 0;
}

std::int64_t StepStore::Add(const Step& step)
{
    std::optional<Step> newest = Newest();
    if (newest && newest->number >= kLastStep) {
        database_->Run("DELETE FROM CvChange; DELETE FROM CvStep");
        newest.reset();
    }
    if (newest && newest->undone)
        database_->Run(
            "DELETE FROM CvChange WHERE Step IN (SELECT Step FROM CvStep WHERE Undone = 1);"
            "DELETE FROM CvStep WHERE Undone = 1");
    // The number of a step that is gone is not given again: another program may remember it.
    const std::int64_t number = newest ? newest->number + 1 : 1;
    if (!newest || newest->undone || newest->number != known_)
        total_ = Number("SELECT ifnull(sum(" + std::string(kSize) + "), 0) FROM CvStep");
    known_ = number;
    total_ += kStepBytes;
    Query& stray = Prepared(stray_, "DELETE FROM CvChange WHERE Step >= ?1");
    stray.BindInteger(1, number);
    database_->Step(stray);
    Query& add = Prepared(add_,
                          "INSERT INTO CvStep (Step, At, What, \"Rows\", Undone, Bytes, "
                          "Program, Checksum) VALUES (?1, ?2, ?3, 0, 0, ?4, ?5, 0)");
    add.BindInteger(1, number);
    add.BindText(2, step.at);
    add.BindText(3, step.what);
    add.BindInteger(4, kStepBytes);
    add.BindText(5, step.program);
    database_->Step(add);
    return number;
}

void StepStore::AppendPart(std::int64_t step, std::string_view bytes, std::int64_t rows)
{
    Query& append =
        Prepared(appendPart_,
                 "INSERT INTO CvChange (Step, Part, Data) SELECT ?1, ifnull(max(Part), 0) + 1, ?2 "
                 "FROM CvChange WHERE Step = ?1");
    append.BindInteger(1, step);
    append.BindBlob(2, bytes);
    database_->Step(append);
    Query& count =
        Prepared(countPart_,
                 "UPDATE CvStep SET \"Rows\" = \"Rows\" + ?2, Bytes = Bytes + ?3, Checksum = "
                 "iif(Checksum IS NULL, NULL, ?4) WHERE Step = ?1");
    count.BindInteger(4, packed::Checksum(ChecksumOf(step), bytes));
    count.BindInteger(1, step);
    count.BindInteger(2, rows);
    count.BindInteger(3, static_cast<std::int64_t>(bytes.size()));
    database_->Step(count);
    total_ += static_cast<std::int64_t>(bytes.size());
}

/// The checksum of the step's parts; 0 without parts.
std::int64_t StepStore::ChecksumOf(std::int64_t step)
{
    Query& find = Prepared(checksum_, "SELECT Checksum FROM CvStep WHERE Step = ?1");
    const ResetAtExit reset(find);
    find.BindInteger(1, step);
    return database_->Step(find) ? find.Integer(0) : 0;
}

/// Size and checksum of a step.
Query& StepStore::Totals()
{
    return sums_ ? Prepared(totalsWithSum_, "SELECT Bytes, Checksum FROM CvStep WHERE Step = ?1")
                 : Prepared(totals_, "SELECT Bytes, NULL FROM CvStep WHERE Step = ?1");
}

std::vector<std::string> StepStore::Parts(std::int64_t step)
{
    std::vector<std::string> found;
    Query& totals = Totals();
    const ResetAtExit resetTotals(totals);
    totals.BindInteger(1, step);
    std::int64_t left = database_->Step(totals) ? totals.Integer(0) - kStepBytes : 0;
    std::int64_t sum = 0;
    Query& parts = Prepared(parts_, "SELECT Data FROM CvChange WHERE Step = ?1 ORDER BY Part");
    const ResetAtExit reset(parts);
    parts.BindInteger(1, step);
    while (database_->Step(parts)) {
        found.push_back(parts.Text(0));
        left -= static_cast<std::int64_t>(found.back().size());
        sum = packed::Checksum(sum, found.back());
    }
    if (found.empty() || left != 0)
        throw DamagedStep{step};
    const StoredCell expected = totals.Cell(1);
    if (expected != StoredCell() && expected != StoredCell(sum))
        throw DamagedStep{step};
    return found;
}

void StepStore::Replace(std::int64_t step, std::string_view bytes, bool undone)
{
    const std::string where = " WHERE Step = " + std::to_string(step);
    database_->Run("DELETE FROM CvChange" + where +
                   "; UPDATE CvStep SET Undone = " + std::to_string(undone ? kUndone : kDone) +
                   ", Checksum = 0, Bytes = " + std::to_string(kStepBytes) + where);
    AppendPart(step, bytes, 0);
    known_ = -1;  // the total is counted anew
}

void StepStore::End(const std::string& at)
{
    if (!Exists())
        return;
    const std::optional<Step> newest = Newest();
    if (!newest)
        return;
    database_->Run("DELETE FROM CvChange; DELETE FROM CvStep");
    Query mark = database_->Prepare(
        "INSERT INTO CvStep (Step, At, \"Rows\", Undone, Bytes) VALUES (?1, ?2, 0, 2, 0)");
    mark.BindInteger(1, newest->number < kLastStep ? newest->number + 1 : 1);
    mark.BindText(2, at);
    database_->Step(mark);
    known_ = -1;
}

void StepStore::Drop(std::int64_t step)
{
    const std::string where = " WHERE Step = " + std::to_string(step);
    database_->Run("DELETE FROM CvChange" + where + "; DELETE FROM CvStep" + where);
}

void StepStore::KeepRoom()
{
    if (total_ <= kLeastRoom)
        return;
    const std::int64_t file =
        Number("SELECT page_count * page_size FROM pragma_page_count, pragma_page_size");
    const std::int64_t room = std::max(kLeastRoom, file / kPartOfFile);
    const std::optional<Step> newest = NextToUndo();
    std::vector<std::pair<std::int64_t, std::int64_t>> oldest;
    Query rows = database_->Prepare("SELECT Step, " + std::string(kSize) +
                                    " FROM CvStep WHERE Undone = 0 ORDER BY Step");
    for (std::int64_t left = total_; left > room && database_->Step(rows);) {
        oldest.emplace_back(rows.Integer(0), rows.Integer(1));
        left -= rows.Integer(1);
    }
    rows.Reset();
    for (const auto& [step, bytes] : oldest) {
        if (newest && step == newest->number)
            break;
        Drop(step);
        total_ -= bytes;
    }
}

}  // namespace clb
