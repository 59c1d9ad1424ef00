// The table of the imports that the book has seen.
#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "base/Date.h"
#include "base/Money.h"

namespace clb {

class clsDatabase;

/// One account's part of an import.
struct ImportRecord {
    std::string file;    ///< name without its folder
    std::string sha256;  ///< of the file's bytes
    Date at;
    std::string accountID;
    std::string currency;  ///< ISO 4217; empty if the file does not say
    std::int64_t read = 0;
    std::int64_t added = 0;
    std::int64_t known = 0;
    std::int64_t refused = 0;
    std::optional<Money> opening{};
    std::optional<Money> closing{};
};

/// The table CvImport. It names accounts by Account.Sequence, which never changes. All functions
/// throw EngineError.
class ImportRecords {
public:
    /// Borrows the database.
    explicit ImportRecords(clsDatabase& database) : database_(database) {}

    /// Makes the table unless it is there.
    void Add(const ImportRecord& record);
    /// The currency of the account's earlier statements; empty if none said it.
    [[nodiscard]] std::string CurrencyOf(const std::string& accountID);

private:
    [[nodiscard]] bool Exists();

    clsDatabase& database_;
};

}  // namespace clb
