// Puts rows back to what they were before a step.
#pragma once
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "engine/storage/Database.h"
#include "history/ChangeLog.h"
#include "history/RowName.h"
#include "history/StepBytes.h"
#include "history/TableShape.h"

namespace clb {

/// A step cannot be undone or redone; says why, in a sentence that names the row. A byte 0 in a
/// text is written as "\0", because it would end the sentence.
class HistoryRefusal : public std::runtime_error {
public:
    explicit HistoryRefusal(const std::string& why);
};

/// A row that a step has touched.
struct TouchedRow {
    std::string table;
    std::int64_t row = 0;    ///< identity
    bool came = false;       ///< it was not there before
    NamedValues cells = {};  ///< of a row that is gone; empty: it is there
};

/// Puts back the rows of one part of a step, if each of them stands as the part left it. A row of
/// the program's bookkeeping that does not, or whose table has other columns by now, is left out.
/// Runs in the pending group, inside kSavepoint; triggers are off meanwhile. After an error the
/// group must be taken back to the savepoint.
class StepApplier {
public:
    static constexpr const char* kSavepoint = "CvApply";

    /// All borrowed. log is the one that notes the changes of the database.
    StepApplier(Database& database, TableShapes& shapes, ChangeLog& log)
        : database_(&database), shapes_(&shapes), log_(&log)
    {
    }

    /// Throws HistoryRefusal if a row is not what the part left, EngineError, and
    /// packed::BrokenBytes.
    void PutBack(std::string_view part);
    /// The rows that were put back, a few of each table. Rows of a table that are gone come first.
    [[nodiscard]] const std::vector<TouchedRow>& Touched() const { return touched_; }

private:
    enum class Pass { Remove, Write, Insert };

    void PutBack(std::string_view part, Pass pass);
    void PutBack(const TableShape& shape, const RowChanged& row, Pass pass);
    static bool IsThere(const TableShape& shape, const StepReader& reader);
    bool Stands(const TableShape& shape, const RowChanged& row);
    [[noreturn]] void Refuse(const TableShape& shape, const RowChanged& row, bool stands = false);
    NamedValues Stored(const TableShape& shape, std::int64_t row);
    void Run(const TableShape& shape, const RowChanged& row, Query& query);
    Query& Removal(const TableShape& shape);
    Query& Writing(const TableShape& shape, const RowChanged& row);
    Query& Insertion(const TableShape& shape, const RowChanged& row);
    void Touch(const TableShape& shape, const RowChanged& row, Pass pass);

    Database* database_;
    TableShapes* shapes_;
    ChangeLog* log_;
    std::map<std::string, Query> queries_;  // by their text
    std::vector<TouchedRow> touched_;
};

}  // namespace clb
