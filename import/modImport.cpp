#include "import/modImport.h"

#include "base/Product.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "data/Balances.h"
#include "data/clsDatabase.h"
#include "import/FileLines.h"
#include "import/StatementFile.h"
#include "ports/IClock.h"
#include "ports/IFileDialog.h"
#include "ports/IPointer.h"
#include "views/clsView.h"

namespace clb {
namespace {

constexpr std::int32_t kMarkup = 2;
constexpr std::int32_t kQif = 3;
constexpr std::int32_t kUnknown = 0;

constexpr std::int32_t kDialogFlags = file_flags::FileMustExist | file_flags::HideReadOnly;
constexpr const char* kDialogFilter = "All Financial Files|*.ofx;*.qfx;*.ofc;*.qif|All Files|*.*";

std::string_view FirstNonEmptyLine(FileLines& lines)
{
    std::string_view line;
    while (line.empty() && !lines.AtEnd())
        line = lines.ReadLine();
    return line;
}

bool EndsWithQif(std::string_view path)
{
    return path.size() >= 4 && EqualsIgnoringCase(path.substr(path.size() - 4), ".QIF");
}

/// Reads what follows the first line of the header: one item, normally the kind of data, and the
/// version.
bool IsKnownVersion(FileLines& lines)
{
    if (!lines.AtEnd())
        lines.ReadItem();
    return !lines.AtEnd() && lines.ReadLine() == "VERSION:102";
}

}  // namespace

modImport::modImport(clsDatabase& database, clsView& view, IImportHost& host, IMessageBox& messages,
                     const IClock& clock)
    : database_(database), view_(view), host_(host), messages_(messages), clock_(clock)
{
}

void modImport::ImportFile()
{
    const std::string path = host_.AskForFile(kDialogFlags, kDialogFilter);
    if (path.empty())
        return;
    // If another program has locked the book, the import fails here, before the window is disabled.
    database_.Lock();
    const std::string statusBefore = host_.StatusText();
    host_.StatusText("Importing " + path + "...");
    host_.Repaint();
    host_.WindowEnabled(false);
    host_.Pointer(pointer::Hourglass);

    counts_ = {};
    ForgetBalances();
    FixLineEndings(path);
    if (!ImportByFormat(path))
        return;  // On purpose: status text, pointer and the disabled window stay as they are.
    // An import that was cancelled or found no account has not noted them yet.
    if (!balancesNoted_)
        NoteFormerBalances();
    UpdateBalances(database_);
    view_.Refresh();

    host_.Pointer(pointer::Default);
    host_.StatusText(statusBefore);
    host_.WindowEnabled(true);
}

void modImport::BeginTexts()
{
    counts_ = {};
    ForgetBalances();
    rows_.rows.Close();
}

bool modImport::FindAccount(std::string& accountID)
{
    // The book is not locked while the user is asked.
    rows_.rows.Close();
    KeepFileBeforeMapping(accountID);
    return host_.CheckImportAccount(accountID);
}

void modImport::EndTexts()
{
    rows_.rows.Close();
    if (!balancesNoted_)
        NoteFormerBalances();
    UpdateBalances(database_);
    view_.Refresh();
}

void modImport::StoreBalances()
{
    const Connection::Untraced untraced(database_.Database());
    try {
        UpdateBalances(database_);
    } catch (const RuntimeError&) {
        // The import's own update of the balances reports the error.
    }
}

void modImport::ForgetBalances()
{
    formerBalances_.clear();
    formerFile_.clear();
    balancesNoted_ = false;
}

/// Mapping changes the account number of all rows of an account. After so many writes a copy of the
/// file might wait for our own lock.
void modImport::KeepFileBeforeMapping(const std::string& accountID)
{
    Connection& connection = database_.Database();
    const Connection::Untraced untraced(connection);
    const bool known = !connection
                            .Execute("SELECT Sequence FROM Account WHERE AccountID = '" +
                                     clsDatabase::ToSqlString(accountID) + "'")
                            .Empty();
    if (!known && !OddBalances(database_.Database()).empty())
        formerFile_ = host_.KeepFormerFile();
}

void modImport::NoteFormerBalances()
{
    formerBalances_ = OddBalances(database_.Database());
    balancesNoted_ = true;
    if (formerBalances_.empty())
        return;
    if (formerFile_.empty())
        formerFile_ = host_.KeepFormerFile();
    noticed_balances::Note(database_.Database(), formerBalances_, "import", clock_.Now());
}

bool modImport::ImportByFormat(const std::string& path)
{
    std::string text = ReadStatement(path);
    switch (FormatOf(path, text)) {
        case kMarkup: ImportMarkup([&] { return std::move(text); }); return true;
        case kQif:
            std::string().swap(text);  // it reads the lines by itself
            ImportQIF(path);
            return true;
        default:
            messages_.Show("Invalid file format.", box_style::Critical, product::kTitle);
            return false;
    }
}

std::int32_t modImport::DetectFileFormat(const std::string& path)
{
    return FormatOf(path, ReadStatement(path));
}

std::int32_t modImport::FormatOf(const std::string& path, const std::string& text)
{
    FileLines lines(text);
    const std::string_view line = FirstNonEmptyLine(lines);
    if (EndsWithQif(path))
        return kQif;
    if (line == "OFXHEADER:100")
        return IsKnownVersion(lines) ? kMarkup : kUnknown;
    return line.starts_with("<OFC>") ? kMarkup : kUnknown;
}

}  // namespace clb
