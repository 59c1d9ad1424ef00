// The steps of a book, to be read.
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/storage/Database.h"
#include "history/StepStore.h"
#include "history/StepStory.h"
#include "history/TableShape.h"

namespace clb {

/// Reads what the history of a book contains. Writes nothing, so the book may be one that cannot be
/// written.
class HistoryReader {
public:
    /// The database is borrowed and open.
    explicit HistoryReader(Database& database)
        : database_(&database), shapes_(database), store_(database)
    {
    }

    /// What Undo would take back and Redo bring back next; nothing if there is none. Throw
    /// EngineError.
    std::optional<Step> NextToUndo();
    std::optional<Step> NextToRedo();
    /// Hands out the steps, the newest first, until visit returns false. Throws EngineError.
    void Visit(const std::function<bool(const Step&)>& visit);
    /// The step with this number; nothing if there is none. Throws EngineError.
    std::optional<Step> Find(std::int64_t number);
    /// The first rows of a step, at most so many, before and after it. Throws EngineError, and
    /// HistoryRefusal if the record of the step, or of one after it, is damaged.
    std::vector<RowStory> Rows(const Step& step, std::size_t most);
    /// When a change of tables ended the history before; empty if none did. Throws EngineError.
    std::string EndedAt();

protected:
    Database* database_;
    TableShapes shapes_;
    StepStore store_;
};

}  // namespace clb
