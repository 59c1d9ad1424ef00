// Adds transactions and budget lines without the program.
#pragma once
#include <cstdint>
#include <string_view>

#include "bench/Bare.h"

namespace clb {

/// A transaction of a statement. Texts are not copied and not null.
struct BareTransaction {
    std::string_view account;
    std::string_view identifier;
    std::string_view check;
    std::int64_t year = 0;
    std::int64_t period = 0;
    std::string_view date;
    std::int64_t amount = 0;  ///< in 1/10000 units
    std::string_view description;
    std::string_view memo;
    std::string_view category;
};

/// Adds the rows of an import, with statements prepared once.
class BareRows {
public:
    /// Borrows the database.
    explicit BareRows(BareDatabase& database);

    /// Adds it with the next number. Reads the largest number each time, as the program must.
    void Add(const BareTransaction& transaction);
    /// Adds the category's line in the group to the month's budget, unless the line exists.
    void ProvideBudgetLine(std::int64_t year, std::int64_t period, std::string_view category,
                           std::string_view group);
    /// Recomputes and stores the balance of every account.
    void Rebalance();

private:
    BareDatabase& database_;
    BareStatement largest_;
    BareStatement insert_;
    BareStatement hasLine_;
    BareStatement addLine_;
};

}  // namespace clb
