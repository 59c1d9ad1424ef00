// Backups of the database.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "base/Date.h"
#include "data/BackupFailure.h"
#include "data/BackupFolder.h"

namespace clb {

/// The copies of a program folder's database, in its folder db/backup. There is one a day,
/// "clb-2026-11-21.mdb". Copies made on purpose have more text after the day
/// ("clb-2026-11-21-153012.mdb"). Each copy is written under a temporary name and checked. Only
/// then is it renamed to its own name, which no copy had before, and synchronised to the disk. Only
/// the user can read the files and the folder. Several programs may make copies at the same time.
///
/// Every failure is an EngineError and leaves the database and all other copies as they were.
class Backups {
public:
    explicit Backups(const std::string& programFolder);

    /// Whether the day has a copy that was checked and has not changed since. Cheap.
    [[nodiscard]] bool HasDay(const Date& day) const;
    /// Makes the day's copy unless there is a sound one, then removes old daily copies (see
    /// BackupFolder::DropOld). A damaged file with the day's name is put aside. Returns why it
    /// failed; KeptFailure() then returns the same, if the folder can be written.
    std::optional<BackupFailure> Daily(const Date& now);
    /// Makes a copy on purpose and returns its path: the day's copy, or one with the time in its
    /// name if the day has one already. If another program makes a copy at the same time and the
    /// database has not changed since, returns that copy.
    std::string Make(const Date& now);
    /// Makes a copy before something that may spoil the database, and returns its path:
    /// Before("repair", now) makes "clb-2026-11-22-before-repair.mdb", with a number if that name
    /// is taken.
    std::string Before(const std::string& what, const Date& now);
    /// Makes a copy if the next opening of the database will change its schema; at most one a day.
    /// A failure does not prevent the opening: it is returned as a sentence. Returns nothing if the
    /// copy was made or not needed, or if the database cannot be opened. Throws EngineError
    /// (Locked) if another program holds the database for too long, and std::bad_alloc: another try
    /// may succeed.
    std::optional<std::string> BeforeUpgrade(const Date& now);
    /// Copies the database to a file elsewhere, which must not exist yet.
    void CopyTo(const std::string& file) const;

    /// Why the last daily copy was not made, as it was kept; nothing once a copy was made. Cheap.
    [[nodiscard]] std::optional<BackupFailure> KeptFailure() const { return folder_.Failure(); }
    /// The same or, if no failure was kept, what prevents a copy from being made now. Slow: not for
    /// frequent calls.
    [[nodiscard]] std::optional<BackupFailure> Failure() const;
    /// Records the failure on behalf of a helper process that could not.
    void Keep(const BackupFailure& failure) const { folder_.Failure(failure); }
    /// Name of the newest copy that is sound; it reads whole files to find out. Copies of replaced
    /// databases do not count. Empty if there is none.
    [[nodiscard]] std::string LastGood() const;

    /// The names of the copies, in the order in which they were made: "2026-11-21",
    /// "2026-11-21-153012".
    [[nodiscard]] std::vector<std::string> Names() const { return folder_.Names(); }
    /// The copy of that name.
    [[nodiscard]] std::string PathOf(const std::string& name) const { return folder_.PathOf(name); }
    /// Checks a copy and puts it in the database's place. The replaced database is kept as one more
    /// copy, whose path is returned; nothing if there was none. Throws EngineError for a file that
    /// is not a whole book, saying what is missing, and while another program has the database
    /// open.
    std::optional<std::string> Restore(const std::string& file, const Date& now);

private:
    [[nodiscard]] bool IsSound(const std::string& name) const;
    [[nodiscard]] std::optional<std::string> MadeMeanwhile(
        const std::vector<std::string>& before) const;
    void MakeDaily(const Date& now);
    void Take(const std::string& name) const;

    std::string database_;
    BackupFolder folder_;
};

}  // namespace clb
