// Why a daily backup failed.
#pragma once
#include <optional>
#include <string>

namespace clb {

/// Why the last daily backup was not made, in the form in which the user sees it.
struct BackupFailure {
    bool damaged = false;  ///< the database itself is damaged
    std::string lastGood;  ///< name of the newest copy that is sound; empty: there is none
    std::string reason;    ///< a sentence

    /// The day of the last good copy, "2026-11-20"; empty: there is none.
    [[nodiscard]] std::string Day() const { return lastGood.substr(0, 10); }
    /// Two sentences: when the last good copy was made, and the reason.
    [[nodiscard]] std::string Text() const;

    /// Converts to three lines, for a file or another program, and back. FromLines returns nothing
    /// if Lines did not write the text.
    [[nodiscard]] std::string Lines() const;
    static std::optional<BackupFailure> FromLines(const std::string& lines);

    bool operator==(const BackupFailure&) const = default;
};

}  // namespace clb
