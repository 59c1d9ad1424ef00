#include "export/modExport.h"

#include <algorithm>
#include <cstdio>
#include <fstream>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "data/OwnFile.h"
#include "data/clsDatabase.h"
#include "ports/IClock.h"
#include "ports/IFileDialog.h"
#include "views/clsView.h"

namespace clb {
namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kHeader[] = {
    "OFXHEADER:100", "DATA:OFXSGML",     "VERSION:102",     "SECURITY:NONE",   "ENCODING:USASCII",
    "CHARSET:1252",  "COMPRESSION:NONE", "OLDFILEUID:NONE", "NEWFILEUID:NONE", ""};

/// "YYYYMMDDhhmmss".
std::string Stamp(const Date& date)
{
    char buffer[48];
    const int length =
        std::snprintf(buffer, sizeof buffer, "%04d%02d%02d%02d%02d%02d", date.Year(), date.Month(),
                      date.Day(), date.Hour(), date.Minute(), date.Second());
    return {buffer, static_cast<std::size_t>(length)};
}

/// The statement while its rows are read: the transactions' text and what is summed up over them.
class Statement {
public:
    explicit Statement(std::string zone) : zone_(std::move(zone)) {}

    void Add(const Recordset& row)
    {
        ++count_;
        const Money amount = ToMoney(row.Get("Amount"));
        balance_ += amount;
        const std::string checkID = ToText(row.Get("CheckID"));
        std::string text = "<STMTTRN><TRNTYPE>";
        text += Type(checkID, amount);
        text += "<DTPOSTED>" + Posted(row.Get("PostDate")) + zone_;
        text += "<TRNAMT>" + (IsNull(row.Get("Amount")) ? std::string() : amount.ToText());
        text += "<FITID>" + Identifier(ToText(row.Get("FITID")));
        if (!checkID.empty())
            text += "<CHECKNUM>" + checkID;
        text += "<NAME>" + ToText(row.Get("Description"));
        text += "<MEMO>" + ToText(row.Get("PayeeName")) + "</STMTTRN>";
        transactions_ += ToWindows1252(text);
    }

    std::string Body(const std::string& account, const Date& now) const
    {
        const std::string present = Stamp(now) + zone_;
        return "<OFX><SIGNONMSGSRSV1><SONRS><STATUS><CODE>0<SEVERITY>INFO</STATUS><DTSERVER>" +
               present +
               "<LANGUAGE>ENG</SONRS></SIGNONMSGSRSV1><BANKMSGSRSV1><STMTTRNRS><TRNUID>0<STATUS>"
               "<CODE>0<SEVERITY>INFO</STATUS><STMTRS><CURDEF>USD<BANKACCTFROM><BANKID>000000000"
               "<ACCTID>" +
               ToWindows1252(account) + "<ACCTTYPE>CHECKING</BANKACCTFROM><BANKTRANLIST><DTSTART>" +
               Stamp(first_) + zone_ + "<DTEND>" + Stamp(last_) + zone_ + transactions_ +
               "</BANKTRANLIST><LEDGERBAL><BALAMT>" + balance_.ToText() + "<DTASOF>" + present +
               "</LEDGERBAL></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>";
    }

private:
    /// Every debit without a cheque number is a fee, on purpose.
    static const char* Type(const std::string& checkID, Money amount)
    {
        if (!checkID.empty())
            return "CHECK";
        return amount > Money() ? "CREDIT" : "FEE";
    }
    std::string Identifier(const std::string& fitid) const
    {
        return fitid.empty() ? "CVLB" + std::to_string(count_) : fitid;
    }
    std::string Posted(const Value& value)
    {
        const auto* date = std::get_if<Date>(&value);
        if (!date)
            return {};
        first_ = dated_ ? std::min(first_, *date) : *date;
        last_ = dated_ ? std::max(last_, *date) : *date;
        dated_ = true;
        return Stamp(*date);
    }

    std::string zone_;
    std::string transactions_;
    std::int32_t count_ = 0;
    Money balance_;
    Date first_;
    Date last_;
    bool dated_ = false;
};

}  // namespace

modExport::modExport(clsDatabase& database, clsView& view, IExportHost& host, const IClock& clock)
    : database_(database), view_(view), host_(host), clock_(clock)
{
}

void modExport::ExportOFX()
{
    constexpr std::int32_t flags =
        file_flags::OverwritePrompt + file_flags::HideReadOnly + file_flags::PathMustExist;
    const std::string path = host_.AskForSaveFile(flags, "Open Financial Exchange|*.ofx", "Export");
    if (!path.empty())
        WriteOFX(path);
}

void modExport::WriteOFX(const std::string& path)
{
    const std::string account = view_.AccountID();
    Recordset rows;
    database_.Fill(
        rows, "select * from Trans where AccountID = '" + clsDatabase::ToSqlString(account) + "'",
        true);
    MakeOwnFile(path);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    for (const char* line : kHeader)
        file << line << kLineEnd;

    Statement statement("[" + std::to_string(modCommon::TimeZoneOffset(clock_.Zone())) + "]");
    for (; !rows.AtEnd(); rows.MoveNext())
        statement.Add(rows);
    file << statement.Body(account, clock_.Now()) << kLineEnd;
    file.close();
    if (!file)
        throw RuntimeError(errors::PathAccess, "Path/File access error: " + path);
}

}  // namespace clb
