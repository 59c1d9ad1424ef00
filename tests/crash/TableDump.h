// Reads and compares everything that a database file holds.
#pragma once
#include <string>
#include <vector>

namespace clb {

/// Everything that a database file holds: one line for each object of the schema and each row,
/// every column to its last bit, in order of the tables and rows.
struct TableDump {
    std::vector<std::string> lines;

    bool operator==(const TableDump&) const = default;
};

/// Reads the file with the ordinary file system, past the program. A journal that an ended program
/// left is played back first. Throws std::runtime_error when the file cannot be read.
TableDump DumpOf(const std::string& path);

/// The numbers that the tick count gives to a QIF file's run differ from run to run: without them.
std::string WithoutTicks(std::string text);

/// Why the found lines are no mixture of whole rows: a row that is in neither dump, or one that is
/// in both and not found. Empty when they are one.
std::string WhyNoMixture(const TableDump& before, const TableDump& after, const TableDump& found);

/// The lines that only one of two has, for messages.
std::string Difference(const TableDump& expected, const TableDump& found);

}  // namespace clb
