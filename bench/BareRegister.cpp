#include "bench/BareRegister.h"

namespace clb {
namespace {

constexpr int kTexts[] = {0, 1, 3, 4, 5, 6, 9};
constexpr int kNumbers[] = {2, 7, 8, 10, 11};

}  // namespace

// The plus prevents the order of the rows from choosing the index: the month is looked up first,
// whatever indices there are.
BareRegister::BareRegister(BareDatabase& database)
    : rows_(database.Prepare(
          "SELECT PostDate, Description, Amount, CheckID, Category, PayeeName, AccountID, Year, "
          "Period, FITID, Sequence, SubSequence FROM Trans WHERE AccountID = ?1 AND Period = ?3 "
          "AND Year = ?2 ORDER BY +PostDate DESC, Sequence DESC, SubSequence")),
      opening_(database.Prepare("SELECT OpeningBalance FROM Account WHERE AccountID = ?1")),
      past_(database.Prepare("SELECT SUM(Amount) FROM Trans WHERE AccountID = ?1 AND (Year < ?2 OR "
                             "(Year = ?2 AND Period <= ?3))"))
{
}

BareRegister::Result BareRegister::Read(const std::string& account, Month month)
{
    Result result;
    for (BareStatement* statement : {&rows_, &opening_, &past_})
        statement->Bind(1, account);
    for (BareStatement* statement : {&rows_, &past_}) {
        statement->Bind(2, std::int64_t{month.year});
        statement->Bind(3, std::int64_t{month.period});
    }
    for (; rows_.Step(); ++result.rows) {
        for (const int column : kTexts) {
            const std::string_view text = rows_.Text(column);
            result.read += text.size() + static_cast<unsigned char>(text.empty() ? 0 : text.back());
        }
        for (const int column : kNumbers)
            result.read += static_cast<std::uint64_t>(rows_.Integer(column));
    }
    result.balance = opening_.One() + past_.One();
    return result;
}

}  // namespace clb
