#include "tests/crash/TableDump.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <set>
#include <stdexcept>

#include "history/Bookkeeping.h"
#include "history/StepStore.h"
#include "tests/crash/FixedMoment.h"

namespace clb {
namespace {

struct Close {
    void operator()(sqlite3* file) const { sqlite3_close(file); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using File = std::unique_ptr<sqlite3, Close>;

/// Writes a value with its type, so that 1, 1.0 and "1" differ.
std::string Cell(sqlite3_stmt* row, int column)
{
    switch (sqlite3_column_type(row, column)) {
        case SQLITE_INTEGER: return "i" + std::to_string(sqlite3_column_int64(row, column));
        case SQLITE_FLOAT: {
            std::array<char, 40> text{};
            std::snprintf(text.data(), text.size(), "f%a", sqlite3_column_double(row, column));
            return text.data();
        }
        case SQLITE_NULL: return "null";
        default: break;
    }
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(row, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
    return "t" + std::to_string(size) + ":" + std::string(bytes ? bytes : "", size);
}

void Read(sqlite3* file, const std::string& sql, const std::string& head,
          std::vector<std::string>& lines)
{
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(file, sql.c_str(), -1, &raw, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(file));
    const std::unique_ptr<sqlite3_stmt, Close> statement(raw);
    int code = sqlite3_step(raw);
    for (; code == SQLITE_ROW; code = sqlite3_step(raw)) {
        std::string line = head;
        for (int column = 0; column < sqlite3_column_count(raw); ++column)
            line += "|" + Cell(raw, column);
        lines.push_back(WithoutTicks(std::move(line)));
    }
    if (code != SQLITE_DONE)
        throw std::runtime_error(sqlite3_errmsg(file));
}

std::vector<std::string> Tables(sqlite3* file)
{
    std::vector<std::string> lines;
    Read(file, "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name", "", lines);
    for (std::string& line : lines)
        line.erase(0, line.find(':') + 1);
    return lines;
}

/// SELECT of the rows in a fixed order. Of the history's own tables it leaves out what differs from
/// run to run: the number of the process, and the recorded changes with their hashes, because they
/// depend on the ticks.
std::string SelectOf(const std::string& table)
{
    if (table == "CvStep")
        return "SELECT Step, At, What, \"Rows\", Undone FROM CvStep ORDER BY Step";
    if (table == "CvChange")
        return "SELECT Step, Part FROM CvChange ORDER BY Step, Part";
    return "SELECT rowid, * FROM \"" + table + "\" ORDER BY rowid";
}

bool IsRow(const std::string& line)
{
    return !line.starts_with("sqlite_");
}

}  // namespace

TableDump DumpOf(const std::string& path)
{
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE, "unix");
    const File file(raw);
    if (code != SQLITE_OK)
        throw std::runtime_error("cannot open " + path);
    TableDump dump;
    Read(raw, "SELECT type, name, tbl_name, sql FROM sqlite_master ORDER BY type, name",
         "sqlite_master", dump.lines);
    for (const std::string& table : Tables(raw))
        Read(raw, SelectOf(table), table, dump.lines);
    return dump;
}

TableDump WithoutHistory(TableDump dump)
{
    std::erase_if(dump.lines, [](const std::string& line) {
        const std::string table = line.substr(0, line.find('|'));
        return StepStore::Owns(table) || IsBookkeeping(table) || table == "sqlite_sequence" ||
               (line.starts_with("sqlite_master|") && line.find(":Cv") != std::string::npos);
    });
    return dump;
}

std::string WithoutTicks(std::string text)
{
    const std::string moment = std::string(kMomentInRows) + " ";
    for (std::size_t at = text.find(moment); at != std::string::npos; at = text.find(moment, at)) {
        at += moment.size();
        // The tick and, if the file before was read in the same tick, the file's number in it.
        text.erase(at, std::min(text.find_first_not_of("0123456789 ()", at), text.size()) - at);
    }
    // The length is before it, and the digits change the length.
    for (std::size_t at = text.find(":" + moment); at != std::string::npos;
         at = text.find(":" + moment, at + 1)) {
        const std::size_t bar = text.rfind('|', at);
        if (bar != std::string::npos && text[bar + 1] == 't') {
            text.erase(bar + 2, at - bar - 2);
            at = bar + 2;
        }
    }
    return text;
}

std::string WhyNoMixture(const TableDump& before, const TableDump& after, const TableDump& found)
{
    const std::multiset<std::string> old(before.lines.begin(), before.lines.end());
    const std::multiset<std::string> fresh(after.lines.begin(), after.lines.end());
    const std::multiset<std::string> there(found.lines.begin(), found.lines.end());
    for (const std::string& line : there)
        if (IsRow(line) && !old.contains(line) && !fresh.contains(line))
            return "a row that never was: " + line;
    for (const std::string& line : old)
        if (IsRow(line) && fresh.contains(line) && !there.contains(line))
            return "a row is missing: " + line;
    return "";
}

std::string Difference(const TableDump& expected, const TableDump& found)
{
    const std::multiset<std::string> left(expected.lines.begin(), expected.lines.end());
    const std::multiset<std::string> right(found.lines.begin(), found.lines.end());
    std::string text;
    for (const std::string& line : left)
        if (!right.contains(line))
            text += "- " + line + "\n";
    for (const std::string& line : right)
        if (!left.contains(line))
            text += "+ " + line + "\n";
    return text.substr(0, 3000);
}

}  // namespace clb
