#include "history/History.h"

#include <algorithm>
#include <utility>

#include "engine/rows/Session.h"
#include "history/StepBytes.h"

namespace clb {
namespace {

/// A step that no command has named.
constexpr const char* kUnnamed = "Change";

/// While it lives, what is written is not part of a step.
class Own {
public:
    explicit Own(bool& writing) : writing_(&writing) { *writing_ = true; }
    ~Own() { *writing_ = false; }
    Own(const Own&) = delete;
    Own& operator=(const Own&) = delete;

private:
    bool* writing_;
};

std::string Sentence(const Step& step, bool undo, const std::string& why)
{
    return "'" + step.what + "' cannot be " + (undo ? "undone" : "redone") + ": " + why +
           ". Nothing was changed.";
}

std::string Damaged(std::int64_t step)
{
    return "the history's step " + std::to_string(step) + " is damaged";
}

bool IsAdded(std::string_view table)
{
    return table.size() > 2 && table.starts_with("Cv");
}

}  // namespace

History::History(Connection& connection, Clock now, std::string program)
    : HistoryReader(connection.Internals().database),
      connection_(&connection),
      now_(std::move(now)),
      program_(std::move(program)),
      what_(kUnnamed)
{
    const std::optional<Step> newest = store_.Exists() ? store_.Newest() : std::nullopt;
    newestAtOpening_ = newest ? newest->number : 0;
    connection_->Watch(this);
}

History::~History()
{
    connection_->Watch(nullptr);
}

void History::Changing(const ChangingRow& row)
{
    if (!writing_ && !StepStore::Owns(row.Table()) && !row.Table().starts_with("sqlite_"))
        log_.Add(row);
}

void History::Lost() noexcept
{
    changed_ = true;
    log_.Clear();
    shapes_.Forget();
    store_.Forget();
    step_ = committedStep_;
}

void History::TableChanged(std::string_view table)
{
    shapes_.Forget();
    // The program's own additions lie beside what the history keeps.
    if (IsAdded(table) && !sent_)
        return;
    log_.Clear();
    step_ = 0;
    changed_ = true;
    const Own own(writing_);
    store_.End(now_().ToIso());
}

void History::BeforeCommit()
{
    Write();
    committedNext_ = step_;
}

void History::Committed() noexcept
{
    committedStep_ = committedNext_;
}

void History::Begin(const std::string& what)
{
    Write();
    step_ = 0;
    what_ = what;
    outer_.clear();
}

void History::BeginInner(const std::string& what)
{
    if (outer_.empty())
        outer_ = what_;
    Write();
    step_ = 0;
    what_ = what;
}

void History::EndInner()
{
    if (!outer_.empty())
        Begin(std::string(outer_));
}

void History::End()
{
    step_ = 0;
    committedStep_ = 0;
    what_ = kUnnamed;
    outer_.clear();
}

/// The number of the step at hand. Another program may have made one after its first part.
std::int64_t History::OpenStep()
{
    store_.Provide();
    if (step_ != 0) {
        const std::optional<Step> newest = store_.Newest();
        if (newest && newest->number == step_)
            return step_;
    }
    return store_.Add({0, now_().ToIso(), what_, 0, false, program_});
}

/// Whether queries can reach the identities of all rows that were written. Rows without identities
/// are noted under any number, so that nothing of them is right but the name of their table.
bool History::CanBePutBack()
{
    return std::ranges::all_of(log_.Tables(), [this](const ChangeLog::Table& table) {
        const TableShape& shape = shapes_.Of(table.name);
        return !shape.identity.empty() && static_cast<int>(shape.columns.size()) == table.columns;
    });
}

std::string History::Packed(StepWriter& writer)
{
    log_.Visit(writer);
    std::string bytes = writer.Finish();
    log_.Clear();
    return bytes;
}

/// Stores what was noted. Rows must not become durable without their step: if it cannot be stored,
/// the whole group is given up.
void History::Write()
{
    if (log_.Empty())
        return;
    changed_ = true;
    const Own own(writing_);
    try {
        Store();
    } catch (...) {
        connection_->Internals().GiveUp();
        throw;
    }
}

/// How many rows of the bytes are in earlier parts of the step at hand.
std::int64_t History::RowsKnown(std::string_view bytes)
{
    try {
        return KnownRows(store_.Parts(step_), bytes);
    } catch (const DamagedStep&) {
        return 0;
    } catch (const packed::BrokenBytes&) {
        return 0;
    }
}

void History::Store()
{
    // Another program may have changed tables since the last group.
    shapes_.Forget();
    if (!CanBePutBack()) {
        log_.Clear();
        store_.End(now_().ToIso());
        step_ = 0;
        return;
    }
    StepWriter writer(shapes_);
    const std::string bytes = Packed(writer);
    // Bookkeeping alone makes no step, but belongs to the one that the command has begun.
    if (writer.Rows() == 0 || (writer.RowsOfBook() == 0 && step_ == 0))
        return;
    std::int64_t rows = writer.Rows();
    const std::int64_t before = step_;
    step_ = OpenStep();
    if (step_ == before)
        rows -= RowsKnown(bytes);
    store_.AppendPart(step_, bytes, rows);
    store_.KeepRoom();
}

HistoryOutcome History::Undo(std::int64_t most)
{
    return Apply(most, Way::Undo);
}

HistoryOutcome History::Redo(std::int64_t most)
{
    return Apply(most, Way::Redo);
}

HistoryOutcome History::Apply(std::int64_t most, Way way)
{
    connection_->Lock();
    Write();
    step_ = 0;
    HistoryOutcome outcome;
    if (!store_.Exists())
        return outcome;
    shapes_.Forget();
    const Own own(writing_);
    store_.Provide();
    const std::string savepoint = StepApplier::kSavepoint;
    database_->Run("SAVEPOINT " + savepoint);
    try {
        for (; most > 0; --most) {
            const auto step = way == Way::Undo ? store_.NextToUndo() : store_.NextToRedo();
            if (!step)
                break;
            Apply(*step, way, outcome);
        }
    } catch (...) {
        log_.Clear();
        if (database_->InTransaction())
            database_->Run("ROLLBACK TO " + savepoint + "; RELEASE " + savepoint);
        throw;
    }
    database_->Run("RELEASE " + savepoint);
    return outcome;
}

void History::Apply(const Step& step, Way way, HistoryOutcome& outcome)
{
    const bool undo = way == Way::Undo;
    StepApplier applier(*database_, shapes_, log_);
    try {
        const std::vector<std::string> parts = store_.Parts(step.number);
        writing_ = false;
        for (auto part = parts.rbegin(); part != parts.rend(); ++part)
            applier.PutBack(*part);
        writing_ = true;
    } catch (const HistoryRefusal& refusal) {
        throw HistoryRefusal(Sentence(step, undo, refusal.what()));
    } catch (const DamagedStep&) {
        throw HistoryRefusal(Sentence(step, undo, Damaged(step.number)));
    } catch (const packed::BrokenBytes&) {
        throw HistoryRefusal(Sentence(step, undo, Damaged(step.number)));
    }
    changed_ = true;
    StepWriter writer(shapes_);
    store_.Replace(step.number, Packed(writer), undo);
    outcome.steps.push_back(step);
    outcome.steps.back().undone = undo;
    outcome.touched = applier.Touched();
}

}  // namespace clb
