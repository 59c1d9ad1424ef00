// The reference of the export: writes the same rows into the same file, without the program.
//
//   clb_bench_bare_export DATABASE ACCOUNT FILE NOW
//
// NOW is the present time as a stamp with its zone: 20060305120000[0].

#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>

#include "bench/Bare.h"

namespace clb {
namespace {

constexpr std::string_view kHeader =
    "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\nSECURITY:NONE\r\nENCODING:USASCII\r\n"
    "CHARSET:1252\r\nCOMPRESSION:NONE\r\nOLDFILEUID:NONE\r\nNEWFILEUID:NONE\r\n\r\n";

class BareExport {
public:
    BareExport(BareDatabase& database, std::string_view account, std::string_view now)
        : database_(database), account_(account), now_(now), zone_(now.substr(now.find('[')))
    {
    }

    void Write(const std::string& path)
    {
        BareStatement rows = database_.Prepare(
            "SELECT FITID, CheckID, PostDate, Amount, Description, PayeeName FROM Trans "
            "WHERE AccountID = ? ORDER BY rowid");
        rows.Bind(1, account_);
        while (rows.Step())
            Add(rows);
        std::ofstream file(path, std::ios::binary | std::ios::trunc);
        file << kHeader
             << "<OFX><SIGNONMSGSRSV1><SONRS><STATUS><CODE>0<SEVERITY>INFO</STATUS><DTSERVER>"
             << now_
             << "<LANGUAGE>ENG</SONRS></SIGNONMSGSRSV1><BANKMSGSRSV1><STMTTRNRS><TRNUID>0<STATUS>"
                "<CODE>0<SEVERITY>INFO</STATUS><STMTRS><CURDEF>USD<BANKACCTFROM><BANKID>000000000"
                "<ACCTID>"
             << account_ << "<ACCTTYPE>CHECKING</BANKACCTFROM><BANKTRANLIST><DTSTART>" << first_
             << zone_ << "<DTEND>" << last_ << zone_ << text_
             << "</BANKTRANLIST><LEDGERBAL><BALAMT>" << Plain(balance_) << "<DTASOF>" << now_
             << "</LEDGERBAL></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>\r\n";
        if (!file.flush())
            throw std::runtime_error("cannot write " + path);
    }

private:
    void Add(BareStatement& row)
    {
        ++count_;
        const std::string_view check = row.Text(1);
        const std::int64_t amount = row.Integer(3);
        balance_ += amount;
        text_.append("<STMTTRN><TRNTYPE>")
            .append(!check.empty() ? "CHECK"
                    : amount > 0   ? "CREDIT"
                                   : "FEE")
            .append("<DTPOSTED>");
        const std::size_t stamp = text_.size();
        for (const char c : row.Text(2))
            if (c != '-')
                text_ += c;
        text_.append("000000");
        const std::string_view posted = std::string_view(text_).substr(stamp);
        if (first_.empty() || posted < first_)
            first_ = posted;
        if (posted > last_)
            last_ = posted;
        text_.append(zone_).append("<TRNAMT>").append(Plain(amount)).append("<FITID>");
        if (row.Text(0).empty())
            text_.append("CVLB").append(std::to_string(count_));
        else
            text_.append(row.Text(0));
        if (!check.empty())
            text_.append("<CHECKNUM>").append(check);
        text_.append("<NAME>").append(row.Text(4)).append("<MEMO>").append(row.Text(5));
        text_.append("</STMTTRN>");
    }

    /// Writes 1/10000 units without trailing zeros.
    static std::string Plain(std::int64_t amount)
    {
        std::string text = std::to_string((amount < 0 ? -amount : amount) / 10000);
        if (std::int64_t part = (amount < 0 ? -amount : amount) % 10000; part != 0) {
            std::string decimals = std::to_string(10000 + part).substr(1);
            text += "." + decimals.substr(0, decimals.find_last_not_of('0') + 1);
        }
        return amount < 0 ? "-" + text : text;
    }

    BareDatabase& database_;
    std::string_view account_;
    std::string_view now_;
    std::string_view zone_;
    std::string text_;
    std::string first_;
    std::string last_;
    std::int64_t count_ = 0;
    std::int64_t balance_ = 0;
};

}  // namespace
}  // namespace clb

int main(int argc, char** argv)
{
    if (argc != 5) {
        std::cerr << "usage: clb_bench_bare_export DATABASE ACCOUNT FILE NOW\n";
        return 2;
    }
    try {
        clb::BareDatabase database(argv[1]);
        clb::BareExport(database, argv[2], argv[4]).Write(argv[3]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "clb_bench_bare_export: " << error.what() << '\n';
        return 1;
    }
}
