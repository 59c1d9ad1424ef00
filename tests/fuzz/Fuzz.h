// What the fuzzing programs share.
#pragma once
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace clb {

/// The input as a text.
inline std::string_view TextOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

/// A folder in memory for the files of one run. It is removed when the run ends. Millions of runs
/// would wear a disk out.
class FuzzFolder {
public:
    FuzzFolder()
    {
        const char* root = std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : "/tmp";
        std::string name = std::string(root) + "/clb-fuzz-XXXXXX";
        if (!mkdtemp(name.data()))
            throw std::runtime_error("no folder for the run");
        path_ = name;
    }
    ~FuzzFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    FuzzFolder(const FuzzFolder&) = delete;
    FuzzFolder& operator=(const FuzzFolder&) = delete;

    [[nodiscard]] std::string Path(const std::string& name) const { return path_ + "/" + name; }
    // NOLINTNEXTLINE(modernize-use-nodiscard): most callers need only the file
    [[nodiscard]] std::string Write(const std::string& name, std::string_view bytes) const
    {
        std::ofstream out(Path(name), std::ios::binary | std::ios::trunc);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return Path(name);
    }
    void Remove(const std::string& name) const
    {
        std::error_code ignored;
        std::filesystem::remove(Path(name), ignored);
    }

private:
    std::string path_;
};

/// Checks a condition that must hold for every input.
inline void Require(bool holds)
{
    if (!holds)
        __builtin_trap();
}

}  // namespace clb
