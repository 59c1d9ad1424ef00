// The tables of the history in the user's file.
#pragma once
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/storage/Database.h"

namespace clb {

/// Column Undone of CvStep.
enum StepState : std::uint8_t {
    kDone = 0,
    kUndone = 1,
    kHistoryEnded = 2,  ///< not a step: a change of tables has ended the history here
};

/// What CvStep counts for a step besides the bytes of its changes.
constexpr std::int64_t kStepBytes = 100;
/// The largest number that a step may have.
constexpr std::int64_t kLastStep = std::numeric_limits<std::int32_t>::max();

/// One step of the history: what one command has changed.
struct Step {
    std::int64_t number = 0;
    std::string at;    ///< local time, ISO
    std::string what;  ///< the command, such as "Delete Record"
    std::int64_t rows = 0;
    bool undone = false;
    std::string program;  ///< which of the running programs made it
};

/// The record of the step with this number is not what was stored.
struct DamagedStep {
    std::int64_t number;
};

/// Keeps the steps in the tables CvStep (one row a step) and CvChange (the changes of a step in
/// parts, in the order in which they were made). They are made with the first step. Tables of these
/// names with other columns are not a history; the first step replaces them. CvStep may lack the
/// column Checksum, which the next step adds; steps without a checksum are read without a check.
/// All functions throw EngineError, and the ones that write run in the connection's pending group.
class StepStore {
public:
    explicit StepStore(Database& database) : database_(&database) {}

    static bool Owns(std::string_view table);
    /// The query, in the storage's SQL, of the names of the tables that are there as the history
    /// makes them, and of whether they have checksums (0 or 1).
    static const char* SoundTables();
    /// Whether there are both tables of a history.
    bool Exists();
    /// Makes the tables, or what they lack, unless they are there.
    void Provide();

    /// The newest step, undone or not.
    std::optional<Step> Newest();
    /// The step that Undo takes back next, and the one that Redo brings back next.
    std::optional<Step> NextToUndo();
    std::optional<Step> NextToRedo();
    std::optional<Step> Find(std::int64_t number);
    /// Hands out steps, the newest first, until visit returns false.
    void Visit(const std::function<bool(const Step&)>& visit);
    /// When a change of tables ended the history, in ISO form; empty if none did.
    std::string EndedAt();

    /// Adds a step without changes after the newest; returns its number. Steps that were undone go.
    std::int64_t Add(const Step& step);
    void AppendPart(std::int64_t step, std::string_view bytes, std::int64_t rows);
    /// The parts of a step in the order in which they were made. Throws DamagedStep if some are
    /// missing or not what was stored. Exists or Provide was called before.
    std::vector<std::string> Parts(std::int64_t step);
    /// Puts one part in the place of all parts.
    void Replace(std::int64_t step, std::string_view bytes, bool undone);
    /// Drops all steps; remembers that a change of tables has ended the history.
    void End(const std::string& at);
    /// Drops the oldest steps while the history takes more room than it may: a fifth of the file,
    /// or 64 MiB if that is more. The newest step that is not undone and all that are undone stay.
    void KeepRoom();
    /// To be called after a group was lost.
    void Forget() noexcept { known_ = -1; }

private:
    bool IsSound(const std::string& table);
    void MakeTables();
    Query& Totals();
    std::int64_t ChecksumOf(std::int64_t step);
    void Remove(const std::string& table);
    Query& Prepared(Query& query, const std::string& sql);
    std::optional<Step> One(Query& query);
    std::int64_t Number(const std::string& sql);
    void Drop(std::int64_t step);

    Database* database_;
    Query exists_, newest_, nextToUndo_, nextToRedo_, find_, stray_, add_, appendPart_, countPart_,
        totals_, totalsWithSum_, checksum_, parts_;
    bool sums_ = false;        ///< there is the column Checksum
    std::int64_t known_ = -1;  ///< newest step when total_ was right
    std::int64_t total_ = 0;   ///< bytes of all steps
};

}  // namespace clb
