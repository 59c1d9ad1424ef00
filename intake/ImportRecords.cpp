#include "intake/ImportRecords.h"

#include "data/clsDatabase.h"
#include "engine/rows/RawSql.h"

namespace clb {
namespace {

std::string Quoted(const std::string& text)
{
    return "'" + clsDatabase::ToSqlString(text) + "'";
}

std::string AmountOrNull(const std::optional<Money>& amount)
{
    return amount ? amount->ToText() : "NULL";
}

std::string AccountOf(const std::string& accountID)
{
    return "(SELECT min(Sequence) FROM Account WHERE AccountID = " + Quoted(accountID) + ")";
}

}  // namespace

bool ImportRecords::Exists()
{
    bool found = false;
    RawSql(database_.Database())
        .Select("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = 'CvImport'",
                [&found](const RawSql::Row&) { found = true; });
    return found;
}

void ImportRecords::Add(const ImportRecord& record)
{
    if (!Exists())
        database_.Execute(
            "CREATE TABLE CvImport (Import COUNTER PRIMARY KEY, [File] TEXT, Sha256 TEXT, At "
            "DATETIME, Account LONG, [Currency] TEXT, [Read] LONG, Added LONG, Known LONG, Refused "
            "LONG, Opening MONEY, Closing MONEY)");
    Recordset account;
    database_.Fill(account,
                   "SELECT Sequence FROM Account WHERE AccountID = " + Quoted(record.accountID),
                   true);
    const std::string sequence = account.Empty() ? "NULL" : ToText(account.Get(0));
    database_.Execute(
        "INSERT INTO CvImport ([File], Sha256, At, Account, [Currency], [Read], Added, Known, "
        "Refused, Opening, Closing) VALUES (" +
        Quoted(record.file) + ", " + Quoted(record.sha256) + ", #" + record.at.ToIso() + "#, " +
        sequence + ", " + Quoted(record.currency) + ", " + std::to_string(record.read) + ", " +
        std::to_string(record.added) + ", " + std::to_string(record.known) + ", " +
        std::to_string(record.refused) + ", " + AmountOrNull(record.opening) + ", " +
        AmountOrNull(record.closing) + ")");
}

std::string ImportRecords::CurrencyOf(const std::string& accountID)
{
    std::string currency;
    if (Exists())
        RawSql(database_.Database())
            .Select("SELECT Currency FROM CvImport WHERE Account = " + AccountOf(accountID) +
                        " AND Currency <> '' ORDER BY Import DESC LIMIT 1",
                    [&currency](const RawSql::Row& row) { currency = row.Text(0); });
    return currency;
}

}  // namespace clb
