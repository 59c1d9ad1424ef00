// Reads and compares everything that a database file holds.
#pragma once
#include <string>
#include <vector>

namespace clb {

/// Everything that a database file holds: one line for each object of the schema and for each row,
/// with every column in full, in the order of the tables and rows.
struct TableDump {
    std::vector<std::string> lines;

    bool operator==(const TableDump&) const = default;
};

/// Reads the file through the ordinary file system, without the program. A journal that an ended
/// program left is rolled back first. Throws std::runtime_error if the file cannot be read.
TableDump DumpOf(const std::string& path);

/// Leaves out the history's rows and what no undo takes back: that added tables are there, the
/// program's bookkeeping, and the numbers last given to rows.
TableDump WithoutHistory(TableDump dump);

/// Removes the numbers that the tick count gives to a QIF import, because they differ from run to
/// run.
std::string WithoutTicks(std::string text);

/// Why the found lines are not a mixture of whole rows: a row is in neither dump, or a row that is
/// in both was not found. Empty if they are a mixture.
std::string WhyNoMixture(const TableDump& before, const TableDump& after, const TableDump& found);

/// The lines that only one of the two has, for messages.
std::string Difference(const TableDump& expected, const TableDump& found);

}  // namespace clb
