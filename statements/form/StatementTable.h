// The columns of a file that is a table, for a user who chooses among them.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

namespace clb {

/// What the columns of a table hold, as the file would be read. Columns are counted from 0. A role
/// without columns is one that no column has.
struct StatementTable {
    struct Column {
        std::string name;    ///< in the header row; empty if it has none there
        std::string sample;  ///< the first cell that holds something; empty if none does
    };
    using Columns = std::vector<std::size_t>;

    std::vector<Column> columns;
    Columns date;
    Columns amount;  ///< amounts of both signs
    Columns in;
    Columns out;
    Columns name;
    Columns text;
    Columns balance;
    bool inverted = false;  ///< a positive amount goes out
};

}  // namespace clb
