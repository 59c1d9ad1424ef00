// A model of a disk that loses power.
#pragma once
#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <variant>
#include <vector>

namespace clb {

/// Models what is surely on a disk, and what has only been handed to it: the bytes of each file and
/// the names in the folder. A power loss keeps the former and any part of the latter.
class DiskModel {
public:
    /// Adds a file that existed before; all of it is on the disk.
    void Existing(const std::string& path, std::string bytes);
    [[nodiscard]] bool Knows(const std::string& path) const { return names_.contains(path); }

    void Create(const std::string& path);
    void Write(const std::string& path, const void* bytes, std::size_t count, std::size_t offset);
    void Truncate(const std::string& path, std::size_t size);
    /// From now on the file's bytes are surely on the disk, and with `folder` also the names in the
    /// folder.
    void Sync(const std::string& path, bool folder);
    void Delete(const std::string& path, bool syncFolder);

    /// The files as they may be found after a power loss at this moment.
    std::map<std::string, std::string> AfterPowerLoss(std::mt19937& random) const;

private:
    struct Written {
        std::size_t offset;
        std::string bytes;
    };
    struct Truncated {
        std::size_t size;
    };
    using Change = std::variant<Written, Truncated>;
    struct Content {
        std::string synced;
        std::vector<Change> pending;
    };
    using ContentPtr = std::shared_ptr<Content>;
    struct Renaming {
        std::string path;
        ContentPtr content;  ///< null: the name is removed
    };

    static std::string Survivor(const Content& content, std::mt19937& random);
    static void Apply(const Written& written, unsigned percent, std::mt19937& random,
                      std::string& bytes);

    std::map<std::string, ContentPtr> names_;        ///< as the program sees them
    std::map<std::string, ContentPtr> syncedNames_;  ///< as they surely are on the disk
    std::vector<Renaming> pendingNames_;
};

}  // namespace clb
