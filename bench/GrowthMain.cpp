// Prints what the program's steps cost in books of 10,000 to 5,000,000 transactions, compared with
// the bare storage, as one table.

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>

#include "bench/GrowthSteps.h"

namespace {

struct Size {
    std::int64_t transactions;
    clb::LedgerSize books;  ///< about this many transactions, without the purse
};
const Size kSizes[] = {{10'000, {16, 3}},
                       {100'000, {20, 24}},
                       {1'000'000, clb::kLargeLedger},
                       {5'000'000, {20, 1200}}};

using Cells = std::vector<clb::GrowthCell>;

template <typename MeasureSize>
std::vector<clb::GrowthLine> Filled(std::vector<clb::GrowthLine> lines,
                                    const std::vector<Size>& sizes, const MeasureSize& measure)
{
    for (const Size& size : sizes) {
        std::cerr << size.transactions << " transactions\n";
        const Cells cells = measure(size);
        for (std::size_t line = 0; line < lines.size(); ++line)
            lines[line].cells.push_back(cells[line]);
    }
    return lines;
}

/// Whole processes are measured before this process grows.
void Measure(std::int64_t largest, int rounds)
{
    const clb::WorkFolder work;
    std::cerr << "measuring in " << work.Description() << '\n';
    std::vector<Size> sizes;
    std::vector<std::int64_t> headings;
    for (const Size& size : kSizes)
        if (size.transactions <= largest) {
            sizes.push_back(size);
            headings.push_back(size.transactions);
        }
    auto lines = Filled(clb::StatementLines(), sizes, [&](const Size& size) {
        return clb::MeasureStatements(work, size.transactions);
    });
    for (clb::GrowthLine& line : Filled(clb::BooksLines(), sizes, [&](const Size& size) {
             return clb::MeasureBooks(work, size.books, rounds);
         }))
        lines.push_back(std::move(line));
    clb::PrintGrowth(std::cout, headings, lines);
}

}  // namespace

int main(int argc, char** argv)
{
    std::int64_t largest = 5'000'000;
    int rounds = 3;
    CLI::App app("What the steps of Corvane Ledgerbook cost as the books grow", "clb_bench_growth");
    app.add_option("--up-to", largest, "Largest number of transactions (5,000,000)");
    app.add_option("--rounds", rounds, "Rounds of the steps within books; the medians count (3)")
        ->check(CLI::Range(1, 1000));
    CLI11_PARSE(app, argc, argv);
    try {
        Measure(largest, rounds);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "clb_bench_growth: " << error.what() << '\n';
        return 2;
    }
}
