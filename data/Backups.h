#pragma once
#include <optional>
#include <string>
#include <vector>

#include "base/Date.h"

namespace clb {

/// The copies of a program folder's database, in its folder db/backup: one a day,
/// "clb-2026-11-21.mdb", and those made on purpose, with more behind the day
/// ("clb-2026-11-21-153012.mdb"). Each is written under another name, checked, and only then gets
/// its own. Files and folder are for the user alone.
///
/// Whatever fails is an EngineError and leaves the database and all other copies as they were.
class Backups {
public:
    explicit Backups(const std::string& programFolder);

    /// Whether the day has its copy.
    bool HasDay(const Date& day) const;
    /// Makes the day's copy unless it is there, then removes daily copies: the ten newest stay, and
    /// the first of each month. Copies made on purpose are not touched.
    void Daily(const Date& now);
    /// Makes a copy on purpose and returns its path: the day's, or one with the time when the day
    /// has its own.
    std::string Make(const Date& now);
    /// Makes a copy when the next opening of the database will change its schema; at most one a
    /// day. Never fails: no copy is no reason not to open it.
    void BeforeUpgrade(const Date& now);
    /// Copies the database to a file outside, which must not be there yet.
    void CopyTo(const std::string& file) const;

    /// What stands in the names of the copies, oldest first: "2026-11-21", "2026-11-21-153012".
    std::vector<std::string> Names() const;
    /// The copy of that name.
    std::string PathOf(const std::string& name) const;
    /// Puts a copy, which is checked first, in the database's place. The database so far is kept as
    /// one more copy, whose path is returned; nothing when there was none. Refuses while another
    /// program has the database open.
    std::optional<std::string> Restore(const std::string& file, const Date& now);

private:
    void MakeFolder() const;
    std::string FreeName(const std::string& name) const;
    void DropOld() const;
    void DropUnfinished() const;

    std::string database_;
    std::string folder_;
};

}  // namespace clb
