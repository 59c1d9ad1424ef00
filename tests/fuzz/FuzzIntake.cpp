// Any file through the import of statements of every kind: each row is added or known, the same
// file adds nothing again, and nothing else changes.

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "import/modImport.h"
#include "intake/WideImport.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/support/Books.h"
#include "tests/support/FakeImportHost.h"

namespace clb {
namespace {

/// Answers as proposed.
class ProposedAnswers : public IStatementAsker {
public:
    std::optional<StatementAnswers> Ask(const std::string&, const IStatementReader&,
                                        const std::vector<OpenQuestion>& questions,
                                        const StatementAnswers& given) override
    {
        StatementAnswers answers = given;
        for (const OpenQuestion& question : questions)
            Answer(question, answers);
        return answers;
    }
    void Choosing(const StatementAccount&, std::size_t, const AccountCheck&) override {}

private:
    static void Answer(const OpenQuestion& question, StatementAnswers& answers)
    {
        switch (question.question) {
            case StatementQuestion::DateOrder:
                answers.dateOrder = question.proposed == "dmy"   ? DateText::Order::DayMonthYear
                                    : question.proposed == "mdy" ? DateText::Order::MonthDayYear
                                                                 : DateText::Order::YearMonthDay;
                break;
            case StatementQuestion::Decimal: answers.decimal = question.proposed.front(); break;
            case StatementQuestion::Sign: answers.inverted = question.proposed == "inverted"; break;
            case StatementQuestion::Columns: answers.columns = "date=1,amount=2"; break;
            case StatementQuestion::Truncated:
                answers.takeWholeRows = question.proposed == "rows";
                break;
        }
    }
};

/// Makes an account for each number that the book does not know.
class MakingHost : public FakeImportHost {
public:
    explicit MakingHost(Books& books) : books_(books) {}

    bool CheckImportAccount(std::string& accountID) override
    {
        if (accountID.empty())
            accountID = "1";
        if (!books_.window.Data().RowExists("Account", "AccountID = " + Quoted(accountID)))
            books_.AddAccount(accountID, "Bank", "Made");
        return true;
    }
    static std::string Quoted(const std::string& text)
    {
        return "'" + clsDatabase::ToSqlString(text) + "'";
    }

private:
    Books& books_;
};

/// Books with two accounts. Files are imported into them one after the other.
class IntakeRun {
public:
    IntakeRun()
    {
        // The history would grow with every run.
        books_.window.Data().Database().Watch(nullptr);
        books_.AddAccount("1", "Bank", "Checking");
        books_.AddAccount("2-", "Cash", "Purse");
        Clear();
    }

    void Run(std::string_view bytes)
    {
        const std::string path = folder_.Write("statement", bytes);
        const Total first = Import(path);
        Require(first.added == Stored() - 1);
        const Total again = Import(path);
        Require(again.added == 0 && again.read == first.read);
        Require(again.read == again.known);
        Require(Stored() - 1 == first.added);
        Require(books_.Rows("SELECT Amount FROM Trans WHERE AccountID = '2-' AND FITID = 'X'") ==
                std::vector<std::string>{"5"});
        Clear();
        books_.messages.boxes.clear();
        ++books_.clock.ticks;
    }

private:
    struct Total {
        std::int64_t read = 0;
        std::int64_t added = 0;
        std::int64_t known = 0;
    };

    Total Import(const std::string& path)
    {
        Total total;
        std::int64_t watched = 0;
        WideImport wide(books_.window.Data(), import_, asker_, books_.clock);
        wide.Watch([&watched](const std::string&, const StatementRow& row,
                              const std::string& identifier, RowState) {
            Require(!identifier.empty() && row.line > 0);
            ++watched;
        });
        import_.BeginTexts();
        bool whole = false;
        for (const ImportedStatement& statement : wide.Import(path)) {
            Require(statement.accounts.empty() ||
                    (statement.asked.empty() && statement.refused.empty()));
            for (const ImportedAccount& account : statement.accounts) {
                Require(account.read == account.added + account.known);
                total.read += account.read;
                total.added += account.added;
                total.known += account.known;
                imported_ = true;
            }
            whole = whole || statement.kind == "ofx";
        }
        // A file that is passed on as it is has no rows of its own to watch.
        Require(whole || watched == total.read);
        Require(books_.messages.boxes.empty());
        return total;
    }
    /// Transactions of the book; the pieces of one count once.
    std::int64_t Stored()
    {
        return std::stoll(
            books_.One("SELECT COUNT(*) FROM Trans WHERE SubSequence IS NULL OR SubSequence = 0"));
    }
    void Clear()
    {
        for (const char* query :
             {"DELETE FROM Trans", "DELETE FROM Budget",
              "DELETE FROM Account WHERE NOT (AccountID = '1' OR AccountID = '2-')",
              "INSERT INTO Trans (AccountID, Sequence, FITID, Amount) VALUES ('2-', 1, 'X', 5)"})
            books_.Execute(query);
        // The first import makes the table.
        if (imported_)
            books_.Execute("DELETE FROM CvImport");
    }

    FuzzFolder folder_;
    Books books_;
    MakingHost host_{books_};
    ProposedAnswers asker_;
    modImport import_{books_.window.Data(), books_.window.View(), host_, books_.messages,
                      books_.clock};
    bool imported_ = false;
};

}  // namespace
}  // namespace clb

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    static IntakeRun run;
    run.Run(TextOf(data, size));
    return 0;
}
