#pragma once
#include "data/NoticedBalances.h"
#include "import/LeftOut.h"

#include <cstdint>
#include <string>
#include <vector>

namespace clb {

/// What became of one statement file.
struct ImportedFile {
    std::string file;
    std::int32_t added = 0;
    std::int32_t skipped = 0;     ///< duplicates
    bool refused = false;         ///< a message was told, or it went wrong in one of these ways:
    bool failed = false;          ///< an error ended the command
    bool accountMissing = false;  ///< its account is not known and the user's words name none
    std::string told;             ///< what the program said, in lines
    /// Balances that did not fit their rows before the import, which stored them anew.
    std::vector<OddBalance> balances;
    std::string backup;  ///< the copy of the database that was made because of them
    LeftOut leftOut;
    std::string
        whole;  ///< where the lines that the repair of line ends dropped still are, if known
};

/// What an import of files did. Results go to standard output; so do messages and warnings where
/// they stand in a table, else they go to standard error.
class ImportReport {
public:
    explicit ImportReport(bool dryRun) : dryRun_(dryRun) {}

    void Add(ImportedFile file) { files_.push_back(std::move(file)); }
    bool AnyRefused() const;
    /// The one file, in a sentence.
    void PrintOne(bool json) const;
    /// All files, in a table with their sums.
    void PrintAll(bool json) const;

private:
    void PrintTable() const;

    bool dryRun_;
    std::vector<ImportedFile> files_;
};

}  // namespace clb
