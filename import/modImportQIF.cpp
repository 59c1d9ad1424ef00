// Reading QIF files:
//
//   "!Type:Bank" ... -> transactions: D T N M P L, "^" adds the row unless the account holds it
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
/// From so many on, a file is taken for one that repeats much of its account.
constexpr std::int32_t kManyDuplicates = 200;

enum class Section { Ignored, Transactions, Categories };

/// Compared with the whole line: a header with anything behind it is one of another kind.
Section SectionOf(std::string_view header)
{
    for (const char* known : {"!Type:Bank", "!Type:Cash", "!Type:CCard", "!Type:Oth L",
                              "!Type:Oth A", "!Type:Memorized", "!Type:Invst"})
        if (header == known)
            return Section::Transactions;
    return Section::Categories;
}

struct QifRecord {
    MoneySum sum;  ///< of the amounts so far
    Money amount;  ///< the sum, once the record has ended
    std::string checkID;
    std::string memo;
    std::string payee;
    std::string category = kNoCategory;
    std::string group;
};

/// Where the rows of a run go and how its dates are read.
struct QifRun {
    std::string accountID;
    std::string identifier;  ///< tells its rows from those that were there before
    DateText::Order dateOrder = DateText::Order::MonthDayYear;
};

/// One run over one QIF file.
class QifReader {
public:
    QifReader(clsDatabase& database, const clsView& view, IImportHost& host, QifRun run,
              ImportCounts& counts)
        : database_(database),
          view_(view),
          host_(host),
          run_(std::move(run)),
          counts_(counts),
          held_(database, run_.accountID, run_.identifier)
    {
    }

    void Read(std::string_view text);
    /// The lines that could not be used, each after a line feed.
    const std::string& Skipped() const { return skipped_; }
    /// Why the book took no more rows; empty if it took all.
    const std::string& UsedUp() const { return usedUp_; }

private:
    void HandleLine(std::string_view line);
    void HandleField(char letter, std::string_view value);
    void HandleCategoryField(char letter, std::string_view value);
    void EndRecord();
    void EndTransaction();
    void EndCategory();
    bool IsHeld();
    std::string DuplicateQuery() const;
    void AddRow(Recordset& rows, Month month);

    clsDatabase& database_;
    const clsView& view_;
    IImportHost& host_;
    QifRun run_;
    ImportCounts& counts_;
    HeldRecords held_;
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
            const auto date = DateText::InOrder(Replace(value, "'", "/"), run_.dateOrder);
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

/// Sure of what is there only. On purpose a check number stands undoubled in the query: a quote in
/// it is left to that.
bool QifReader::IsHeld()
{
    return counts_.duplicates >= kManyDuplicates &&
           record_.checkID.find('\'') == std::string::npos &&
           held_.Hold({postDate_, record_.amount, record_.memo, record_.checkID});
}

/// The account's rows that are this record, but for those of this run: one file may hold two equal
/// records.
std::string QifReader::DuplicateQuery() const
{
    const auto quoted = [](const std::string& text) {
        return "'" + clsDatabase::ToSqlString(text) + "'";
    };
    const std::string check =
        record_.checkID.empty() ? "" : " AND CheckID = '" + record_.checkID + "'";
    return "SELECT AccountID, FITID, PostDate, Amount, Description, CheckID, Period, Year, "
           "Category, PayeeName AS Notes, Sequence FROM Trans WHERE AccountID = " +
           quoted(run_.accountID) + " AND PostDate = #" + postDate_.ToIso() +
           "# AND Amount = " + record_.amount.ToText() + check +
           " AND PayeeName = " + quoted(record_.memo) + " AND FITID <> '" + run_.identifier + "'";
}

void QifReader::EndTransaction()
{
    Recordset rows;
    bool held = IsHeld();
    if (!held) {
        database_.Fill(rows, DuplicateQuery(), false);
        held = !rows.Empty();
    }
    if (held) {
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
    rows.Set("AccountID", run_.accountID);
    rows.Set("FITID", run_.identifier);
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

/// Always into the month that is shown, whatever the file says.
void QifReader::EndCategory()
{
    if (record_.category == kNoCategory && record_.amount == Money())
        return;
    database_.CreateBudgetEntry(record_.category, view_.Year(), view_.Period(), record_.group,
                                record_.amount);
}

}  // namespace

/// Date, time and tick count; numbered where it is the last one's tick: small files take less.
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
    // The file is kept whole or not at all.
    database_.Database().Group();
    NoteFormerBalances();
    reader.Read(text);
    if (reader.Skipped().empty())
        return;
    StoreBalances();
    messages_.Show(kLinesSkipped + reader.Skipped(), box_style::Exclamation, product::kTitle);
    // The lines alone do not say that nothing is wrong with them.
    if (!reader.UsedUp().empty())
        messages_.Show(reader.UsedUp(), box_style::Exclamation, product::kTitle);
}

}  // namespace clb
