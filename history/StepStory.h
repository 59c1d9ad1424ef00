// What the rows of a step were, and what they became.
#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/storage/Catalogue.h"
#include "engine/storage/Database.h"
#include "history/CellValue.h"
#include "history/RowName.h"
#include "history/StepStore.h"
#include "history/TableShape.h"

namespace clb {

/// A row before and after a step, with all its cells.
struct RowStory {
    std::string table;
    std::int64_t row = 0;            ///< identity
    std::optional<NamedValues> was;  ///< nothing: it was not there
    std::optional<NamedValues> is;   ///< nothing: it was no longer there
};

/// Works out the rows of a step from what they are now and from the steps between then and now. A
/// row of the program's bookkeeping may have changed without a step: it is shown as if it had
/// changed in the step before.
class StepStoryteller {
public:
    /// All borrowed.
    StepStoryteller(Database& database, TableShapes& shapes, StepStore& store)
        : database_(&database), shapes_(&shapes), store_(&store), catalogue_(database)
    {
    }

    /// The first rows of the step, at most so many. Throws EngineError, and DamagedStep if it is
    /// damaged or one that lies between it and the present.
    std::vector<RowStory> Of(const Step& step, std::size_t most);

private:
    using Cells = std::optional<std::vector<StoredCell>>;
    using Place = std::pair<std::string, std::int64_t>;

    void FindRows(std::int64_t step, const std::vector<std::string>& parts, std::size_t most);
    [[nodiscard]] std::vector<std::int64_t> StepsBetween(const Step& step) const;
    Cells Present(const Place& place);
    void GoThrough(std::int64_t step, const std::vector<std::string>& parts);
    void GoThrough(const std::vector<std::string>& parts);
    std::optional<NamedValues> Named(const std::string& table, const Cells& cells);

    Database* database_;
    TableShapes* shapes_;
    StepStore* store_;
    Catalogue catalogue_;
    std::map<Place, Cells> rows_;
    std::vector<Place> order_;
};

}  // namespace clb
