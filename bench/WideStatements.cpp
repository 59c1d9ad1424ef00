#include "bench/WideStatements.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "bench/MadeRows.h"

namespace clb {
namespace {

constexpr const char* kAccount = "4417-0092-331";

std::string AmountText(std::int64_t cents, char mark)
{
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%s%lld%c%02lld", cents < 0 ? "-" : "",
                  std::llabs(cents) / 100, mark, std::llabs(cents) % 100);
    return text.data();
}

std::string Unsigned(std::int64_t cents, char mark)
{
    return AmountText(std::llabs(cents), mark);
}

void WriteOfxXml(std::ostream& out, std::int32_t count)
{
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>\n"
           "<?OFX OFXHEADER=\"200\" VERSION=\"211\" SECURITY=\"NONE\" OLDFILEUID=\"NONE\" "
           "NEWFILEUID=\"NONE\"?>\n<OFX>\n"
           "<SIGNONMSGSRSV1><SONRS><STATUS><CODE>0</CODE><SEVERITY>INFO</SEVERITY></STATUS>"
           "<DTSERVER>20100101120000</DTSERVER><LANGUAGE>ENG</LANGUAGE></SONRS></SIGNONMSGSRSV1>\n"
           "<BANKMSGSRSV1><STMTTRNRS><TRNUID>1</TRNUID><STATUS><CODE>0</CODE>"
           "<SEVERITY>INFO</SEVERITY></STATUS>\n<STMTRS><CURDEF>USD</CURDEF>"
           "<BANKACCTFROM><BANKID>021000</BANKID><ACCTID>"
        << kAccount
        << "</ACCTID><ACCTTYPE>CHECKING</ACCTTYPE></BANKACCTFROM>\n"
           "<BANKTRANLIST><DTSTART>20000101</DTSTART><DTEND>20091231</DTEND>\n";
    MadeRows rows(count);
    while (const auto row = rows.Next()) {
        out << "<STMTTRN>\n  <TRNTYPE>"
            << (!row->check.empty() ? "CHECK"
                : row->cents > 0    ? "CREDIT"
                                    : "DEBIT")
            << "</TRNTYPE>\n  <DTPOSTED>" << row->Day("") << "120000</DTPOSTED>\n  <TRNAMT>"
            << row->amount << "</TRNAMT>\n  <FITID>" << row->identifier << "</FITID>\n";
        if (!row->check.empty())
            out << "  <CHECKNUM>" << row->check << "</CHECKNUM>\n";
        out << "  <NAME>" << row->name << "</NAME>\n";
        if (!row->memo.empty())
            out << "  <MEMO>" << row->memo << "</MEMO>\n";
        out << "</STMTTRN>\n";
    }
    out << "</BANKTRANLIST><LEDGERBAL><BALAMT>0.00</BALAMT><DTASOF>20091231</DTASOF></LEDGERBAL>\n"
           "</STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>\n";
}

void WriteCsv(std::ostream& out, std::int32_t count)
{
    out << "\"Booking Date\";\"Payee\";\"Description\";\"Check Number\";\"Amount\";\"Balance\"\r\n";
    MadeRows rows(count);
    std::int64_t balance = 0;
    while (const auto row = rows.Next()) {
        balance += row->cents;
        std::array<char, 40> day{};
        std::snprintf(day.data(), day.size(), "%02d.%02d.%04d", row->date.Day(), row->date.Month(),
                      row->date.Year());
        out << '"' << day.data() << "\";\"" << row->name << "\";\"" << row->memo << "\";\""
            << row->check << "\";\"" << AmountText(row->cents, ',') << "\";\""
            << AmountText(balance, ',') << "\"\r\n";
    }
}

/// A file with a statement for each day.
class DailyWriter {
public:
    DailyWriter(std::ostream& out, std::int32_t count) : out_(out), rows_(count) {}
    virtual ~DailyWriter() = default;
    DailyWriter(const DailyWriter&) = delete;
    DailyWriter& operator=(const DailyWriter&) = delete;

    void Write()
    {
        Begin();
        std::optional<MadeRow> last;
        while (auto row = rows_.Next()) {
            if (!last || last->date != row->date) {
                if (last)
                    EndDay(*last);
                ++number_;
                BeginDay(*row);
            }
            balance_ += row->cents;
            Transaction(*row);
            last = std::move(row);
        }
        if (last)
            EndDay(*last);
        End();
    }

protected:
    virtual void Begin() {}
    virtual void BeginDay(const MadeRow& first) = 0;
    virtual void Transaction(const MadeRow& row) = 0;
    virtual void EndDay(const MadeRow& last) = 0;
    virtual void End() {}

    std::ostream& Out() { return out_; }
    [[nodiscard]] std::int64_t Balance() const { return balance_; }
    [[nodiscard]] int Number() const { return number_; }

private:
    std::ostream& out_;
    MadeRows rows_;
    std::int64_t balance_ = 0;
    int number_ = 0;
};

class CamtWriter : public DailyWriter {
public:
    using DailyWriter::DailyWriter;

private:
    void Begin() override
    {
        Out() << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                 "<Document xmlns=\"urn:iso:std:iso:20022:tech:xsd:camt.053.001.02\">\n"
                 "<BkToCstmrStmt>\n<GrpHdr><MsgId>1</MsgId>"
                 "<CreDtTm>2010-01-01T12:00:00</CreDtTm></GrpHdr>\n";
    }
    void BeginDay(const MadeRow& first) override
    {
        Out() << "<Stmt>\n  <Id>" << Number() << "</Id>\n  <Acct><Id><Othr><Id>" << kAccount
              << "</Id></Othr></Id><Ccy>USD</Ccy></Acct>\n";
        WriteBalance("OPBD", first);
    }
    void Transaction(const MadeRow& row) override
    {
        const char* party = row.cents < 0 ? "Cdtr" : "Dbtr";
        Out() << "  <Ntry>\n    <Amt Ccy=\"USD\">" << Unsigned(row.cents, '.')
              << "</Amt>\n    <CdtDbtInd>" << (row.cents < 0 ? "DBIT" : "CRDT")
              << "</CdtDbtInd>\n    <Sts>BOOK</Sts>\n    <BookgDt><Dt>" << row.Day("-")
              << "</Dt></BookgDt>\n    <ValDt><Dt>" << row.Day("-")
              << "</Dt></ValDt>\n    <AcctSvcrRef>" << row.identifier
              << "</AcctSvcrRef>\n    <NtryDtls>\n      <TxDtls>\n        <Refs>";
        if (row.check.empty())
            Out() << "<EndToEndId>NOTPROVIDED</EndToEndId>";
        else
            Out() << "<ChqNb>" << row.check << "</ChqNb>";
        Out() << "</Refs>\n        <RltdPties><" << party << "><Nm>" << row.name << "</Nm></"
              << party << "></RltdPties>\n";
        if (!row.memo.empty())
            Out() << "        <RmtInf><Ustrd>" << row.memo << "</Ustrd></RmtInf>\n";
        Out() << "      </TxDtls>\n    </NtryDtls>\n  </Ntry>\n";
    }
    void EndDay(const MadeRow& last) override
    {
        WriteBalance("CLBD", last);
        Out() << "</Stmt>\n";
    }
    void End() override { Out() << "</BkToCstmrStmt>\n</Document>\n"; }

    void WriteBalance(const char* code, const MadeRow& row)
    {
        Out() << "  <Bal><Tp><CdOrPrtry><Cd>" << code << "</Cd></CdOrPrtry></Tp><Amt Ccy=\"USD\">"
              << Unsigned(Balance(), '.') << "</Amt><CdtDbtInd>"
              << (Balance() < 0 ? "DBIT" : "CRDT") << "</CdtDbtInd><Dt><Dt>" << row.Day("-")
              << "</Dt></Dt></Bal>\n";
    }
};

class Mt940Writer : public DailyWriter {
public:
    using DailyWriter::DailyWriter;

private:
    void BeginDay(const MadeRow& first) override
    {
        Out() << ":20:STMT" << Number() << "\r\n:25:" << kAccount << "\r\n:28C:" << Number()
              << "/1\r\n";
        WriteBalance(":60F:", first);
    }
    void Transaction(const MadeRow& row) override
    {
        const std::string day = row.Day("").substr(2);
        Out() << ":61:" << day << day.substr(2) << (row.cents < 0 ? 'D' : 'C')
              << Unsigned(row.cents, ',') << (row.check.empty() ? "NTRF" : "NCHK")
              << (row.check.empty() ? "NONREF" : row.check) << "//" << row.identifier.substr(2)
              << "\r\n:86:166?00TRANSFER";
        for (std::size_t at = 0; at < row.memo.size(); at += kFieldLength)
            Out() << '?' << 20 + at / kFieldLength << row.memo.substr(at, kFieldLength);
        Out() << "?32" << row.name << "\r\n";
    }
    void EndDay(const MadeRow& last) override
    {
        WriteBalance(":62F:", last);
        Out() << "-\r\n";
    }

    void WriteBalance(const char* tag, const MadeRow& row)
    {
        Out() << tag << (Balance() < 0 ? 'D' : 'C') << row.Day("").substr(2) << "USD"
              << Unsigned(Balance(), ',') << "\r\n";
    }

    static constexpr std::size_t kFieldLength = 27;
};

}  // namespace

const char* NameOf(WideKind kind)
{
    switch (kind) {
        case WideKind::OfxXml: return "ofx";
        case WideKind::Csv: return "csv";
        case WideKind::Camt: return "camt";
        default: return "mt940";
    }
}

void WriteWide(WideKind kind, const std::string& path, std::int32_t transactions)
{
    std::ofstream out(path, std::ios::binary);
    switch (kind) {
        case WideKind::OfxXml: WriteOfxXml(out, transactions); break;
        case WideKind::Csv: WriteCsv(out, transactions); break;
        case WideKind::Camt: CamtWriter(out, transactions).Write(); break;
        case WideKind::Mt940: Mt940Writer(out, transactions).Write(); break;
    }
    out.close();
    if (!out)
        throw std::runtime_error("cannot write " + path);
}

}  // namespace clb
