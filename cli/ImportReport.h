// What an import of files did, and how it is printed.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "data/NoticedBalances.h"
#include "import/Omissions.h"

namespace clb {

/// The result of importing one statement file.
struct ImportedFile {
    std::string file;
    std::int32_t added = 0;
    std::int32_t skipped = 0;     ///< duplicates
    bool refused = false;         ///< a message refused it, or it failed in one of these ways:
    bool failed = false;          ///< an error ended the command
    bool accountMissing = false;  ///< its account is unknown and the options name none
    std::string messages;         ///< what the program printed, in lines
    /// Balances that did not match their rows before the import recomputed them.
    std::vector<OddBalance> balances;
    std::string backup;  ///< the copy of the database that was made because of them
    Omissions leftOut;
    std::string original;  ///< the file before the repair of its line ends; empty if unknown
};

/// What an import of files did. Prints results to standard output. Messages and warnings go into
/// the table if there is one, else to standard error.
class ImportReport {
public:
    explicit ImportReport(bool dryRun) : dryRun_(dryRun) {}

    void Add(ImportedFile file) { files_.push_back(std::move(file)); }
    [[nodiscard]] bool AnyRefused() const;
    /// Prints the only file's result as a sentence.
    void PrintOne(bool json) const;
    /// Prints all files as a table with totals.
    void PrintAll(bool json) const;

private:
    void PrintTable() const;

    bool dryRun_;
    std::vector<ImportedFile> files_;
};

}  // namespace clb
