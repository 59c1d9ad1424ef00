#pragma once
#include <sys/mount.h>
#include <sys/statvfs.h>

#include <fstream>
#include <string>

#include "tests/support/TempFolder.h"

namespace clb {

/// A file system of one megabyte, where the machine lets the test have one.
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

    bool Mounted() const { return mounted_; }
    std::string Path() const { return folder_.Path(); }
    std::string Path(const std::string& name) const { return folder_.Path(name); }
    std::string Read(const std::string& name) const { return folder_.Read(name); }
    /// Leaves no room.
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
