#include "bench/BareRows.h"

namespace clb {

BareRows::BareRows(BareDatabase& database)
    : database_(database),
      largest_(database.Prepare("SELECT MAX(Sequence) FROM Trans")),
      insert_(database.Prepare(
          "INSERT INTO Trans (AccountID, FITID, CheckID, Year, Period, PostDate, Amount, "
          "Description, PayeeName, Category, Sequence) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")),
      hasLine_(database.Prepare(
          "SELECT COUNT(*) FROM Budget WHERE Year = ? AND Period = ? AND Category = ?")),
      addLine_(database.Prepare("INSERT INTO Budget (Year, Period, Category, CategoryGroup, "
                                "Amount) VALUES (?, ?, ?, ?, 0)"))
{
}

void BareRows::Add(const BareTransaction& transaction)
{
    const std::int64_t sequence = largest_.One() + 1;
    insert_.Bind(1, transaction.account);
    insert_.Bind(2, transaction.identifier);
    insert_.Bind(3, transaction.check);
    insert_.Bind(4, transaction.year);
    insert_.Bind(5, transaction.period);
    insert_.Bind(6, transaction.date);
    insert_.Bind(7, transaction.amount);
    insert_.Bind(8, transaction.description);
    insert_.Bind(9, transaction.memo);
    insert_.Bind(10, transaction.category);
    insert_.Bind(11, sequence);
    insert_.Step();
}

void BareRows::ProvideBudgetLine(std::int64_t year, std::int64_t period, std::string_view category,
                                 std::string_view group)
{
    for (BareStatement* statement : {&hasLine_, &addLine_}) {
        statement->Bind(1, year);
        statement->Bind(2, period);
        statement->Bind(3, category);
    }
    addLine_.Bind(4, group);
    if (hasLine_.One() == 0)
        addLine_.Step();
}

void BareRows::Rebalance()
{
    database_.Run(
        "UPDATE Account SET CurrentBalance = (SELECT COALESCE(SUM(Amount), 0) FROM Trans WHERE "
        "Trans.AccountID = Account.AccountID)");
}

}  // namespace clb
