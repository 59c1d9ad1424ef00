// The transactions that an import has added.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Date.h"
#include "history/StepApplier.h"

namespace clb {

class clsDatabase;

/// Transactions that were added at the end of their table. An import holds the write lock, so that
/// all of them are its own.
class NewRows {
public:
    /// The identity of the last transaction of a book; 0 if it has none. Throws EngineError.
    static std::int64_t Last(clsDatabase& database);

    /// Takes those that came after this one. Throws EngineError.
    void AddAfter(clsDatabase& database, std::int64_t last);
    void Add(const NewRows& rows);
    [[nodiscard]] bool Has(std::int64_t identity) const;

    [[nodiscard]] bool Any() const { return !ranges_.empty(); }
    /// The months of those that are still there: "March to April 2026"; empty if there are none.
    /// Throws EngineError.
    [[nodiscard]] std::string Months(clsDatabase& database) const;
    /// The latest by month and day that is still there. Throws EngineError.
    [[nodiscard]] std::optional<TouchedRow> Latest(clsDatabase& database) const;

private:
    struct Range {
        std::int64_t first = 0;
        std::int64_t last = 0;
    };
    [[nodiscard]] std::string Condition() const;

    std::vector<Range> ranges_;
};

}  // namespace clb
