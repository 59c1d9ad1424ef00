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

/// What a disk holds for certain, and what has only been handed to it: the bytes of each file and
/// the names in the folder. A power loss keeps the former and any part of the latter.
class DiskModel {
public:
    /// A file that was there before; whole on the disk.
    void Existing(const std::string& path, std::string bytes);
    [[nodiscard]] bool Knows(const std::string& path) const { return names_.contains(path); }

    void Create(const std::string& path);
    void Write(const std::string& path, const void* bytes, std::size_t count, std::size_t offset);
    void Truncate(const std::string& path, std::size_t size);
    /// The file's bytes are on the disk, and with folder the names in the folder too.
    void Sync(const std::string& path, bool folder);
    void Delete(const std::string& path, bool syncFolder);

    /// The files as they may be found after a power loss now.
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
        ContentPtr content;  ///< null: the name goes
    };

    static std::string Survivor(const Content& content, std::mt19937& random);
    static void Apply(const Written& written, unsigned percent, std::mt19937& random,
                      std::string& bytes);

    std::map<std::string, ContentPtr> names_;        ///< as the program sees them
    std::map<std::string, ContentPtr> syncedNames_;  ///< as they are on the disk for certain
    std::vector<Renaming> pendingNames_;
};

}  // namespace clb
