// Generates small statement files.
#pragma once
#include <string>
#include <utility>
#include <vector>

namespace clb::model {

/// One record of a statement file. Texts as they are written; the second of the two-part ones says
/// what they mean, and an empty meaning that they cannot be read.
struct StatementRecord {
    std::pair<std::string, std::string> date;    ///< as written, and ISO
    std::pair<std::string, std::string> amount;  ///< as written, and plain decimal
    std::string name, memo, check, category, fitid;
    bool hasDate = true;
};

/// A line of a category section: group, category and the amounts that are added up.
struct StatementCategory {
    std::string group, category;
    std::vector<std::string> amounts;
};

/// A small statement file: markup with an account number, or records of one letter a line.
struct Statement {
    bool records = false;    ///< the second form
    bool bareLines = false;  ///< ended by a line feed alone
    std::string account;
    std::vector<StatementRecord> entries;
    std::vector<StatementCategory> categories;

    /// The same for the same seed. The few names, identifiers and days make duplicates likely.
    static Statement Markup(int seed);
    static Statement Records(int seed);
    [[nodiscard]] std::string Text() const;
};

}  // namespace clb::model
