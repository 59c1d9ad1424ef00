// Reading QIF files:
//
//   "!Type:Bank" ... -> transactions: D T N M P L, "^" adds the row unless the account has it
//   any other "!"    -> categories:   N B, "^" makes a budget line of the month shown

#include <cmath>

#include "base/Date.h"
#include "base/MoneySum.h"
#include "base/Numeric.h"
#include "base/Product.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "data/NoCategory.h"
#include "data/clsDatabase.h"
#include "import/EarlierRecords.h"
#include "import/FileLines.h"
#include "import/Messages.h"
#include "import/StatementFile.h"
#include "import/modImport.h"
#include "ports/IClock.h"
#include "views/clsView.h"

namespace clb {
namespace {

constexpr std::int32_t kTextLength = 50;
/// After so many duplicates, the file probably repeats much of its account.
constexpr std::int32_t kManyDuplicates = 200;

enum class Section { Ignored, Transactions, Categories };

/// Compares the whole line. A header with anything after it has another kind.
Section SectionOf(std::string_view header)
{
    for (const char* known : {"!Type:Bank", "!Type:Cash", "!Type:CCard", "!Type:Oth L",
                              "!Type:Oth A", "!Type:Memorized", "!Type:Invst"})
        if (header == known)
            return Section::Transactions;
    return Section::Categories;
}

struct QifRecord {
    MoneySum sum;  ///< of the amounts read so far
    Money amount;  ///< the sum, after the record has ended
    std::string checkID;
    std::string memo;
    std::string payee;
    std::string category = kNoCategory;
    std::string group;
};

/// The account of an import, the identifier of its rows, and the format of its dates.
struct QifImport {
    std::string accountID;
    std::string identifier;  ///< differs from those of all earlier imports
    DateText::Order dateOrder = DateText::Order::MonthDayYear;
};

/// Reads one QIF file.
class QifReader {
public:
    QifReader(clsDatabase& database, const clsView& view, IImportHost& host, QifImport target,
              ImportCounts& counts)
        : database_(database),
          view_(view),
          host_(host),
          target_(std::move(target)),
          counts_(counts),
          earlier_(database, target_.accountID, target_.identifier)
    {
    }

    void Read(std::string_view text);
    /// The lines that could not be used, each with a line feed before it.
    [[nodiscard]] const std::string& Skipped() const { return skipped_; }
    /// Why the book could not take more rows; empty if it took all.
    [[nodiscard]] const std::string& UsedUp() const { return usedUp_; }

private:
    void HandleLine(std::string_view line);
    void HandleField(char letter, std::string_view value);
    void HandleCategoryField(char letter, std::string_view value);
    void EndRecord();
    void EndTransaction();
    void EndCategory();
    bool IsKnownDuplicate();
    [[nodiscard]] std::string DuplicateQuery() const;
    void AddRow(Recordset& rows, Month month);

    clsDatabase& database_;
    const clsView& view_;
    IImportHost& host_;
    QifImport target_;
    ImportCounts& counts_;
    EarlierRecords earlier_;
    Section section_ = Section::Ignored;
    QifRecord record_;
    Date postDate_;  // kept from record to record
    std::string skipped_;
    std::string usedUp_;
};

void QifReader::Read(std::string_view text)
{
    FileLines lines(text);
    bool ended = true;
    while (!lines.AtEnd()) {
        if (ended)
            record_ = QifRecord();
        const std::string_view line = lines.ReadLine();
        ended = line.starts_with('^');
        if (ended)
            host_.ImportProgress(lines.At(), text.size());
        try {
            HandleLine(line);
        } catch (const NumbersUsedUp& error) {
            skipped_ += "\n" + std::string(line);
            usedUp_ = error.what();
        } catch (const RuntimeError&) {
            skipped_ += "\n" + std::string(line);
        }
    }
}

void QifReader::HandleLine(std::string_view line)
{
    if (line.empty())
        return;
    const char letter = line.front();
    const std::string_view value = line.substr(1);
    if (letter == '!')
        section_ = SectionOf(line);
    else if (letter == '^')
        EndRecord();
    else if (section_ == Section::Transactions)
        HandleField(letter, value);
    else if (section_ == Section::Categories)
        HandleCategoryField(letter, value);
}

void QifReader::HandleField(char letter, std::string_view value)
{
    switch (letter) {
        case 'D': {
            const auto date = DateText::InOrder(Replace(value, "'", "/"), target_.dateOrder);
            if (!date)
                throw TypeMismatch();
            postDate_ = *date;
            break;
        }
        case 'T':
            if (IsNumeric(value))
                record_.sum = MoneySum(Money::Parse(value));
            break;
        case 'N': {
            const bool zero = IsNumeric(value) && std::nearbyint(ParseDouble(value)) == 0;
            record_.checkID = zero ? std::string() : std::string(value);
            break;
        }
        case 'M': record_.memo = clsDatabase::TruncateString(value, kTextLength); break;
        case 'P': record_.payee = clsDatabase::TruncateString(value, kTextLength); break;
        case 'L': record_.category = value; break;
        default: break;
    }
}

void QifReader::HandleCategoryField(char letter, std::string_view value)
{
    if (letter == 'N') {
        const auto pieces = Split(value, ':');
        if (pieces.size() < 2)
            return;
        record_.group = clsDatabase::TruncateString(pieces[0], kTextLength);
        record_.category = clsDatabase::TruncateString(pieces[1], kTextLength);
    } else if (letter == 'B' && IsNumeric(value)) {
        record_.sum += Money::Parse(value);
    }
}

void QifReader::EndRecord()
{
    record_.amount = record_.sum.Total();
    if (section_ == Section::Transactions)
        EndTransaction();
    else if (section_ == Section::Categories)
        EndCategory();
}

/// A quick check: true only if the account certainly has the record. A check number with a quote is
/// left to DuplicateQuery, where on purpose the quote is not doubled.
bool QifReader::IsKnownDuplicate()
{
    return counts_.duplicates >= kManyDuplicates &&
           record_.checkID.find('\'') == std::string::npos &&
           earlier_.Contains({postDate_, record_.amount, record_.memo, record_.checkID});
}

/// Selects the account's rows that equal this record. Rows of this import do not count, because one
/// file may contain two equal records.
std::string QifReader::DuplicateQuery() const
{
    const auto quoted = [](const std::string& text) {
        return "'" + clsDatabase::ToSqlString(text) + "'";
    };
    const std::string check =
        record_.checkID.empty() ? "" : " AND CheckID = '" + record_.checkID + "'";
    return "SELECT AccountID, FITID, PostDate, Amount, Description, CheckID, Period, Year, "
           "Category, PayeeName AS Notes, Sequence FROM Trans WHERE AccountID = " +
           quoted(target_.accountID) + " AND PostDate = #" + postDate_.ToIso() +
           "# AND Amount = " + record_.amount.ToText() + check +
           " AND PayeeName = " + quoted(record_.memo) + " AND FITID <> '" + target_.identifier +
           "'";
}

void QifReader::EndTransaction()
{
    Recordset rows;
    bool known = IsKnownDuplicate();
    if (!known) {
        database_.Fill(rows, DuplicateQuery(), false);
        known = !rows.Empty();
    }
    if (known) {
        ++counts_.duplicates;
        return;
    }
    const Month month{postDate_.Year(), postDate_.Month()};
    database_.CreateBudgetEntry(record_.category, month.year, month.period, kNoCategory, Money());
    AddRow(rows, month);
    ++counts_.added;
}

void QifReader::AddRow(Recordset& rows, Month month)
{
    rows.AddNew();
    rows.Set("AccountID", target_.accountID);
    rows.Set("FITID", target_.identifier);
    rows.Set("Year", month.year);
    rows.Set("Period", month.period);
    rows.Set("PostDate", postDate_);
    rows.Set("Amount", record_.amount);
    rows.Set("Description", record_.payee.empty() ? std::string("(Blank)") : record_.payee);
    rows.Set("Notes", record_.memo);
    rows.Set("CheckID", record_.checkID);
    rows.Set("Category", record_.category);
    rows.Set("Sequence", database_.GetNextSequence());
    rows.Update();
}

/// The budget line always goes into the month that is shown, even if the file names another one.
void QifReader::EndCategory()
{
    if (record_.category == kNoCategory && record_.amount == Money())
        return;
    database_.CreateBudgetEntry(record_.category, view_.Year(), view_.Period(), record_.group,
                                record_.amount);
}

}  // namespace

/// Date, time and tick count. Imports in the same tick also get a number, because a small file
/// takes less than a tick.
std::string modImport::NewRun()
{
    std::string run = clock_.Now().ToIso() + " " + std::to_string(clock_.TickCount());
    runsInTick_ = run == lastTick_ ? runsInTick_ + 1 : 1;
    lastTick_ = run;
    return runsInTick_ == 1 ? run : run + " (" + std::to_string(runsInTick_) + ")";
}

void modImport::ImportQIF(const std::string& path)
{
    counts_ = {};
    ForgetBalances();
    std::string accountID;
    if (!host_.CheckImportAccount(accountID))
        return;
    QifReader reader(database_, view_, host_, {accountID, NewRun(), dateOrder_}, counts_);
    const std::string text = ReadStatement(path);
    // Either all rows of the file are stored or none.
    database_.Database().Group();
    NoteFormerBalances();
    reader.Read(text);
    if (reader.Skipped().empty())
        return;
    StoreBalances();
    messages_.Show(kLinesSkipped + reader.Skipped(), box_style::Exclamation, product::kTitle);
    // The lines may be correct, so the reason is shown as well.
    if (!reader.UsedUp().empty())
        messages_.Show(reader.UsedUp(), box_style::Exclamation, product::kTitle);
}

}  // namespace clb
