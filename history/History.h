// The history of an open book: what each command has changed, and how it is taken back.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Date.h"
#include "engine/rows/Connection.h"
#include "engine/storage/ChangeWatch.h"
#include "history/ChangeLog.h"
#include "history/HistoryReader.h"
#include "history/StepApplier.h"
#include "history/StepBytes.h"

namespace clb {

/// What Undo or Redo has done.
struct HistoryOutcome {
    std::vector<Step> steps;  ///< in the order in which they were taken back or brought back
    std::vector<TouchedRow> touched;  ///< by the last of them, some rows
};

/// Records every row that queries of a connection change, in the same commit: one step a
/// command, however many queries and commits it takes. Steps can be undone, the newest first,
/// and redone until a new command changes something. What changes only bookkeeping (see
/// history/Bookkeeping.h) is no step, and leaves what can be redone. Programs that write to the
/// same file have one history.
///
/// Rows are put back exactly, their identities included, and only if they stand as the step left
/// them.
class History : public IChangeWatch, public HistoryReader {
public:
    using Clock = std::function<Date()>;
    /// The connection is borrowed, open, and outlives the history. program names the running
    /// program: steps of others can be told apart by it. Throws EngineError.
    History(Connection& connection, Clock now, std::string program);
    ~History() override;
    History(const History&) = delete;
    History& operator=(const History&) = delete;

    /// What is changed from now on is a step of its own with this name. Throws EngineError.
    void Begin(const std::string& what);
    /// What is changed from now on is a step of its own inside the command, such as the saving of a
    /// row before the command goes on; EndInner ends it. Throw EngineError.
    void BeginInner(const std::string& what);
    void EndInner();
    /// The command has ended and is settled: the next change belongs to another step.
    void End();

    /// While it lives, queries are ones that a person has sent: one that makes, changes or removes
    /// a table or an index always ends the history. The program's own queries end nothing if the
    /// table is one of its additions, whose names begin with Cv.
    class Sent {
    public:
        explicit Sent(History& history) : history_(&history) { history_->sent_ = true; }
        ~Sent() { history_->sent_ = false; }
        Sent(const Sent&) = delete;
        Sent& operator=(const Sent&) = delete;

    private:
        History* history_;
    };

    /// Keeps other programs from writing, and so from making steps, until the group is settled.
    /// Throws EngineError if another one is writing.
    void Lock() { connection_->Lock(); }
    /// Whether another program has made the step since this history was opened.
    [[nodiscard]] bool IsOfAnother(const Step& step) const
    {
        return step.number > newestAtOpening_ && step.program != program_;
    }

    /// Takes back the newest steps in the pending group, at most so many. Throws HistoryRefusal,
    /// with nothing changed, and EngineError.
    HistoryOutcome Undo(std::int64_t most);
    /// Brings back what was undone last, in the same way.
    HistoryOutcome Redo(std::int64_t most);
    /// Whether steps were made, undone or lost here since ChangesShown was called.
    [[nodiscard]] bool Changed() const { return changed_; }
    void ChangesShown() { changed_ = false; }
    [[nodiscard]] const std::string& Program() const { return program_; }

    // IChangeWatch
    void Changing(const ChangingRow& row) override;
    [[nodiscard]] std::size_t Seen() const override { return log_.Size(); }
    void TakenBackTo(std::size_t seen) noexcept override { log_.CutTo(seen); }
    void TableChanged(std::string_view table) override;
    void BeforeCommit() override;
    void Committed() noexcept override;
    void Lost() noexcept override;

private:
    enum class Way { Undo, Redo };

    HistoryOutcome Apply(std::int64_t most, Way way);
    void Apply(const Step& step, Way way, HistoryOutcome& outcome);
    void Write();
    void Store();
    bool CanBePutBack();
    std::int64_t RowsKnown(std::string_view bytes);
    std::string Packed(StepWriter& writer);
    std::int64_t OpenStep();

    Connection* connection_;
    Clock now_;
    std::string program_;
    ChangeLog log_;
    bool changed_ = true;
    bool writing_ = false;            ///< the history's own tables
    bool sent_ = false;               ///< the query at hand is a person's
    std::string what_;                ///< name of the step at hand
    std::string outer_;               ///< name of the command around it; empty: there is none
    std::int64_t step_ = 0;           ///< its number; 0: nothing of it is stored
    std::int64_t committedStep_ = 0;  ///< step_ as of the last commit
    std::int64_t committedNext_ = 0;  ///< and as of the one that is under way
    std::int64_t newestAtOpening_ = 0;
};

}  // namespace clb
