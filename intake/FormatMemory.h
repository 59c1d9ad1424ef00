// What the user has said about files of the same layout before.
#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "statements/form/StatementReader.h"

namespace clb {

class clsDatabase;

/// The table CvFormat: the answers to what files leave open, by the files' shape and the account
/// that their rows went to. They are only proposals for the next file. Accounts are named by
/// Account.Sequence, which never changes. All functions throw EngineError.
class FormatMemory {
public:
    struct Remembered {
        StatementAnswers answers;
        std::string accountID;  ///< empty if the account is gone
    };

    /// Borrows the database.
    explicit FormatMemory(clsDatabase& database) : database_(database) {}

    /// What was said last about files of the shape that went to the account; if that was nothing,
    /// or the number is empty, about files of the shape for any account. shape: see
    /// IStatementReader::Shape; nothing is remembered of an empty one.
    [[nodiscard]] std::optional<Remembered> Find(const std::string& shape,
                                                 const std::string& accountID);
    /// Remembers the answers as the last ones. Makes the table unless it is there, and writes
    /// nothing if the same was said last.
    void Keep(const std::string& shape, const std::string& accountID,
              const StatementAnswers& answers);

private:
    [[nodiscard]] bool Exists();
    [[nodiscard]] std::int64_t SequenceOf(const std::string& accountID);

    clsDatabase& database_;
};

}  // namespace clb
