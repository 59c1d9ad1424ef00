#pragma once
#include <optional>
#include <string>
#include <vector>

#include "base/Date.h"
#include "data/BackupFailure.h"
#include "data/BackupFolder.h"

namespace clb {

/// The copies of a program folder's database, in its folder db/backup: one a day,
/// "clb-2026-11-21.mdb", and those made on purpose, with more after the day
/// ("clb-2026-11-21-153012.mdb"). Each is written under another name, checked, and only then gets
/// its own, which no copy had before it; then file and name are on the disk. Files and folder are
/// for the user alone. Several programs may make copies at the same time.
///
/// Whatever fails is an EngineError and leaves the database and all other copies as they were.
class Backups {
public:
    explicit Backups(const std::string& programFolder);

    /// Whether the day has its copy, and that copy was checked and has not changed since. Cheap.
    bool HasDay(const Date& day) const;
    /// Makes the day's copy unless there is a sound one, then removes old daily copies (see
    /// BackupFolder::DropOld). What has the day's name but is not sound is put aside. Returns why
    /// it failed, which is also kept for KeptFailure() where the folder can be written.
    std::optional<BackupFailure> Daily(const Date& now);
    /// Makes a copy on purpose and returns its path: the day's, or one with the time when the day
    /// has its own. If another program makes one at the same time, and the database has not changed
    /// since, it is that one.
    std::string Make(const Date& now);
    /// Makes a copy before something that may spoil the database, and returns its path:
    /// Before("repair", now) makes "clb-2026-11-22-before-repair.mdb", numbered when that name is
    /// taken.
    std::string Before(const std::string& what, const Date& now);
    /// Makes a copy when the next opening of the database will change its schema; at most one a
    /// day. A copy that fails is no reason not to open it: returns why it failed, as a sentence.
    /// Nothing when it was made or not needed, and when the database cannot be opened. Throws
    /// EngineError (Locked) when another program holds the database for too long, and
    /// std::bad_alloc: another try may well make it.
    std::optional<std::string> BeforeUpgrade(const Date& now);
    /// Copies the database to a file outside, which must not be there yet.
    void CopyTo(const std::string& file) const;

    /// Why the last daily copy was not made, as it was kept; nothing once a copy was made. Cheap.
    std::optional<BackupFailure> KeptFailure() const { return folder_.Failure(); }
    /// The same, or else what would keep one from being made now. Made to be called seldom.
    std::optional<BackupFailure> Failure() const;
    /// Keeps the failure, for a program whose helper could not.
    void Keep(const BackupFailure& failure) const { folder_.Failure(failure); }
    /// Name of the newest copy that is sound, as far as a whole reading shows; copies of replaced
    /// databases are left out. Empty when there is none. Reads whole files.
    std::string LastGood() const;

    /// What stands in the names of the copies, in the order in which they were made: "2026-11-21",
    /// "2026-11-21-153012".
    std::vector<std::string> Names() const { return folder_.Names(); }
    /// The copy of that name.
    std::string PathOf(const std::string& name) const { return folder_.PathOf(name); }
    /// Puts a copy, which is checked first, in the database's place. The database so far is kept as
    /// one more copy, whose path is returned; nothing when there was none. Refuses a file that is
    /// not a whole book, saying what is missing, and while another program has the database open.
    std::optional<std::string> Restore(const std::string& file, const Date& now);

private:
    bool IsSound(const std::string& name) const;
    std::optional<std::string> MadeMeanwhile(const std::vector<std::string>& before) const;
    void MakeDaily(const Date& now);
    void Take(const std::string& name) const;

    std::string database_;
    BackupFolder folder_;
};

}  // namespace clb
