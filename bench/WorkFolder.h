// The temporary folder of a benchmark run.
#pragma once
#include <filesystem>
#include <string>

namespace clb {

/// A folder for this run below $TMPDIR, or else below /var/tmp. Removes it with everything in it on
/// destruction. Throws std::runtime_error if none can be made.
class WorkFolder {
public:
    WorkFolder();
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    [[nodiscard]] std::string Path(const std::string& name) const
    {
        return (path_ / name).string();
    }
    /// Makes a program folder of that name with the delivered database, replacing an earlier one;
    /// returns its path.
    [[nodiscard]] std::string Deliver(const std::string& name) const;
    /// Waits until everything written is on the disk, so that it does not slow down the next step.
    void Flush() const;
    /// Its path and kind of file system: "/var/tmp/clb-bench-Xy12 (ext4)". Says so if it is in
    /// memory.
    [[nodiscard]] std::string Description() const;

private:
    std::filesystem::path path_;
};

}  // namespace clb
