// The import of statement files.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Date.h"
#include "data/NoticedBalances.h"
#include "engine/rows/Recordset.h"
#include "import/IImportHost.h"
#include "ports/IMessageBox.h"

namespace clb {

class clsDatabase;
class clsView;
class IClock;

/// How many transactions of a file were added and skipped.
struct ImportCounts {
    std::int32_t added = 0;
    std::int32_t duplicates = 0;  ///< skipped because the account has them already
};

/// The rows of the account of the last text. They stay open from one text of a command to the next.
struct ImportedRows {
    std::string accountID;
    Recordset rows;
};

/// Reads statement files into accounts. Borrows the objects that it is made with; they outlive it.
class modImport {
public:
    modImport(clsDatabase& database, clsView& view, IImportHost& host, IMessageBox& messages,
              const IClock& clock);

    /// The import command: asks for a file and reads it into its account, then recomputes every
    /// account's balance and reloads the view. If the format is unknown, shows a message and leaves
    /// the window as it is at that moment. Throws RuntimeError if the file cannot be opened or
    /// repaired.
    void ImportFile();

    /// Begins a command that imports texts of OFX files one after the other: the counts begin anew.
    /// Until its end nothing else may remove transactions or change their identifiers.
    void BeginTexts();
    /// As the import of a file finds its account: asks the user for an account if the number is
    /// unknown or empty; an empty number is set to that of the chosen account. Returns false if the
    /// user cancels.
    bool FindAccount(std::string& accountID);
    /// How much of a memo is stored: as of a file, its first 50 characters, or all of it.
    enum class Memos : std::uint8_t { Short, Whole };
    /// Reads the text of an OFX file into an account that is there, whichever account it names.
    /// Shows errors in the text to the user.
    void ImportText(const std::string& accountID, std::string text, Memos memos);
    /// Ends the command: recomputes every account's balance and reloads the view.
    void EndTexts();

    /// Repairs a file whose first line, up to the first carriage return, contains bare line feeds.
    /// The repaired file is that line with carriage returns and line feeds. The original is kept as
    /// path + ".org". Throws RuntimeError if path + ".org" exists or a file cannot be written.
    static void FixLineEndings(const std::string& path);
    /// 2 = OFX, QFX or OFC, 3 = QIF, 0 = none of these. Throws RuntimeError if it cannot be read.
    static std::int32_t DetectFileFormat(const std::string& path);
    /// DetectFileFormat of a file whose decoded text is known.
    static std::int32_t FormatOf(const std::string& path, const std::string& text);
    /// Reads an OFX, QFX or OFC file. Shows errors in the file to the user.
    void ImportOFX(const std::string& path);
    /// Reads a QIF file into the account that the user chooses, then shows the lines that could not
    /// be used. Throws RuntimeError if the file cannot be read.
    void ImportQIF(const std::string& path);

    /// Sets the order of day, month and year in the dates of the next QIF files. The default is
    /// month/day/year. The window never sets it.
    void QifDateOrder(DateText::Order order) { dateOrder_ = order; }
    /// The counts of the last file, as far as it was read.
    [[nodiscard]] const ImportCounts& Counts() const { return counts_; }
    /// The balances that did not fit their rows before the last file was read. They are on the list
    /// of noticed balances. The import command has recomputed them.
    [[nodiscard]] const std::vector<OddBalance>& FormerBalances() const { return formerBalances_; }
    /// The path of the database copy that was made before they were recomputed; empty if none was
    /// made.
    [[nodiscard]] const std::string& FormerFile() const { return formerFile_; }

private:
    /// Called before an import that has added rows shows a message. The rows are made durable
    /// before the message, which may stay open for long.
    void StoreBalances();
    bool ImportByFormat(const std::string& path);
    /// ImportOFX of the text that readText gives; tells its errors too.
    void ImportMarkup(const std::function<std::string()>& readText);
    /// accountID: absent if the text's own is to be found
    void ReadMarkup(const std::function<std::string()>& readText, Memos memos,
                    const std::optional<std::string>& accountID);
    std::string NewRun();
    void ForgetBalances();
    void KeepFileBeforeMapping(const std::string& accountID);
    /// Called with the write lock held, before the first new row.
    void NoteFormerBalances();

    clsDatabase& database_;
    clsView& view_;
    IImportHost& host_;
    IMessageBox& messages_;
    const IClock& clock_;
    DateText::Order dateOrder_ = DateText::Order::MonthDayYear;
    ImportCounts counts_;
    std::vector<OddBalance> formerBalances_;
    std::string formerFile_;
    bool balancesNoted_ = false;
    ImportedRows rows_;
    std::string lastTick_;
    std::int32_t runsInTick_ = 0;
};

/// The texts between the tags of a statement file. Positions are 1-based and count characters.
namespace statement_tags {
/// Moves pos to the next occurrence at or after it. Returns false and leaves pos unchanged if there
/// is none.
bool FindTag(std::int32_t& pos, std::string_view text, std::string_view what);
/// The value after the next such tag, up to the next "<" or carriage return, without spaces at its
/// ends. Empty if the tag is absent.
std::string GetTagValue(std::int32_t pos, std::string_view text, std::string_view tag);
/// Returns the text between <name> and </name> and moves pos past the closing tag. If either tag is
/// absent, returns an empty text and leaves pos unchanged.
std::string GetTagBlock(std::int32_t& pos, std::string_view text, std::string_view name);
}  // namespace statement_tags

}  // namespace clb
