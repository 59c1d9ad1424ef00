#include "bench/Statement.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <random>
#include <stdexcept>

#include "bench/MadeRows.h"

namespace clb {
namespace {

constexpr const char* kHeader =
    "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\nSECURITY:NONE\r\nENCODING:USASCII\r\n"
    "CHARSET:1252\r\nCOMPRESSION:NONE\r\nOLDFILEUID:NONE\r\nNEWFILEUID:NONE\r\n\r\n"
    "<OFX>\r\n<SIGNONMSGSRSV1><SONRS>\r\n<STATUS><CODE>0<SEVERITY>INFO</STATUS>\r\n"
    "<DTSERVER>20100101120000\r\n<LANGUAGE>ENG\r\n</SONRS></SIGNONMSGSRSV1>\r\n"
    "<BANKMSGSRSV1><STMTTRNRS>\r\n<TRNUID>1\r\n<STATUS><CODE>0<SEVERITY>INFO</STATUS>\r\n"
    "<STMTRS>\r\n<CURDEF>USD\r\n<BANKACCTFROM>\r\n<BANKID>021000\r\n<ACCTID>";
constexpr const char* kBehindAccount =
    "\r\n<ACCTTYPE>CHECKING\r\n</BANKACCTFROM>\r\n"
    "<BANKTRANLIST>\r\n<DTSTART>20000101\r\n<DTEND>20091231\r\n";
constexpr const char* kFooter =
    "</BANKTRANLIST>\r\n<LEDGERBAL>\r\n<BALAMT>0.00\r\n<DTASOF>20091231\r\n</LEDGERBAL>\r\n"
    "</STMTRS>\r\n</STMTTRNRS></BANKMSGSRSV1>\r\n</OFX>\r\n";

/// Writes the rows as a file of OFX 1.02.
class StatementWriter {
public:
    StatementWriter(std::ostream& out, std::int32_t count, const std::string& account)
        : out_(out), rows_(count), account_(account)
    {
    }

    void Write()
    {
        out_ << kHeader << account_ << kBehindAccount;
        while (const auto row = rows_.Next())
            WriteTransaction(*row);
        out_ << kFooter;
    }

private:
    void WriteTransaction(const MadeRow& row)
    {
        out_ << "<STMTTRN>\r\n<TRNTYPE>"
             << (!row.check.empty()          ? "CHECK"
                 : row.amount.front() != '-' ? "CREDIT"
                                             : "DEBIT")
             << "\r\n<DTPOSTED>" << row.Day("") << "120000\r\n<TRNAMT>" << row.amount
             << "\r\n<FITID>" << row.identifier << "\r\n";
        if (!row.check.empty())
            out_ << "<CHECKNUM>" << row.check << "\r\n";
        out_ << "<NAME>" << row.name << "\r\n";
        if (!row.memo.empty())
            out_ << "<MEMO>" << row.memo << "\r\n";
        out_ << "</STMTTRN>\r\n";
    }

    std::ostream& out_;
    MadeRows rows_;
    std::string account_;
};

constexpr std::array kCategories = {"Groceries", "Health",  "Water",  "Household", "Car",
                                    "Books",     "Repairs", "School", "Restaurant"};

class QifWriter {
public:
    QifWriter(std::ostream& out, std::int32_t count) : out_(out), count_(count) {}

    void Write()
    {
        out_ << "!Type:Bank\r\n";
        for (std::int32_t number = 0; number < count_; ++number)
            WriteRecord(number);
    }

private:
    std::uint32_t Below(std::uint32_t limit)
    {
        return static_cast<std::uint32_t>(random_() % limit);
    }

    void WriteRecord(std::int32_t number)
    {
        const Date day = MadeDay(number, count_);
        // No two transactions of a day are equal: their cents differ.
        out_ << 'D' << day.Month() << '/' << day.Day() << '/' << day.Year() << "\r\nT-"
             << Below(300) << '.' << 1000 + number % 9000 << "\r\n";
        if (Below(10) == 0)
            out_ << 'N' << 100 + number % 9000 << "\r\n";
        out_ << 'P' << kMadeNames[Below(kMadeNames.size())] << " #" << 100 + Below(800) << "\r\n";
        const std::string memo = kMadeMemos[Below(kMadeMemos.size())];
        if (!memo.empty())
            out_ << 'M' << memo << "\r\n";
        out_ << 'L' << kCategories[Below(kCategories.size())] << "\r\n^\r\n";
    }

    std::ostream& out_;
    std::int32_t count_;
    std::mt19937 random_{20060305};
};

template <typename Writer, typename... More>
void WriteFile(const std::string& path, std::int32_t transactions, const More&... more)
{
    std::ofstream out(path, std::ios::binary);
    Writer(out, transactions, more...).Write();
    out.close();
    if (!out)
        throw std::runtime_error("cannot write " + path);
}

}  // namespace

void WriteStatement(const std::string& path, std::int32_t transactions, const std::string& account)
{
    WriteFile<StatementWriter>(path, transactions, account);
}

void WriteQif(const std::string& path, std::int32_t transactions)
{
    WriteFile<QifWriter>(path, transactions);
}

}  // namespace clb
