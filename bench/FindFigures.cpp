#include "bench/FindFigures.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "bench/Bare.h"
#include "bench/Ledger.h"
#include "bench/SavingFigures.h"
#include "platform/ProgramFolder.h"
#include "search/TransactionFinder.h"

namespace clb {
namespace {

constexpr LedgerSize kHundredThousand{20, 24};
constexpr double kFirstUse = 0.5;    // seconds
constexpr double kKey = 0.050;       // of 1,000,000
constexpr double kKeySmall = 0.016;  // of 100,000
constexpr double kKept = 0.95;       // of the key presses
constexpr std::size_t kListed = 60;  // rows of a screen

constexpr std::array<std::string_view, 10> kTyped = {"grocery >100",
                                                     "pharmacy 1995 -card",
                                                     "category:\"pets tools\" terminal 44",
                                                     "station 12..15",
                                                     "payee:harbour notes:ref 1,234.50",
                                                     "account:1 works -1996-03",
                                                     "thank you 49.90",
                                                     "e a o i",
                                                     "1015",
                                                     "-category:music garage"};
constexpr std::array<std::string_view, 5> kWords = {"harbour", "pharma", "terminal", "0417",
                                                    "water w"};

/// A copy of the books whose rows have texts such as those of banks.
std::string WithTexts(const WorkFolder& work, LedgerSize size)
{
    std::string folder = CopyBooks(work, DeliverLedger(work, size));
    BareDatabase book(DatabasePath(folder));
    book.Run(
        "PRAGMA synchronous = OFF; UPDATE Trans SET Description = Description || ' ' || "
        "printf('%06d', Sequence * 7919 % 1000000), PayeeName = CASE Sequence % 5 WHEN 0 THEN '' "
        "WHEN 1 THEN 'CARD PURCHASE' WHEN 2 THEN 'STANDING ORDER' WHEN 3 THEN printf('REF %08d "
        "THANK YOU', Sequence * 104729 % 100000000) ELSE printf('POINT OF SALE PURCHASE, CARD "
        "ENDING IN 4417, TERMINAL %04d AT THE MAIN ENTRANCE', Sequence % 9973) END, CheckID = CASE "
        "Sequence % 10 WHEN 0 THEN Sequence % 5000 ELSE '' END");
    return folder;
}

Connection Opened(const std::string& folder)
{
    Connection connection;
    connection.Open("Data Source=" + DatabasePath(folder));
    return connection;
}

/// The first search of a new finder.
Cost FirstUse(Connection& connection)
{
    TransactionFinder finder(connection);
    const Stopwatch watch;
    static_cast<void>(finder.Find(SearchQuery("x")));
    return watch.Elapsed();
}

/// Types all searches letter by letter, shows the first rows after each key, and adds the costs.
void Type(TransactionFinder& finder, std::vector<Cost>& keys)
{
    for (const std::string_view typed : kTyped)
        for (std::size_t size = 1; size <= typed.size(); ++size) {
            const Stopwatch watch;
            const FoundTransactions found = finder.Find(SearchQuery(typed.substr(0, size)));
            const std::span<const std::int64_t> rows = found.rows;
            static_cast<void>(finder.Read(rows.first(std::min(kListed, rows.size()))));
            keys.push_back(watch.Elapsed());
        }
}

/// The time that most of the key presses keep.
Cost Slow(std::vector<Cost> keys)
{
    const auto slow =
        keys.begin() + static_cast<std::ptrdiff_t>(kKept * static_cast<double>(keys.size()));
    std::nth_element(keys.begin(), slow, keys.end(),
                     [](const Cost& a, const Cost& b) { return a.processor < b.processor; });
    return *slow;
}

Figure KeyFigure(const std::string& name, const std::string& rows, const std::string& folder,
                 double allowed, int rounds)
{
    Connection connection = Opened(folder);
    TransactionFinder finder(connection);
    static_cast<void>(finder.Find(SearchQuery("x")));
    Rounds result;
    for (int round = 0; round < rounds; ++round) {
        std::vector<Cost> keys;
        Type(finder, keys);
        result.ours.push_back(Slow(keys));
        result.reference.push_back({allowed, allowed, 0});
    }
    Figure figure{.name = name,
                  .title = "a search typed among " + rows + ", 95 % of the keys / a fixed time",
                  .unit = "ms",
                  .wallRatio = {},
                  .limit = 1};
    CompareTimes(figure, result, {});
    return figure;
}

Figure FirstFigure(const std::string& folder, int rounds)
{
    Connection connection = Opened(folder);
    Rounds result;
    for (int round = 0; round < rounds; ++round) {
        result.ours.push_back(FirstUse(connection));
        result.reference.push_back({kFirstUse, kFirstUse, 0});
    }
    Figure figure{.name = "findfirst",
                  .title = "the first search among 1,000,000 / half a second",
                  .unit = "ms",
                  .wallRatio = {},
                  .limit = 1};
    CompareTimes(figure, result, {});
    return figure;
}

/// Seeks each of the words in rows that were read before; the reference reads them.
Figure ScanFigure(const std::string& folder, int rounds)
{
    Connection connection = Opened(folder);
    TransactionFinder finder(connection);
    BareDatabase bare(DatabasePath(folder));
    BareStatement scan = bare.Prepare(
        "SELECT count(*), sum(Amount) FROM Trans WHERE Description LIKE ?1 OR PayeeName LIKE ?1 OR "
        "Category LIKE ?1 OR CheckID LIKE ?1");
    Rounds result;
    for (int round = 0; round < rounds; ++round) {
        Cost ours;
        Cost reference;
        finder.Forget();
        static_cast<void>(finder.Find(SearchQuery("x")));
        for (const std::string_view word : kWords) {
            const Stopwatch watch;
            const auto found = finder.Find(SearchQuery("\"" + std::string(word) + "\""), kListed);
            ours += watch.Elapsed();
            const Stopwatch bareWatch;
            const std::string pattern = "%" + std::string(word) + "%";
            scan.Bind(1, pattern);
            scan.Step();
            const auto count = static_cast<std::size_t>(scan.Integer(0));
            const std::int64_t sum = scan.Integer(1);
            scan.Step();
            reference += bareWatch.Elapsed();
            if (found.count != count || !found.sum || found.sum->Scaled() != sum || count == 0)
                throw std::runtime_error("the search and its reference differ");
        }
        result.ours.push_back(ours);
        result.reference.push_back(reference);
    }
    Figure figure{.name = "find",
                  .title = "a word sought among 1,000,000 / LIKE in bare storage",
                  .unit = "ms",
                  .wallRatio = {},
                  .limit = 0.2};
    CompareTimes(figure, result, {kWords.size(), kWords.size()});
    return figure;
}

}  // namespace

std::vector<Figure> MeasureFind(const WorkFolder& work, int rounds)
{
    // Both copies have the same name, so one is used up before the other is made.
    const Figure small =
        KeyFigure("findkeysmall", "100,000", WithTexts(work, kHundredThousand), kKeySmall, rounds);
    const std::string large = WithTexts(work, kLargeLedger);
    return {ScanFigure(large, rounds), FirstFigure(large, rounds),
            KeyFigure("findkey", "1,000,000", large, kKey, rounds), small};
}

}  // namespace clb
