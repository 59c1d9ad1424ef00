#include "tests/stress/StressBook.h"

#include <stdexcept>

#include "tests/stress/ClbProcess.h"
#include "tests/stress/Session.h"

namespace clb {
namespace {

constexpr int kRows = 120;

void RunClb(const std::vector<std::string>& arguments)
{
    ClbProcess process(arguments);
    if (process.Wait() != 0)
        throw std::runtime_error(process.Story());
}

std::vector<StressRow> FirstRows(const std::string& account)
{
    std::vector<StressRow> rows;
    rows.reserve(kRows);
    for (int n = 0; n < kRows; ++n)
        rows.push_back({account + "-first-" + std::to_string(n),
                        std::to_string(20060101 + n % 3 * 100 + n % 28),
                        (std::int64_t{n} * 37 - 2000) * 100});
    return rows;
}

}  // namespace

std::string StatementText(const std::string& account, const std::vector<StressRow>& rows)
{
    std::string text =
        "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n<OFX>\r\n<ACCTID>" + account + "\r\n";
    for (const StressRow& row : rows)
        text += "<STMTTRN><DTPOSTED>" + row.date + "<TRNAMT>" + AmountText(row.amount) + "<FITID>" +
                row.fitid + "<NAME>" + DescriptionOf(row) + "</STMTTRN>\r\n";
    return text + "</OFX>\r\n";
}

void MakeStressBook(const TempFolder& folder, const std::string& name)
{
    const std::string book = folder.Path(name);
    RunClb({"new", book});
    for (const StressAccount& account : kStressAccounts) {
        const std::string number = account.number;
        RunClb({"sql", book,
                "INSERT INTO Account (AccountID, Description, Type) VALUES ('" + number + "', '" +
                    account.name + "', 'Bank')"});
        RunClb({"import", "--home", book,
                folder.Write(number + ".ofx", StatementText(number, FirstRows(number)))});
    }
}

}  // namespace clb
