// The folder of backups: its files, their order, and which of them to remove.
#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "data/BackupFailure.h"

namespace clb {

/// The folder db/backup: the names of its copies, the order in which they were made, and which of
/// them may be removed.
///
/// Neither the names nor the times of the files show that order reliably: the clock may once have
/// been ahead, and copying the folder gives all files the same time. So the file "order" lists the
/// copies, oldest first, each with its size and time as they were when the copy was checked. A copy
/// that is not in the list (of an earlier version, or put there by hand) counts as newer than the
/// listed ones. Several such copies are ordered by their times, then by their names. Those with a
/// time in the future come first, because their clock was wrong.
///
/// The file "failed" says why the last daily backup was not made. Both files may be lost without
/// harm, and broken lines in them are skipped. A folder, pipe or link with one of these names gives
/// way to the file when it is written next; a folder is kept with ".damaged" after its name.
class BackupFolder {
public:
    explicit BackupFolder(std::string path) : path_(std::move(path)) {}

    [[nodiscard]] const std::string& Path() const { return path_; }
    /// The copy of that name: "2026-11-21" is clb-2026-11-21.mdb.
    [[nodiscard]] std::string PathOf(const std::string& name) const;
    /// The name, with a number if it is taken.
    [[nodiscard]] std::string FreeName(const std::string& name) const;
    /// Makes the folder, readable by the user only, if it does not exist. Throws EngineError.
    void Make() const;
    /// What prevents a copy of this size from being made; empty if nothing does.
    [[nodiscard]] std::string Obstacle(std::uintmax_t bytes) const;

    /// The names of all copies, oldest first.
    [[nodiscard]] std::vector<std::string> Names() const;
    /// Lists a copy that has just been made as the newest. A list that cannot be written stays as
    /// it was: the copy then still counts as newer than all listed ones.
    void Add(const std::string& name) const noexcept;
    /// Lists a copy that was found to be sound, at its place.
    void Confirm(const std::string& name) const noexcept;
    /// Whether the copy was checked and has not changed since. Cheap.
    [[nodiscard]] bool IsConfirmed(const std::string& name) const;

    /// Frees the name of a file that is not a sound copy: the file is kept with ".damaged" after
    /// its name. Does nothing if there is no such file. Throws EngineError.
    void PutAside(const std::string& name) const;
    /// Removes daily copies, except the ten newest that look whole, all that are newer than the
    /// oldest of these ten, and the first of each month. Copies made on purpose are not touched.
    void DropOld() const;

    /// Records why the last daily backup was not made; nothing means that it was. Does nothing if
    /// the folder is read-only.
    void Failure(const std::optional<BackupFailure>& failure) const noexcept;
    [[nodiscard]] std::optional<BackupFailure> Failure() const;

    /// Makes other programs that want to make a copy wait, up to a minute. Files are never
    /// replaced, so two programs that cannot wait for each other lose nothing.
    class Turn {
    public:
        explicit Turn(const BackupFolder& folder);
        ~Turn();
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;

    private:
        int file_;
    };

private:
    /// Size in bytes and time of the last change in nanoseconds.
    using Mark = std::pair<std::int64_t, std::int64_t>;
    using Listed = std::vector<std::pair<std::string, std::string>>;  // name and written mark

    static std::optional<Mark> MarkOf(const std::string& path);
    static std::string Written(const std::optional<Mark>& mark);
    [[nodiscard]] std::map<std::string, Mark> Present() const;
    [[nodiscard]] Listed List() const;
    void WriteList(const Listed& list) const;
    [[nodiscard]] bool WriteWhole(const std::string& file, const std::string& text) const;

    std::string path_;
};

}  // namespace clb
