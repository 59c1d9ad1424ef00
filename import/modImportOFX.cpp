#include "base/Date.h"
#include "base/Money.h"
#include "base/Numeric.h"
#include "base/Product.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "data/NoCategory.h"
#include "data/clsDatabase.h"
#include "engine/storage/EngineError.h"
#include "import/Messages.h"
#include "import/StatementFile.h"
#include "import/StatementScan.h"
#include "import/modImport.h"

namespace clb {
namespace {

namespace scan = statement_scan;

/// The search for the account begins after the first five characters, the length of "<OFC>".
constexpr std::size_t kSearchStart = 5;
constexpr std::size_t kMemoLength = 50;

/// One transaction of a statement.
struct StatementTransaction {
    std::string fitid;
    std::string checkID;
    Month month;
    Date postDate;
    Money amount;
    std::string name;
    std::string memo;
};

/// Characters of a text from a 0-based position; fewer, or none, if the text is shorter.
std::string Characters(std::string_view text, std::size_t first, std::size_t count)
{
    return Left(text.substr(ByteOffset(text, first)), count);
}

/// Reads one statement file. After an error, its members say which part of the file was being read.
class OfxReader {
public:
    OfxReader(clsDatabase& database, IImportHost& host, ImportCounts& counts,
              modImport::Memos memos, ImportedRows& open)
        : database_(database),
          host_(host),
          counts_(counts),
          memos_(memos),
          open_(open),
          rows_(open.rows)
    {
    }

    /// Takes the text of the file and reads it up to its account number. Returns false if it has
    /// none.
    bool FindAccount(std::string text);
    [[nodiscard]] const std::string& AccountID() const { return accountID_; }
    /// Takes an account that is there instead of the one that the file names.
    void AccountID(const std::string& accountID) { accountID_ = accountID; }
    /// Returns false if the user cancels.
    bool CheckAccount() { return host_.CheckImportAccount(accountID_); }
    void ReadRows();

    [[nodiscard]] const std::string& Text() const { return text_; }
    /// The text that was being converted when an error occurred; empty if none was.
    [[nodiscard]] const std::string& WorkingText() const { return working_; }

private:
    void ReadTransactions();
    bool IsKnown(std::string_view fitid);
    StatementTransaction Convert(std::string_view block);
    void ConvertDate(std::string_view stamp, StatementTransaction& transaction);
    Money ConvertAmount(std::string_view block);
    std::int32_t ConvertLong(std::string piece);
    void Add(const StatementTransaction& transaction);
    void SetFields(const StatementTransaction& transaction);
    void ProvideBudgetLine(Month month);

    clsDatabase& database_;
    IImportHost& host_;
    ImportCounts& counts_;
    modImport::Memos memos_;
    ImportedRows& open_;
    Recordset& rows_;
    std::string text_;
    std::string working_;
    std::size_t account_ = scan::kNone;  // offset of its number in the file
    std::string accountID_;
    Month last_;
};

bool OfxReader::FindAccount(std::string text)
{
    text_ = std::move(text);
    account_ = scan::Find(text_, "<ACCTID>", ByteOffset(text_, kSearchStart));
    if (account_ == scan::kNone)
        return false;
    accountID_ = scan::Value(text_, "<ACCTID>", account_);
    return true;
}

/// The fields of the rows, in the order of the statement below.
struct Row {
    enum Field : std::size_t {
        AccountID,
        PostDate,
        Amount,
        Description,
        Fitid,
        CheckID,
        Period,
        Year,
        Category,
        Notes,
        Sequence
    };
};

void OfxReader::ReadRows()
{
    if (!rows_.IsOpen() || open_.accountID != accountID_) {
        rows_.Close();
        open_.accountID = accountID_;
        database_.Fill(
            rows_,
            "SELECT AccountID, PostDate, Amount, Description, FITID, CheckID, Period, Year, "
            "Category, PayeeName AS Notes, Sequence FROM Trans WHERE AccountID = '" +
                clsDatabase::ToSqlString(accountID_) + "'",
            false);
    }
    ReadTransactions();
}

/// Every transaction after the first account number goes into that account, in whichever statement
/// of the file it is.
void OfxReader::ReadTransactions()
{
    std::size_t from = account_;
    for (;;) {
        const std::string_view block = scan::Block(text_, "STMTTRN", from);
        if (block.empty())
            return;
        host_.ImportProgress(from, text_.size());
        if (IsKnown(scan::Value(block, "<FITID>", 0)))
            ++counts_.duplicates;
        else
            Add(Convert(block));
    }
}

/// On purpose, quotes in the identifier are not doubled: a quote makes the criterion an error.
bool OfxReader::IsKnown(std::string_view fitid)
{
    return clsDatabase::CanFind(rows_, "FITID = '" + std::string(fitid) + "'");
}

StatementTransaction OfxReader::Convert(std::string_view block)
{
    StatementTransaction transaction;
    transaction.fitid = scan::Value(block, "<FITID>", 0);
    if (scan::Value(block, "<TRNTYPE>", 0) == "CHECK")
        transaction.checkID = scan::Value(block, "<CHECKNUM>", 0);
    ConvertDate(scan::Value(block, "<DTPOSTED>", 0), transaction);
    transaction.amount = ConvertAmount(block);
    transaction.name = scan::Value(block, "<NAME>", 0);
    if (transaction.name.empty())
        transaction.name = "(blank)";
    const std::string_view memo = scan::Value(block, "<MEMO>", 0);
    transaction.memo =
        memos_ == modImport::Memos::Short ? Left(memo, kMemoLength) : std::string(memo);
    return transaction;
}

/// The stamp begins with yyyymmdd. Time of day and zone are ignored.
void OfxReader::ConvertDate(std::string_view stamp, StatementTransaction& transaction)
{
    transaction.month.year = ConvertLong(Characters(stamp, 0, 4));
    transaction.month.period = ConvertLong(Characters(stamp, 4, 2));
    working_ = std::to_string(transaction.month.year) + "/" +
               std::to_string(transaction.month.period) + "/" + Characters(stamp, 6, 2);
    const auto date = DateText::YearMonthDay(working_);
    if (!date)
        throw TypeMismatch();
    transaction.postDate = *date;
    working_.clear();
}

Money OfxReader::ConvertAmount(std::string_view block)
{
    working_ = "<TRNAMT>";
    const Money amount = Money::Parse(scan::Value(block, working_, 0));
    working_.clear();
    return amount;
}

std::int32_t OfxReader::ConvertLong(std::string piece)
{
    working_ = std::move(piece);
    const std::int32_t number = ParseLong(working_);
    working_.clear();
    return number;
}

void OfxReader::Add(const StatementTransaction& transaction)
{
    rows_.AddNew();
    SetFields(transaction);
    ProvideBudgetLine(transaction.month);
    rows_.Update();
    ++counts_.added;
}

void OfxReader::SetFields(const StatementTransaction& transaction)
{
    rows_.Set(Row::AccountID, accountID_);
    rows_.Set(Row::Fitid, transaction.fitid);
    rows_.Set(Row::CheckID, transaction.checkID);
    rows_.Set(Row::Year, transaction.month.year);
    rows_.Set(Row::Period, transaction.month.period);
    rows_.Set(Row::PostDate, transaction.postDate);
    rows_.Set(Row::Amount, transaction.amount);
    rows_.Set(Row::Description, transaction.name);
    rows_.Set(Row::Notes, transaction.memo);
    rows_.Set(Row::Category, kNoCategory);
    rows_.Set(Row::Sequence, database_.GetNextSequence());
}

/// Creates a month's budget line at each change of month only, because the rows of a statement are
/// mostly in order of date.
void OfxReader::ProvideBudgetLine(Month month)
{
    if (month == last_)
        return;
    last_ = month;
    database_.CreateBudgetEntry(kNoCategory, month.year, month.period, kNoCategory, Money());
}

/// The text to show for an error: the text that was being converted or, if the book cannot take
/// more rows, the error's own message.
std::string WorkingText(const OfxReader& reader, const RuntimeError& error)
{
    const auto* const engine = dynamic_cast<const EngineError*>(&error);
    const bool refused = dynamic_cast<const NumbersUsedUp*>(&error) != nullptr ||
                         (engine != nullptr && engine->Number() == engine_errors::Constraint);
    return refused ? error.what() : reader.WorkingText();
}

}  // namespace

void modImport::ImportOFX(const std::string& path)
{
    ImportMarkup([&] { return ReadStatement(path); });
}

void modImport::ImportMarkup(const std::function<std::string()>& readText)
{
    BeginTexts();
    ReadMarkup(readText, Memos::Short, {});
    rows_.rows.Close();
}

void modImport::ImportText(const std::string& accountID, std::string text, Memos memos)
{
    ReadMarkup([&text] { return std::move(text); }, memos, accountID);
}

void modImport::ReadMarkup(const std::function<std::string()>& readText, Memos memos,
                           const std::optional<std::string>& accountID)
{
    OfxReader reader(database_, host_, counts_, memos, rows_);
    const auto succeeds = [&](const auto& read) {
        try {
            return read();
        } catch (const RuntimeError& error) {
            rows_.rows.Close();
            StoreBalances();
            messages_.Show("Invalid data was found while importing:\n" +
                               WorkingText(reader, error) + "\n" + reader.Text(),
                           box_style::Exclamation, product::kTitle);
            return false;
        }
    };
    // Any other error is not about the data of the statement and ends the command.
    if (!succeeds([&] { return reader.FindAccount(readText()); }))
        return;
    if (accountID) {
        reader.AccountID(*accountID);
    } else {
        KeepFileBeforeMapping(reader.AccountID());
        if (!succeeds([&] { return reader.CheckAccount(); }))
            return;
    }
    database_.Lock();
    if (!balancesNoted_)
        NoteFormerBalances();
    succeeds([&] {
        reader.ReadRows();
        return true;
    });
}

}  // namespace clb
