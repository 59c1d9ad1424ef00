#include "export/modExport.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <optional>
#include <ostream>
#include <sstream>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "data/clsDatabase.h"
#include "engine/rows/RowWalk.h"
#include "export/ExportLosses.h"
#include "files/FileError.h"
#include "files/WholeFile.h"
#include "ports/IClock.h"
#include "ports/IFileDialog.h"
#include "views/clsView.h"

namespace clb {
namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kHeader[] = {
    "OFXHEADER:100", "DATA:OFXSGML",     "VERSION:102",     "SECURITY:NONE",   "ENCODING:USASCII",
    "CHARSET:1252",  "COMPRESSION:NONE", "OLDFILEUID:NONE", "NEWFILEUID:NONE", ""};

/// The header lines with their ends.
std::string Header()
{
    std::string header;
    for (const char* line : kHeader)
        header.append(line).append(kLineEnd);
    return header;
}

RuntimeError CannotExport(const std::string& path)
{
    return {errors::PathAccess, "Path/File access error: " + path};
}

/// Leaves only the header of a statement whose rows cannot be read, unless the file exists.
void LeaveHeader(const std::string& path)
{
    try {
        CreateFile(path, Header());
    } catch (const FileError&) {
        // The error of the rows is reported instead.
    }
}

/// "YYYYMMDDhhmmss".
std::string Stamp(const Date& date)
{
    std::string stamp = date.ToIso();
    std::erase_if(stamp, [](char c) { return c < '0' || c > '9'; });
    stamp.resize(14, '0');
    return stamp;
}

/// Appends a text of the database in the encoding of the file.
void AppendText(std::string& to, std::string_view text)
{
    if (IsAscii(text))
        to += text;
    else
        to += ToWindows1252(text);
}

/// The fields of a row that the writer needs. The texts are valid until the next row is read.
struct SourceRow {
    std::optional<Date> postDate;
    std::optional<Money> amount;
    std::string_view identifier;
    std::string_view checkID;
    std::string_view description;
    std::string_view notes;
};

template <class Type>
std::optional<Type> IfThere(const Value& value)
{
    const auto* held = std::get_if<Type>(&value);
    return held ? std::optional(*held) : std::nullopt;
}

/// Finds a transaction's fields in the rows.
class Source {
public:
    explicit Source(const WalkedRow& any)
    {
        for (std::size_t n = 0; n < kNames.size(); ++n)
            fields_[n] = any.FieldIndex(kNames[n]);
    }

    [[nodiscard]] SourceRow Read(const WalkedRow& row) const
    {
        return {IfThere<Date>(row.Get(fields_[0])),
                IfThere<Money>(row.Get(fields_[1])),
                Text(row, 2),
                Text(row, 3),
                Text(row, 4),
                Text(row, 5)};
    }
    [[nodiscard]] ExportedRow Whole(const WalkedRow& from, const SourceRow& row,
                                    std::string_view identifier) const
    {
        return {identifier,
                row.postDate,
                row.amount.has_value(),
                row.description,
                row.notes,
                row.checkID,
                Text(from, 6),
                {ToLong(from.Get(fields_[7])), ToLong(from.Get(fields_[8]))}};
    }

private:
    static constexpr std::array<const char*, 9> kNames = {"PostDate", "Amount",      "FITID",
                                                          "CheckID",  "Description", "PayeeName",
                                                          "Category", "Year",        "Period"};

    [[nodiscard]] std::string_view Text(const WalkedRow& row, std::size_t name) const
    {
        return row.Text(fields_[name]);
    }

    std::array<std::size_t, kNames.size()> fields_{};
};

/// Writes the statement while its rows are read, so that only one row is in memory. The statement's
/// first and last day are before the rows in the file, so they are filled in after them.
class StatementWriter {
public:
    StatementWriter(std::ostream& out, const std::string& zone, const Date& now)
        : out_(out), zone_(zone), present_(Stamp(now) + zone)
    {
    }

    void Begin(const std::string& account)
    {
        out_ << Header()
             << "<OFX><SIGNONMSGSRSV1><SONRS><STATUS><CODE>0<SEVERITY>INFO</STATUS><DTSERVER>"
             << present_
             << "<LANGUAGE>ENG</SONRS></SIGNONMSGSRSV1><BANKMSGSRSV1><STMTTRNRS><TRNUID>0<STATUS>"
                "<CODE>0<SEVERITY>INFO</STATUS><STMTRS><CURDEF>USD<BANKACCTFROM><BANKID>000000000"
                "<ACCTID>"
             << ToWindows1252(account)
             << "<ACCTTYPE>CHECKING</BANKACCTFROM><BANKTRANLIST><DTSTART>";
        startAt_ = out_.tellp();
        out_ << Stamp(Date()) << zone_ << "<DTEND>";
        endAt_ = out_.tellp();
        out_ << Stamp(Date()) << zone_;
    }

    /// Writes a row. Returns the identifier that it gets in the file.
    const std::string& Add(const SourceRow& row)
    {
        ++count_;
        identifier_ = row.identifier;
        if (identifier_.empty())
            identifier_ = "CVLB" + std::to_string(count_);
        const Money amount = row.amount.value_or(Money());
        balance_ += amount;
        text_ = "<STMTTRN><TRNTYPE>";
        text_ += Type(row.checkID, amount);
        text_ += "<DTPOSTED>";
        if (row.postDate)
            AppendPosted(*row.postDate);
        text_.append(zone_).append("<TRNAMT>");
        if (row.amount)
            text_ += amount.ToText();
        text_ += "<FITID>";
        AppendText(text_, identifier_);
        if (!row.checkID.empty()) {
            text_ += "<CHECKNUM>";
            AppendText(text_, row.checkID);
        }
        text_ += "<NAME>";
        AppendText(text_, row.description);
        text_ += "<MEMO>";
        AppendText(text_, row.notes);
        text_ += "</STMTTRN>";
        out_ << text_;
        return identifier_;
    }

    void End()
    {
        out_ << "</BANKTRANLIST><LEDGERBAL><BALAMT>" << balance_.ToText() << "<DTASOF>" << present_
             << "</LEDGERBAL></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>" << kLineEnd;
        out_.seekp(startAt_) << Stamp(first_);
        out_.seekp(endAt_) << Stamp(last_);
    }

private:
    /// On purpose: every debit without a check number is a fee.
    static const char* Type(std::string_view checkID, Money amount)
    {
        if (!checkID.empty())
            return "CHECK";
        return amount > Money() ? "CREDIT" : "FEE";
    }
    void AppendPosted(const Date& date)
    {
        first_ = dated_ ? std::min(first_, date) : date;
        last_ = dated_ ? std::max(last_, date) : date;
        // Rows of one day mostly follow each other.
        if (!dated_ || date != posted_)
            stamp_ = Stamp(date);
        posted_ = date;
        dated_ = true;
        text_ += stamp_;
    }

    std::ostream& out_;
    std::string zone_;
    std::string present_;
    std::ostream::pos_type startAt_;
    std::ostream::pos_type endAt_;
    std::string text_;
    std::string identifier_;
    std::int32_t count_ = 0;
    Money balance_;
    Date first_;
    Date last_;
    Date posted_;
    std::string stamp_;
    bool dated_ = false;
};

}  // namespace

modExport::modExport(clsDatabase& database, clsView& view, IExportHost& host, const IClock& clock)
    : database_(database), view_(view), host_(host), clock_(clock)
{
}

void modExport::ExportOFX()
{
    constexpr std::int32_t kFlags =
        file_flags::OverwritePrompt + file_flags::HideReadOnly + file_flags::PathMustExist;
    const std::string path =
        host_.AskForSaveFile(kFlags, "Open Financial Exchange|*.ofx", "Export");
    if (!path.empty())
        WriteOFX(path);
}

void modExport::WriteOFX(const std::string& path)
{
    const std::string account = view_.AccountID();
    rowsBegun_ = false;
    try {
        WholeFile whole(path);
        WriteTo(whole.Path(), account);
        whole.Keep();
    } catch (const FileError&) {
        throw CannotExport(path);
    } catch (const RuntimeError&) {
        if (rowsBegun_)
            LeaveHeader(path);
        throw;
    }
}

void modExport::WriteTo(const std::string& path, const std::string& account)
{
    std::vector<char> buffer(std::size_t{1} << 16);
    std::ofstream file;
    file.rdbuf()->pubsetbuf(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    file.open(path, std::ios::binary | std::ios::trunc);
    if (file.tellp() >= 0) {
        Write(file, account);
    } else {  // a pipe, in which no position can be set
        std::ostringstream text;
        Write(text, account);
        file << text.view();
    }
    file.close();
    if (!file)
        throw CannotWrite(path, errno);
}

void modExport::Write(std::ostream& out, const std::string& account)
{
    StatementWriter writer(
        out, "[" + std::to_string(modCommon::TimeZoneOffset(clock_.Zone())) + "]", clock_.Now());
    writer.Begin(account);
    std::optional<Source> source;
    const std::string sql =
        "select * from Trans where AccountID = '" + clsDatabase::ToSqlString(account) + "'";
    WalkRows(database_.Database(), sql, [&](const WalkedRow& from) {
        rowsBegun_ = true;
        if (!source)
            source.emplace(from);
        const SourceRow row = source->Read(from);
        const std::string& identifier = writer.Add(row);
        if (watcher_)
            watcher_->Add(source->Whole(from, row, identifier));
    });
    writer.End();
}

}  // namespace clb
