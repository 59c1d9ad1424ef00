#include "bench/BareSaving.h"

namespace clb {

BareSaving::BareSaving(BareDatabase& database, std::string account, Month month)
    : account_(std::move(account)),
      begin_(database.Prepare("BEGIN IMMEDIATE")),
      update_(database.Prepare("UPDATE Trans SET Amount = ?1 WHERE rowid = ?2")),
      sum_(database.Prepare("SELECT SUM(Amount) FROM Trans WHERE AccountID = ?1")),
      store_(database.Prepare("UPDATE Account SET CurrentBalance = ?2 WHERE AccountID = ?1")),
      opening_(database.Prepare("SELECT OpeningBalance FROM Account WHERE AccountID = ?1")),
      past_(database.Prepare("SELECT SUM(Amount) FROM Trans WHERE AccountID = ?1 AND (Year < ?2 OR "
                             "(Year = ?2 AND Period <= ?3))")),
      commit_(database.Prepare("COMMIT"))
{
    BareStatement rows = database.Prepare(
        "SELECT rowid FROM Trans WHERE AccountID = ?1 AND Year = ?2 AND Period = ?3 ORDER BY "
        "PostDate DESC, Sequence DESC, SubSequence");
    for (BareStatement* statement : {&rows, &sum_, &store_, &opening_, &past_})
        statement->Bind(1, account_);
    for (BareStatement* statement : {&rows, &past_}) {
        statement->Bind(2, std::int64_t{month.year});
        statement->Bind(3, std::int64_t{month.period});
    }
    while (rows.Step())
        rows_.push_back(rows.Integer(0));
}

std::int64_t BareSaving::Save(std::size_t row, std::int64_t amount)
{
    begin_.Step();
    update_.Bind(1, amount);
    update_.Bind(2, rows_.at(row));
    update_.Step();
    store_.Bind(2, sum_.One());
    store_.Step();
    const std::int64_t balance = opening_.One() + past_.One();
    commit_.Step();
    return balance;
}

}  // namespace clb
