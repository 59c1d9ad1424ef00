// Checks what a database file declares.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "check/CheckFindings.h"
#include "engine/rows/RawSql.h"

namespace clb {

/// Compares what a database file declares (tables, columns, indexes, triggers, views) with the
/// delivered empty database.
class CheckSchema {
public:
    /// Borrows the database.
    explicit CheckSchema(RawSql& raw);

    /// Returns the schema version of the file; 0: none. Adds a finding if it is not a number or is
    /// older than the tables.
    std::int16_t Version(FindingList& findings);
    /// Finds missing tables and columns, and columns of another type. What the upgrade of an older
    /// file adds may be missing.
    void FindColumns(std::int16_t version, FindingList& findings);
    /// Finds missing indexes and triggers, and unique indexes, triggers and views of other
    /// programs.
    void FindHelpers(FindingList& findings);

    /// Returns the delivered declaration of a table, or null if the program has no such table.
    const TableInfo* Expected(const std::string& table) { return delivered_.Find(table); }
    /// The queries that make the missing indexes and triggers, in the storage's SQL. Call
    /// FindHelpers first.
    [[nodiscard]] const std::vector<std::string>& Missing() const { return missing_; }

private:
    struct Helper {
        std::string name;
        std::string table;
        std::string sql;
    };

    static std::vector<Helper> Helpers(RawSql& database, const std::string& condition);
    static std::string ColumnsOf(RawSql& database, const std::string& index);
    bool IsIndexed(const std::string& table, const std::string& columns);
    bool IsTaken(const std::string& name);
    void FindLostVersion(const std::string& text, FindingList& findings);
    void FindIndexes(FindingList& findings);
    void FindUniqueIndexes(const std::string& table, FindingList& findings);
    void FindTriggers(FindingList& findings);
    void FindViews(FindingList& findings);
    void CompareTable(const TableInfo& expected, std::int16_t version, FindingList& findings);

    RawSql& raw_;
    RawSql delivered_;
    std::vector<std::string> missing_;
};

/// The program's own tables, in the order of its schema.
const std::vector<std::string>& OwnTables();

}  // namespace clb
