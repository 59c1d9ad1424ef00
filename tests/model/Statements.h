// Generates small statement files.
#pragma once
#include <string>
#include <utility>
#include <vector>

namespace clb::model {

/// One record of a statement file, as texts. Of the pairs, the first is what the file contains and
/// the second what it means; an empty meaning says that it cannot be read.
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

/// A small statement file: markup with an account number, or records with one letter for each line.
struct Statement {
    bool records = false;    ///< the second form
    bool bareLines = false;  ///< lines end with a line feed alone
    std::string account;
    std::vector<StatementRecord> entries;
    std::vector<StatementCategory> categories;

    /// Generates a statement; the same seed gives the same one. It has few names, identifiers and
    /// days, so duplicates are likely.
    static Statement Markup(int seed);
    static Statement Records(int seed);
    [[nodiscard]] std::string Text() const;
};

}  // namespace clb::model
