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
/// them may go.
///
/// Neither the names nor the times of the files tell that order: the clock may once have been
/// ahead, and copying the folder gives all files the same time. So the file "order" lists the
/// copies, oldest first, each with its size and time as they were when the copy was checked. A copy
/// that is not in the list (of an earlier version, or put there by hand) counts as newer than those
/// that are. Several such are in the order of their times, then of their names; those with a time
/// that is still to come are first, because their clock was wrong.
///
/// The file "failed" says why the last daily backup was not made. Both files may be lost without
/// harm, and what is broken in them is skipped. A folder, pipe or link of their name gives way to
/// the file when it is written next; a folder is kept with ".damaged" after its name.
class BackupFolder {
public:
    explicit BackupFolder(std::string path) : path_(std::move(path)) {}

    const std::string& Path() const { return path_; }
    /// The copy of that name: "2026-11-21" is clb-2026-11-21.mdb.
    std::string PathOf(const std::string& name) const;
    /// The name, numbered when it is taken.
    std::string FreeName(const std::string& name) const;
    /// Makes the folder, for the user alone, unless it is there. Throws EngineError.
    void Make() const;
    /// What would keep a copy of so many bytes from being made; empty when nothing does.
    std::string Obstacle(std::uintmax_t bytes) const;

    /// The names of all copies, oldest first.
    std::vector<std::string> Names() const;
    /// Lists a copy that has just been made as the newest. A list that cannot be written stays as
    /// it was: the copy then still counts as newer than all listed ones.
    void Add(const std::string& name) const noexcept;
    /// Lists a copy that was found sound, at its place.
    void Confirm(const std::string& name) const noexcept;
    /// Whether the copy was checked and has not changed since. Cheap.
    bool IsConfirmed(const std::string& name) const;

    /// Frees the name of a copy that is none: what is in the file is kept with ".damaged" after
    /// its name. Does nothing when there is no such file. Throws EngineError.
    void PutAside(const std::string& name) const;
    /// Removes daily copies: the ten newest that look whole stay, the first of each month, and what
    /// is newer than the oldest of the ten. Copies made on purpose are not touched.
    void DropOld() const;

    /// Keeps why the last daily backup was not made; nothing: it was. Does nothing where the folder
    /// cannot be written.
    void Failure(const std::optional<BackupFailure>& failure) const noexcept;
    std::optional<BackupFailure> Failure() const;

    /// While it lives, other programs that make a copy wait, up to a minute; names are never
    /// replaced, so two that do not wait for each other lose nothing.
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
    std::map<std::string, Mark> Present() const;
    Listed List() const;
    void WriteList(const Listed& list) const;
    bool WriteWhole(const std::string& file, const std::string& text) const;

    std::string path_;
};

}  // namespace clb
