// What an import of files did, and how it is printed.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "cli/ImportFiles.h"
#include "data/NoticedBalances.h"
#include "intake/WideImport.h"

namespace clb {

/// A row for the list that --show prints.
struct ShownRow {
    StatementRow row;
    std::string identifier;
    RowState state = RowState::Read;
};

/// The result of importing one statement.
struct ImportedFile {
    ImportedStatement statement{};
    bool failed = false;          ///< an error ended the command
    bool refused = false;         ///< a message refused it
    bool accountMissing = false;  ///< its account is unknown and the options name none
    std::string messages{};       ///< what the program printed, in lines
    /// Balances that did not match their rows before the import recomputed them.
    std::vector<OddBalance> balances{};
    std::string backup{};  ///< the copy of the database that was made because of them
    std::vector<ShownRow> rows{};

    [[nodiscard]] std::int64_t Added() const;
    [[nodiscard]] std::int64_t Known() const;
    /// Whether rows could not be read and so were left out.
    [[nodiscard]] bool Unreadable() const;
    /// Whether it was not imported, or not as a whole.
    [[nodiscard]] bool Refused() const;
};

/// What an import of files did. Prints results to standard output. Messages and warnings go into
/// the table if there is one, else to standard error.
class ImportReport {
public:
    ImportReport(bool dryRun, bool show) : dryRun_(dryRun), show_(show) {}

    void Add(ImportedFile file) { files_.push_back(std::move(file)); }
    /// Lists a file that is no statement.
    void AddOther(OtherFile other) { others_.push_back(std::move(other)); }
    [[nodiscard]] std::size_t Statements() const { return files_.size(); }
    [[nodiscard]] bool AnyRefused() const;
    /// Prints the only statement's result as a sentence.
    void PrintOne(bool json) const;
    /// Prints all files as a table with totals.
    void PrintAll(bool json) const;

private:
    void PrintTable() const;

    bool dryRun_;
    bool show_;
    std::vector<ImportedFile> files_;
    std::vector<OtherFile> others_;
};

}  // namespace clb
