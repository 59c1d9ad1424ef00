#include "import/LineEndings.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "files/FileError.h"
#include "files/Folders.h"
#include "files/WholeFile.h"
#include "import/PathErrors.h"
#include "import/StatementFile.h"
#include "import/modImport.h"

// There is always a file at the path, the original or the repaired one. Only on a file system
// without hard links is there none for a moment, between two renames.

namespace clb {
namespace {

namespace fs = std::filesystem;

/// Reads the first line of a file, up to the first carriage return, piece by piece.
class FirstLine {
public:
    explicit FirstLine(const std::string& path)
        : path_(path), file_(path, std::ios::binary), buffer_(std::size_t{1} << 13)
    {
        if (!file_)
            throw PathAccessError(path_);
    }

    /// Returns the next piece, or an empty one at the end of the line.
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

bool HasLineFeed(const std::string& path)
{
    FirstLine line(path);
    for (std::string_view piece = line.Next(); !piece.empty(); piece = line.Next())
        if (piece.find('\n') != std::string_view::npos)
            return true;
    return false;
}

/// Adds a carriage return before every line feed.
std::string Repaired(std::string_view piece)
{
    std::string repaired;
    for (std::size_t from = 0; from < piece.size();) {
        const std::size_t feed = std::min(piece.find('\n', from), piece.size());
        repaired.append(piece.substr(from, feed - from));
        if (feed < piece.size())
            repaired.append("\r\n");
        from = feed + 1;
    }
    return repaired;
}

void WriteRepairedCopy(const std::string& path, WholeFile& copy)
{
    FirstLine line(path);
    for (std::string_view piece = line.Next(); !piece.empty(); piece = line.Next())
        copy.Write(Repaired(piece));
    copy.Write("\r\n");
    std::error_code ignored;  // with default permissions the file is still the user's
    fs::permissions(copy.Path(), fs::status(path, ignored).permissions(), ignored);
}

/// Gives the file a second name, or renames it if the file system has no hard links.
void KeepAs(const std::string& path, const std::string& kept)
{
    if (::link(path.c_str(), kept.c_str()) == 0)
        return;
    if (errno == EEXIST)
        throw FileAlreadyExists();
    fs::rename(path, kept);
}

/// Reverses KeepAs.
void Restore(const std::string& kept, const std::string& path) noexcept
{
    const bool hasBothNames = ::faccessat(AT_FDCWD, path.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0;
    if (hasBothNames)
        ::unlink(kept.c_str());
    else
        ::rename(kept.c_str(), path.c_str());
}

void RewriteFirstLine(const std::string& path)
{
    const std::string kept = BackupOfStatement(path);
    std::error_code failure;
    if (fs::exists(fs::symlink_status(kept, failure)))
        throw FileAlreadyExists();
    WholeFile repaired(path, Existing::ReplaceName);
    WriteRepairedCopy(path, repaired);
    KeepAs(path, kept);
    try {
        repaired.TakePlace();
    } catch (...) {
        Restore(kept, path);
        throw;
    }
    SyncFolder(FolderOf(path));
}

}  // namespace

std::string WithRepairedLineEnds(std::string bytes)
{
    const std::string_view line = std::string_view(bytes).substr(0, bytes.find('\r'));
    return line.find('\n') == std::string_view::npos ? std::move(bytes) : Repaired(line) + "\r\n";
}

void modImport::FixLineEndings(const std::string& path)
{
    RequireRegularFile(path);
    if (!HasLineFeed(path))
        return;
    try {
        RewriteFirstLine(path);
    } catch (const FileError&) {
        throw PathAccessError(path);
    } catch (const fs::filesystem_error&) {
        throw PathAccessError(path);
    }
}

}  // namespace clb
