#include "bench/Statement.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <random>
#include <stdexcept>

#include "base/Date.h"

namespace clb {
namespace {

constexpr std::int32_t kDays = 3653;  // 2000 to 2009
constexpr const char* kFirstDay = "2000-01-01";

constexpr std::array kShops = {"CORNER GROCERY",    "RIVERSIDE PHARMACY", "CITY WATER WORKS",
                               "NORTH END BAKERY",  "GREEN LANE GARAGE",  "HARBOUR BOOKS",
                               "OLD MILL HARDWARE", "STATION CAFE",       "PARK STREET CLINIC",
                               "COUNTY ELECTRIC",   "MAPLE HILL SCHOOL",  "BLUE DOOR RESTAURANT"};
constexpr std::array kMemos = {
    "", "CARD PURCHASE", "STANDING ORDER", "REF 00417 THANK YOU",
    "POINT OF SALE PURCHASE, CARD ENDING IN 4417, TERMINAL 0092 AT THE MAIN ENTRANCE"};

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

class StatementWriter {
public:
    StatementWriter(std::ostream& out, std::int32_t count, const std::string& account)
        : out_(out), count_(count), account_(account)
    {
    }

    void Write()
    {
        out_ << kHeader << account_ << kBehindAccount;
        for (std::int32_t number = 0; number < count_; ++number)
            WriteTransaction(number);
        out_ << kFooter;
    }

private:
    std::uint32_t Below(std::uint32_t limit)
    {
        return static_cast<std::uint32_t>(random_() % limit);
    }
    template <typename Texts>
    const char* OneOf(const Texts& texts)
    {
        return texts[Below(static_cast<std::uint32_t>(texts.size()))];
    }

    [[nodiscard]] std::string Day(std::int32_t number) const
    {
        const auto days = std::int64_t{number} * kDays / count_;
        const Date day =
            Date::FromDays(Date::FromIso(kFirstDay)->Days() + static_cast<std::int32_t>(days));
        std::array<char, 40> text{};
        std::snprintf(text.data(), text.size(), "%04d%02d%02d", day.Year(), day.Month(), day.Day());
        return text.data();
    }

    std::string Amount(bool in)
    {
        std::array<char, 40> text{};
        std::snprintf(text.data(), text.size(), "%s%u.%02u", in ? "" : "-", Below(in ? 3000 : 300),
                      Below(100));
        return text.data();
    }

    void WriteTransaction(std::int32_t number)
    {
        const std::string day = Day(number);
        const std::uint32_t kind = Below(10);
        out_ << "<STMTTRN>\r\n<TRNTYPE>"
             << (kind == 0   ? "CHECK"
                 : kind == 1 ? "CREDIT"
                             : "DEBIT")
             << "\r\n<DTPOSTED>" << day << "120000\r\n<TRNAMT>" << Amount(kind == 1)
             << "\r\n<FITID>" << day << '.' << 1000000 + number << "\r\n";
        if (kind == 0)
            out_ << "<CHECKNUM>" << 100 + number % 9000 << "\r\n";
        out_ << "<NAME>" << OneOf(kShops) << " #" << 100 + Below(800) << "\r\n";
        const std::string memo = OneOf(kMemos);
        if (!memo.empty())
            out_ << "<MEMO>" << memo << "\r\n";
        out_ << "</STMTTRN>\r\n";
    }

    std::ostream& out_;
    std::int32_t count_;
    std::string account_;
    std::mt19937 random_{20060305};
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
        const auto days = std::int64_t{number} * kDays / count_;
        const Date day =
            Date::FromDays(Date::FromIso(kFirstDay)->Days() + static_cast<std::int32_t>(days));
        // No two transactions of a day are equal: their cents differ.
        out_ << 'D' << day.Month() << '/' << day.Day() << '/' << day.Year() << "\r\nT-"
             << Below(300) << '.' << 1000 + number % 9000 << "\r\n";
        if (Below(10) == 0)
            out_ << 'N' << 100 + number % 9000 << "\r\n";
        out_ << 'P' << kShops[Below(kShops.size())] << " #" << 100 + Below(800) << "\r\n";
        const std::string memo = kMemos[Below(kMemos.size())];
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
