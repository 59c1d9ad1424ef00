// A temporary folder.
#pragma once
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace clb {

/// A new folder for one test. Removes it with everything in it on destruction.
class TempFolder {
public:
    explicit TempFolder(
        const std::filesystem::path& parent = std::filesystem::temp_directory_path())
    {
        std::string name = (parent / "clb-test-XXXXXX").string();
        if (!mkdtemp(name.data()))
            throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    /// Returns a folder in memory if the system has one, for files that are written thousands of
    /// times.
    static std::filesystem::path Memory()
    {
        const char* memory = "/dev/shm";
        return access(memory, W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    [[nodiscard]] std::string Path() const { return path_.string(); }
    /// Returns the path of a file or folder in it.
    [[nodiscard]] std::string Path(const std::string& name) const
    {
        return (path_ / name).string();
    }
    [[nodiscard]] bool Holds(const std::string& name) const
    {
        return std::filesystem::exists(path_ / name);
    }

    /// Writes a file, creates its folders, and returns its path.
    // NOLINTNEXTLINE(modernize-use-nodiscard): many tests need only the file
    std::string Write(const std::string& name, std::string_view bytes) const
    {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name, std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return Path(name);
    }
    [[nodiscard]] std::string Read(const std::string& name) const
    {
        std::ifstream file(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::filesystem::path path_;
};

}  // namespace clb
