#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Date.h"
#include "data/NoticedBalances.h"
#include "import/IImportHost.h"
#include "ports/IMessageBox.h"

namespace clb {

class clsDatabase;
class clsView;
class IClock;

/// What became of the transactions of one file.
struct ImportCounts {
    std::int32_t added = 0;
    std::int32_t duplicates = 0;  ///< left out: the account holds them
};

/// Reads statement files into accounts. All members borrowed; they outlive the import.
class modImport {
public:
    modImport(clsDatabase& database, clsView& view, IImportHost& host, IMessageBox& messages,
              const IClock& clock);

    /// The import command: asks for a file and reads it into its account, then recomputes every
    /// account's balance and reloads the view. A file of no known kind is told, and the window
    /// stays as it is at that moment. Throws RuntimeError when the file cannot be opened or
    /// repaired.
    void ImportFile();

    /// Repairs a file whose first line, up to the first carriage return, holds bare line feeds:
    /// that part is written anew with carriage return and line feed, the former file stays as
    /// path + ".org". Throws RuntimeError when path + ".org" exists or a file cannot be written.
    static void FixLineEndings(const std::string& path);
    /// 2 = OFX, QFX or OFC, 3 = QIF, 0 = none of these. Throws RuntimeError when it cannot be read.
    static std::int32_t DetectFileFormat(const std::string& path);
    /// Reads an OFX, QFX or OFC file; tells its own errors.
    void ImportOFX(const std::string& path);
    /// Reads a QIF file into the account that the user picks; ends by telling the lines that could
    /// not be used. Throws RuntimeError when the file cannot be read.
    void ImportQIF(const std::string& path);

    /// How the next QIF files order the numbers of their dates: month/day/year unless it is set.
    /// The window never sets it.
    void QifDateOrder(DateText::Order order) { dateOrder_ = order; }
    /// Of the last file, as far as it was read.
    [[nodiscard]] const ImportCounts& Counts() const { return counts_; }
    /// The balances that did not fit their rows before the last file was read. They are on the list
    /// of noticed balances; the import command has stored them anew.
    [[nodiscard]] const std::vector<OddBalance>& FormerBalances() const { return formerBalances_; }
    /// The copy of the file that was made before they were stored anew; empty when none was.
    [[nodiscard]] const std::string& FormerFile() const { return formerFile_; }

private:
    /// To be called before a message of an import that has stored rows: the message may wait long,
    /// and the rows are made durable before it.
    void StoreBalances();
    bool ImportByFormat(const std::string& path);
    /// DetectFileFormat of a file whose text is known.
    static std::int32_t FormatOf(const std::string& path, const std::string& text);
    /// ImportOFX of the text that readText gives; tells its errors too.
    void ImportMarkup(const std::function<std::string()>& readText);
    std::string NewRun();
    void ForgetBalances();
    void KeepFileBeforeMapping(const std::string& accountID);
    /// To be called inside the write lock, before the first new row.
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
    std::string lastTick_;
    std::int32_t runsInTick_ = 0;
};

/// The texts between the tags of a statement file. Positions are 1-based and count characters.
namespace statement_tags {
/// Moves pos to the next occurrence at or after it; false, and pos as it was, when there is none.
bool FindTag(std::int32_t& pos, std::string_view text, std::string_view what);
/// Value behind the next such tag, up to the next "<" or carriage return, without outer blanks;
/// empty when the tag is absent.
std::string GetTagValue(std::int32_t pos, std::string_view text, std::string_view tag);
/// What stands between <name> and </name>; pos is moved past the closing tag. Empty, and pos as it
/// was, when either is absent.
std::string GetTagBlock(std::int32_t& pos, std::string_view text, std::string_view name);
}  // namespace statement_tags

}  // namespace clb
