// Measures all figures of the program as ratios, in one run. Exit code: 0 if all are within their
// limits, 1 if one exceeds its limit, 2 if nothing was measured.

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <iterator>

#include "bench/BudgetFigures.h"
#include "bench/FindFigures.h"
#include "bench/HistoryFigures.h"
#include "bench/ImportFigures.h"
#include "bench/MonthStepFigures.h"
#include "bench/RegisterFigures.h"
#include "bench/SavingFigures.h"
#include "bench/StartFigures.h"
#include "bench/StatementFigures.h"
#include "bench/WideFigures.h"

namespace {

struct Options {
    std::vector<std::string> only;
    int rounds = 5;
    bool json = false;
};

/// Figures that one measurement yields. Whole processes are measured before this process grows; the
/// measurements that change the books come last.
struct Measurement {
    std::vector<std::string> names;
    std::vector<clb::Figure> (*run)(const clb::WorkFolder& work, int rounds);
};
const Measurement kMeasurements[] = {
    {{"import", "memory", "again"}, clb::MeasureImport},
    {{"scaling"}, clb::MeasureScaling},
    {{"wideofx", "widecsv", "widecamt", "widemt940"}, clb::MeasureWide},
    {{"wideofxpeak", "widecsvpeak", "widecamtpeak", "widemt940peak"}, clb::MeasureWidePeaks},
    {{"historyimport", "undo", "importbytes"}, clb::MeasureHistoryOfImport},
    {{"qif", "qifagain"}, clb::MeasureQif},
    {{"export", "exportmemory"}, clb::MeasureExport},
    {{"start", "startmillion", "startpeak"}, clb::MeasureStart},
    {{"monthstep"}, clb::MeasureMonthStep},
    {{"register", "rows"}, clb::MeasureRegister},
    {{"budget"}, clb::MeasureBudget},
    {{"find", "findfirst", "findkey", "findkeysmall"}, clb::MeasureFind},
    {{"historylist"}, clb::MeasureHistoryList},
    {{"saving", "others"}, clb::MeasureSaving},
    {{"historysaving", "editbytes"}, clb::MeasureHistoryOfSaving}};

std::vector<std::string> Names()
{
    std::vector<std::string> names;
    for (const Measurement& measurement : kMeasurements)
        names.insert(names.end(), measurement.names.begin(), measurement.names.end());
    return names;
}

std::vector<clb::Figure> Measure(const Options& options)
{
    const clb::WorkFolder work;
    std::cerr << "measuring in " << work.Description() << ", " << options.rounds << " rounds\n";
    std::vector<clb::Figure> figures;
    const auto wanted = [&](const std::string& name) {
        return options.only.empty() || std::ranges::count(options.only, name) > 0;
    };
    for (const Measurement& measurement : kMeasurements) {
        if (std::ranges::none_of(measurement.names, wanted))
            continue;
        for (clb::Figure& figure : measurement.run(work, options.rounds))
            if (wanted(figure.name))
                figures.push_back(std::move(figure));
    }
    return figures;
}

int Run(int argc, char** argv)
{
    Options options;
    CLI::App app("Times and memory of Corvane Ledgerbook as ratios", "clb_bench_figures");
    app.add_option("--only", options.only, "Measure these figures only")
        ->type_name("NAME")
        ->check(CLI::IsMember(Names()));
    app.add_option("--rounds", options.rounds, "Rounds of each pair; the medians count (5)")
        ->type_name("N")
        ->check(CLI::Range(1, 1000));
    app.add_flag("--json", options.json, "Print a JSON array instead of the table");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 2;
    }
    const std::vector<clb::Figure> figures = Measure(options);
    (options.json ? clb::PrintJson : clb::PrintTable)(std::cout, figures);
    return std::ranges::any_of(figures, &clb::Figure::Over) ? 1 : 0;
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "clb_bench_figures: " << error.what() << '\n';
        return 2;
    }
}
