#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <vector>

#include "import/FileErrors.h"
#include "import/StatementFile.h"
#include "import/modImport.h"

// The repair never leaves the path without a file for longer than between two renames: the new
// content is written beside it first, and the former file is put back when it cannot take its
// place.

namespace clb {
namespace {

namespace fs = std::filesystem;

/// The first line of a file, up to the first carriage return, read piece by piece.
class FirstLine {
public:
    explicit FirstLine(const std::string& path)
        : path_(path), file_(path, std::ios::binary), buffer_(std::size_t{1} << 13)
    {
        if (!file_)
            throw PathAccessError(path_);
    }

    /// The next piece; empty at the line's end.
    std::string_view Next()
    {
        if (ended_)
            return {};
        file_.read(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
        if (file_.bad())
            throw PathAccessError(path_);
        const std::string_view read(buffer_.data(), static_cast<std::size_t>(file_.gcount()));
        const std::string_view piece = read.substr(0, read.find('\r'));
        ended_ = piece.size() < read.size() || !file_;
        return piece;
    }

private:
    const std::string& path_;
    std::ifstream file_;
    std::vector<char> buffer_;
    bool ended_ = false;
};

bool HoldsLineFeed(const std::string& path)
{
    FirstLine line(path);
    for (std::string_view piece = line.Next(); !piece.empty(); piece = line.Next())
        if (piece.find('\n') != std::string_view::npos)
            return true;
    return false;
}

/// A new file beside another one; gone again unless it has taken a place.
class FileBeside {
public:
    explicit FileBeside(const std::string& path)
        : name_((fs::path(path).parent_path() / ".clb-XXXXXX").string())
    {
        const int handle = mkstemp(name_.data());
        if (handle < 0)
            throw PathAccessError(path);
        close(handle);
    }
    ~FileBeside()
    {
        if (!name_.empty())
            unlink(name_.c_str());
    }
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;

    const std::string& Name() const { return name_; }

    void TakePlaceOf(const std::string& path)
    {
        fs::rename(name_, path);
        name_.clear();
    }

private:
    std::string name_;
};

/// The piece with a carriage return before every line feed.
void WriteRepaired(std::ofstream& file, std::string_view piece)
{
    for (std::size_t from = 0; from < piece.size();) {
        const std::size_t feed = std::min(piece.find('\n', from), piece.size());
        file.write(piece.data() + from, static_cast<std::streamsize>(feed - from));
        if (feed < piece.size())
            file.write("\r\n", 2);
        from = feed + 1;
    }
}

void WriteRepairedCopy(const std::string& path, const std::string& copy)
{
    std::ofstream file(copy, std::ios::binary | std::ios::trunc);
    FirstLine line(path);
    for (std::string_view piece = line.Next(); !piece.empty(); piece = line.Next())
        WriteRepaired(file, piece);
    file.write("\r\n", 2);
    file.close();
    if (!file)
        throw PathAccessError(path);
    std::error_code ignored;  // With other permissions the file is still the user's own.
    fs::permissions(copy, fs::status(path, ignored).permissions(), ignored);
}

void PutInPlace(FileBeside& repaired, const std::string& path, const std::string& kept)
{
    fs::rename(path, kept);
    try {
        repaired.TakePlaceOf(path);
    } catch (const fs::filesystem_error&) {
        std::error_code ignored;
        fs::rename(kept, path, ignored);
        throw;
    }
}

void RewriteFirstLine(const std::string& path)
{
    const std::string kept = KeptStatement(path);
    std::error_code failure;
    if (fs::exists(fs::symlink_status(kept, failure)))
        throw FileAlreadyExists();
    FileBeside repaired(path);
    WriteRepairedCopy(path, repaired.Name());
    try {
        PutInPlace(repaired, path, kept);
    } catch (const fs::filesystem_error&) {
        throw PathAccessError(path);
    }
}

}  // namespace

void modImport::FixLineEndings(const std::string& path)
{
    RequireRegularFile(path);
    if (HoldsLineFeed(path))
        RewriteFirstLine(path);
}

}  // namespace clb
