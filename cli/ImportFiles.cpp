#include "cli/ImportFiles.h"

#include <algorithm>
#include <filesystem>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "cli/FolderOptions.h"
#include "data/EmptyDatabase.h"
#include "files/WholeFile.h"
#include "import/StatementFile.h"
#include "platform/ProgramFolder.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

bool EndsIn(const std::string& path, std::string_view extension)
{
    return path.size() >= extension.size() &&
           EqualsIgnoringCase(std::string_view(path).substr(path.size() - extension.size()),
                              extension);
}

bool IsStatement(const std::string& path)
{
    return std::ranges::any_of(
        std::initializer_list<std::string_view>{".ofx", ".qfx", ".ofc", ".qif"},
        [&](std::string_view extension) { return EndsIn(path, extension); });
}

/// Does not follow links to folders: a link may lead back.
std::vector<std::string> StatementsIn(const std::string& folder)
{
    std::vector<std::string> files;
    // With an error code instead of exceptions, the iterator would terminate the program if there
    // is too little memory.
    try {
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(
                 folder, fs::directory_options::skip_permission_denied)) {
            std::error_code unknown;
            if (IsStatement(entry.path().string()) && !entry.is_directory(unknown))
                files.push_back(entry.path().string());
        }
    } catch (const fs::filesystem_error&) {
        // The list ends at the first folder that cannot be read.
    }
    std::ranges::sort(files);
    return files;
}

}  // namespace

bool IsQif(const std::string& path)
{
    return EndsIn(path, ".qif");
}

std::vector<std::string> FindStatements(const std::vector<std::string>& words)
{
    std::vector<std::string> files;
    for (const std::string& word : words) {
        std::error_code unknown;
        if (fs::is_directory(word, unknown))
            std::ranges::copy(StatementsIn(word), std::back_inserter(files));
        else
            files.push_back(word);
    }
    return files;
}

TrialFolder::TrialFolder(const std::optional<std::string>& home)
{
    const std::string folder = HomeFolder(home);
    if (home || HoldsDatabase(folder))
        CopyDatabase(folder);
    else
        DeliverFolder(Path(), EmptyDatabase());
}

/// Copies the journal of a killed program too: the database is not whole without it.
void TrialFolder::CopyDatabase(const std::string& folder) const
{
    const std::string from = DatabasePath(folder);
    const std::string to = DatabasePath(Path());
    if (!HoldsDatabase(folder))
        throw RuntimeError(errors::FileNotFound,
                           "The database file '" + from + "' does not exist.");
    try {
        fs::create_directories(fs::path(to).parent_path());
        fs::copy_file(from, to);
        fs::permissions(to, fs::perms::owner_read | fs::perms::owner_write);
        if (fs::exists(from + "-journal"))
            fs::copy_file(from + "-journal", to + "-journal");
    } catch (const fs::filesystem_error&) {
        throw RuntimeError(errors::PathAccess, "Path/File access error: " + from);
    }
}

std::string TrialFolder::CopyStatement(const std::string& path) const
{
    std::error_code failure;
    const fs::path place = folder_.Path("statement");
    fs::remove_all(place, failure);
    fs::create_directory(place, failure);
    std::string copy = (place / fs::path(path).filename()).string();
    if (!fs::is_regular_file(path, failure) || !fs::copy_file(path, copy, failure))
        return path;
    fs::permissions(copy, fs::perms::owner_read | fs::perms::owner_write, failure);
    // A kept first version prevents the repair. It must prevent it in the trial too.
    if (fs::exists(fs::symlink_status(BackupOfStatement(path), failure)))
        CreateFile(BackupOfStatement(copy), "");
    return copy;
}

}  // namespace clb
