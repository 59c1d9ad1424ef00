// The reference of the QIF import: reads the same file, makes the same look-ups and adds the same
// rows, without the program.
//
//   clb_bench_bare_qif FILE DATABASE NAME RUN
//
// The rows go into the account with the description NAME, which is made if there is none. RUN is
// the identifier that all rows get.

#include <array>
#include <cstdio>
#include <exception>
#include <iostream>
#include <stdexcept>

#include "bench/Bare.h"
#include "bench/BareRows.h"
#include "bench/BareText.h"

namespace clb {
namespace {

constexpr std::string_view kNone = "(none)";
/// Has an address, unlike a default text, which would be stored as null.
constexpr std::string_view kEmpty = kNone.substr(0, 0);

/// The lines between two record ends. The texts refer to the file.
struct Record {
    std::int64_t amount = 0;
    std::string_view check = kEmpty;
    std::string_view memo = kEmpty;
    std::string_view payee = kEmpty;
    std::string_view category = kNone;
};

class BareQif {
public:
    BareQif(BareDatabase& database, std::string_view text, std::string_view name,
            std::string_view run)
        : database_(database), text_(text), name_(name), run_(run)
    {
    }

    void Run()
    {
        database_.Run("BEGIN IMMEDIATE");
        FindAccount();
        while (at_ < text_.size())
            Handle(Line());
        rows_.Rebalance();
        database_.Run("COMMIT");
    }

private:
    void FindAccount()
    {
        BareStatement find =
            database_.Prepare("SELECT AccountID FROM Account WHERE Description = ?");
        find.Bind(1, name_);
        if (find.Step()) {
            account_ = find.Text(0);
            return;
        }
        account_ = "New Account";
        BareStatement add = database_.Prepare(
            "INSERT INTO Account (AccountID, Description, Type) VALUES (?, ?, 'Bank')");
        add.Bind(1, account_);
        add.Bind(2, name_);
        add.Step();
    }

    std::string_view Line()
    {
        const std::size_t end = std::min(text_.find('\r', at_), text_.size());
        const std::string_view line = text_.substr(at_, end - at_);
        at_ = end + 2;
        return line;
    }

    void Handle(std::string_view line)
    {
        if (line.empty())
            return;
        const std::string_view value = line.substr(1);
        switch (line.front()) {
            case 'D': SetDate(value); break;
            case 'T': record_.amount = Amount(value); break;
            case 'N': record_.check = value; break;
            case 'M': record_.memo = Kept(value); break;
            case 'P': record_.payee = Kept(value); break;
            case 'L': record_.category = value; break;
            case '^':
                End();
                record_ = Record();
                break;
            default: break;
        }
    }
    static std::string_view Kept(std::string_view text) { return text.substr(0, 50); }

    /// Reads month/day/year with a year of four digits.
    void SetDate(std::string_view text)
    {
        const std::size_t first = text.find('/');
        const std::size_t second = text.find('/', first + 1);
        if (second == std::string_view::npos)
            throw std::runtime_error("no date: " + std::string(text));
        period_ = Digits(text.substr(0, first));
        year_ = Digits(text.substr(second + 1));
        const std::int64_t day = Digits(text.substr(first + 1, second - first - 1));
        std::snprintf(date_.data(), date_.size(), "%04d-%02d-%02d", static_cast<int>(year_),
                      static_cast<int>(period_), static_cast<int>(day));
    }
    [[nodiscard]] std::string_view Date() const { return date_.data(); }

    bool Known()
    {
        BareStatement& known = record_.check.empty() ? known_ : knownCheck_;
        known.Bind(1, account_);
        known.Bind(2, Date());
        known.Bind(3, record_.amount);
        known.Bind(4, record_.memo);
        known.Bind(5, run_);
        if (!record_.check.empty())
            known.Bind(6, record_.check);
        return known.One() > 0;
    }

    void End()
    {
        if (Known())
            return;
        rows_.ProvideBudgetLine(year_, period_, record_.category, kNone);
        rows_.Add({account_, run_, record_.check, year_, period_, Date(), record_.amount,
                   record_.payee.empty() ? std::string_view("(Blank)") : record_.payee,
                   record_.memo, record_.category});
    }

    static constexpr const char* kKnown =
        "SELECT 1 FROM Trans WHERE AccountID = ?1 AND PostDate = ?2 AND Amount = ?3 AND "
        "PayeeName = ?4 AND FITID <> ?5";

    BareDatabase& database_;
    std::string_view text_;
    std::string_view name_;
    std::string_view run_;
    std::string account_;
    std::size_t at_ = 0;
    Record record_;
    std::int64_t year_ = 0;
    std::int64_t period_ = 0;
    std::array<char, 32> date_{};
    BareStatement known_ = database_.Prepare(kKnown);
    BareStatement knownCheck_ = database_.Prepare(std::string(kKnown) + " AND CheckID = ?6");
    BareRows rows_{database_};
};

}  // namespace
}  // namespace clb

int main(int argc, char** argv)
{
    if (argc != 5) {
        std::cerr << "usage: clb_bench_bare_qif FILE DATABASE NAME RUN\n";
        return 2;
    }
    try {
        const std::string text = clb::ReadFile(argv[1]);
        clb::BareDatabase database(argv[2]);
        clb::BareQif(database, text, argv[3], argv[4]).Run();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "clb_bench_bare_qif: " << error.what() << '\n';
        return 1;
    }
}
