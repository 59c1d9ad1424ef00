// The reference of the import: reads the same file and adds the same rows, without the program.
//
//   clb_bench_bare_import FILE DATABASE NAME
//
// DATABASE is the delivered empty database; the new account gets the description NAME.

#include <array>
#include <deque>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <unordered_set>

#include "bench/Bare.h"
#include "bench/BareRows.h"
#include "bench/BareText.h"

namespace clb {
namespace {

constexpr std::size_t kMemoLength = 50;
constexpr std::string_view kNone = "(none)";

/// Returns the text after the tag, up to "<" or a carriage return, without outer blanks.
std::string_view ValueOf(std::string_view text, std::string_view tag)
{
    const std::size_t found = text.find(tag);
    if (found == std::string_view::npos)
        return {};
    std::string_view value = text.substr(found + tag.size());
    value = value.substr(0, value.find_first_of("<\r"));
    const std::size_t first = value.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return value.substr(first, value.find_last_not_of(' ') - first + 1);
}

/// Returns the first characters of a UTF-8 text.
std::string_view Cut(std::string_view text, std::size_t characters)
{
    if (text.size() <= characters)
        return text;
    std::size_t end = 0;
    for (; end < text.size(); ++end)
        if ((static_cast<unsigned char>(text[end]) & 0xC0) != 0x80 && characters-- == 0)
            break;
    return text.substr(0, end);
}

class BareImport {
public:
    BareImport(BareDatabase& database, std::string_view text, std::string_view name)
        : database_(database), text_(text), name_(name), account_(ValueOf(text, "<ACCTID>"))
    {
    }

    void Run()
    {
        database_.Run("BEGIN IMMEDIATE");
        AddAccount();
        ReadIdentifiers();
        for (std::string_view block = Next(); !block.empty(); block = Next())
            if (known_.insert(ValueOf(block, "<FITID>")).second)
                Add(block);
        rows_.Rebalance();
        database_.Run("COMMIT");
    }

private:
    void AddAccount()
    {
        BareStatement has = database_.Prepare("SELECT COUNT(*) FROM Account WHERE AccountID = ?");
        has.Bind(1, account_);
        if (has.One() > 0)
            return;
        BareStatement add = database_.Prepare(
            "INSERT INTO Account (AccountID, Description, Type) VALUES (?, ?, 'Bank')");
        add.Bind(1, account_);
        add.Bind(2, name_);
        add.Step();
    }

    void ReadIdentifiers()
    {
        constexpr std::size_t kBytesARecord =
            128;  // an estimate that makes room for all of them at once
        known_.reserve(text_.size() / kBytesARecord);
        BareStatement read = database_.Prepare("SELECT FITID FROM Trans WHERE AccountID = ?");
        read.Bind(1, account_);
        while (read.Step())
            known_.insert(stored_.emplace_back(read.Text(0)));
    }

    std::string_view Next()
    {
        constexpr std::string_view kOpen = "<STMTTRN>";
        constexpr std::string_view kClose = "</STMTTRN>";
        const std::size_t found = text_.find(kOpen, at_);
        if (found == std::string_view::npos)
            return {};
        const std::size_t start = found + kOpen.size();
        const std::size_t end = text_.find(kClose, start);
        if (end == std::string_view::npos)
            return {};
        at_ = end + kClose.size();
        return text_.substr(start, end - start);
    }

    void Add(std::string_view block)
    {
        const std::string_view stamp = ValueOf(block, "<DTPOSTED>");
        if (stamp.size() < 8)
            throw std::runtime_error("no date");
        const std::int64_t year = Digits(stamp.substr(0, 4));
        const std::int64_t period = Digits(stamp.substr(4, 2));
        const std::array<char, 10> date = {stamp[0], stamp[1], stamp[2], stamp[3], '-',
                                           stamp[4], stamp[5], '-',      stamp[6], stamp[7]};
        const bool check = ValueOf(block, "<TRNTYPE>") == "CHECK";
        const std::string_view name = ValueOf(block, "<NAME>");
        ProvideBudgetLine(year, period);

        rows_.Add({account_, Present(ValueOf(block, "<FITID>")),
                   check ? Present(ValueOf(block, "<CHECKNUM>")) : "", year, period,
                   std::string_view(date.data(), date.size()), Amount(ValueOf(block, "<TRNAMT>")),
                   name.empty() ? std::string_view("(blank)") : name,
                   Present(Cut(ValueOf(block, "<MEMO>"), kMemoLength)), kNone});
    }

    /// Turns null into an empty text.
    static std::string_view Present(std::string_view text)
    {
        return text.empty() ? std::string_view("") : text;
    }

    void ProvideBudgetLine(std::int64_t year, std::int64_t period)
    {
        if (year == lastYear_ && period == lastPeriod_)
            return;
        lastYear_ = year;
        lastPeriod_ = period;
        rows_.ProvideBudgetLine(year, period, kNone, kNone);
    }

    BareDatabase& database_;
    std::string_view text_;
    std::string_view name_;
    std::string_view account_;
    std::size_t at_ = 0;
    std::deque<std::string> stored_;
    std::unordered_set<std::string_view> known_;
    std::int64_t lastYear_ = 0;
    std::int64_t lastPeriod_ = 0;
    BareRows rows_{database_};
};

}  // namespace
}  // namespace clb

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::cerr << "usage: clb_bench_bare_import FILE DATABASE NAME\n";
        return 2;
    }
    try {
        const std::string text = clb::ReadFile(argv[1]);
        clb::BareDatabase database(argv[2]);
        clb::BareImport(database, text, argv[3]).Run();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "clb_bench_bare_import: " << error.what() << '\n';
        return 1;
    }
}
