#include "cli/ImportFiles.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <set>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "cli/FolderOptions.h"
#include "data/EmptyDatabase.h"
#include "files/WholeFile.h"
#include "platform/ProgramFolder.h"
#include "statements/form/StatementReader.h"
#include "statements/kinds/ForeignFile.h"
#include "statements/kinds/StatementReaders.h"
#include "statements/source/Archive.h"
#include "statements/source/SourceFile.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

/// What a file of a folder is by its name.
enum class Named : std::uint8_t {
    Statement,
    Perhaps,  ///< a table or an archive
    Other,
    Hidden  ///< belongs to the system or another program
};

/// The last ending of a file's name in capitals, without the point.
std::string EndingOf(const std::string& name)
{
    const std::size_t point = name.rfind('.');
    return point == std::string::npos ? std::string() : ToUpperAscii(name.substr(point + 1));
}

Named NameOf(const fs::path& path)
{
    static const std::set<std::string> statements = {
        "OFX", "QFX",  "OFC",     "QIF",     "MT940",   "MT942", "940", "942",
        "STA", "CAMT", "CAMT052", "CAMT053", "CAMT054", "052",   "053", "054"};
    static const std::set<std::string> perhaps = {"CSV", "TSV", "TAB", "TXT", "ASC",
                                                  "DAT", "GZ",  "TGZ", "ZIP"};
    const std::string name = path.filename().string();
    const std::string ending = EndingOf(name);
    if (statements.contains(ending))
        return Named::Statement;
    // The import of OFX and QIF files keeps the file before its repair as *.org.
    if (name.starts_with('.') || name.ends_with('~') || ending == "ORG" || ending == "BAK")
        return Named::Hidden;
    return perhaps.contains(ending) ? Named::Perhaps : Named::Other;
}

std::string HeadOf(const fs::path& path)
{
    constexpr std::size_t kHead = 65536;
    std::ifstream file(path, std::ios::binary);
    std::string head(kHead, '\0');
    file.read(head.data(), static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return head;
}

/// Why a file is no statement, by its beginning; empty if it may be one. anyTable: whether a table
/// is one.
std::string WhyOther(const fs::path& path, bool anyTable)
{
    const std::string head = HeadOf(path);
    if (anyTable && (IsZip(head) || IsGzip(head)))
        return {};
    try {
        const std::string text = DecodeStatement(head);
        if (BeginsAsStatement(text))
            return {};
        std::string foreign = DescribeForeignFile(text);
        if (!foreign.empty())
            return foreign;
        return anyTable ? std::string() : "The file is in no format of statements.";
    } catch (const NotAStatement& error) {
        return error.what();
    }
}

void Add(const fs::directory_entry& entry, FoundFiles& found)
{
    std::error_code unknown;
    const Named named = NameOf(entry.path());
    if (named == Named::Hidden || entry.is_directory(unknown))
        return;
    const std::string path = entry.path().string();
    if (named == Named::Statement) {
        found.files.push_back({path, true});
        return;
    }
    if (!entry.is_regular_file(unknown))
        return;
    const std::string why = WhyOther(entry.path(), named == Named::Perhaps);
    if (why.empty())
        found.files.push_back({path, false});
    else
        found.others.push_back({path, why});
}

/// Does not follow links to folders: a link may lead back.
FoundFiles StatementsIn(const std::string& folder)
{
    FoundFiles found;
    // With an error code instead of exceptions, the iterator would terminate the program if there
    // is too little memory.
    try {
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(
                 folder, fs::directory_options::skip_permission_denied))
            Add(entry, found);
    } catch (const fs::filesystem_error&) {
        // The list ends at the first folder that cannot be read.
    }
    std::ranges::sort(found.files, {}, &FoundFile::path);
    std::ranges::sort(found.others, {}, &OtherFile::path);
    return found;
}

}  // namespace

bool IsNamedStatement(const std::string& path)
{
    return NameOf(path) == Named::Statement;
}

FoundFiles FindStatements(const std::vector<std::string>& words)
{
    FoundFiles all;
    for (const std::string& word : words) {
        std::error_code unknown;
        if (!fs::is_directory(word, unknown)) {
            all.files.push_back({word, true});
            continue;
        }
        FoundFiles found = StatementsIn(word);
        std::ranges::move(found.files, std::back_inserter(all.files));
        std::ranges::move(found.others, std::back_inserter(all.others));
    }
    return all;
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

}  // namespace clb
