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

    /// The schema version that the file names; 0: none. Adds a finding for one that is not a
    /// number, or that is older than the tables.
    std::int16_t Version(FindingList& findings);
    /// Missing tables and columns, and columns of another type. An older version's file lacks what
    /// its upgrade adds, which is not a finding.
    void FindColumns(std::int16_t version, FindingList& findings);
    /// Missing indexes and triggers, and unique indexes, triggers and views of somebody else.
    void FindHelpers(FindingList& findings);

    /// The delivered declaration of a table; null when the program has no such table.
    const TableInfo* Expected(const std::string& table) { return delivered_.Find(table); }
    /// What would make the missing indexes and triggers, in the storage's SQL; after FindHelpers.
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
