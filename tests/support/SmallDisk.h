// A disk that can be filled.
#pragma once
#include <sys/mount.h>
#include <sys/statvfs.h>

#include <fstream>
#include <string>

#include "tests/support/TempFolder.h"

namespace clb {

/// A file system of one megabyte, if the machine lets the test mount one.
class SmallDisk {
public:
    SmallDisk() { mounted_ = mount("tmpfs", Path().c_str(), "tmpfs", 0, "size=1m") == 0; }
    ~SmallDisk()
    {
        if (mounted_)
            umount2(Path().c_str(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    [[nodiscard]] bool Mounted() const { return mounted_; }
    [[nodiscard]] std::string Path() const { return folder_.Path(); }
    [[nodiscard]] std::string Path(const std::string& name) const { return folder_.Path(name); }
    [[nodiscard]] std::string Read(const std::string& name) const { return folder_.Read(name); }
    /// Writes until the disk is full.
    void Fill() const
    {
        std::ofstream filler(Path("filler"), std::ios::binary);
        while (filler << std::string(4096, 'x') << std::flush) {
        }
    }

private:
    TempFolder folder_;
    bool mounted_ = false;
};

}  // namespace clb
