#pragma once
#include <filesystem>
#include <string>

namespace clb {

/// A folder of this run below $TMPDIR, else below /var/tmp; gone with everything in it afterwards.
/// Throws std::runtime_error when none can be made.
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
    /// Makes a program folder of that name with the delivered database, in place of an earlier one;
    /// returns its path.
    [[nodiscard]] std::string Deliver(const std::string& name) const;
    /// Waits until everything written is on the disk, so that it does not weigh on what comes next.
    void Flush() const;
    /// Where it is and on what: "/var/tmp/clb-bench-Xy12 (ext4)". Memory is pointed out.
    [[nodiscard]] std::string Description() const;

private:
    std::filesystem::path path_;
};

}  // namespace clb
