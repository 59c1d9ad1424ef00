#pragma once
#include <optional>
#include <string>

namespace clb {

/// Why the last daily backup was not made, as the user is told.
struct BackupFailure {
    bool damaged = false;  ///< the database itself is damaged
    std::string lastGood;  ///< name of the newest copy that is sound; empty: there is none
    std::string reason;    ///< a sentence

    /// The day of the last good copy, "2026-11-20"; empty: there is none.
    std::string Day() const { return lastGood.substr(0, 10); }
    /// Two sentences: when the last good copy was made, and the reason.
    std::string Text() const;

    /// As three lines, for a file or another program, and back. Nothing when they are not ours.
    std::string Lines() const;
    static std::optional<BackupFailure> FromLines(const std::string& lines);

    bool operator==(const BackupFailure&) const = default;
};

}  // namespace clb
