#include "bench/Figure.h"

#include <algorithm>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>

namespace clb {
namespace {

std::vector<double> Each(const std::vector<Cost>& costs, double Cost::*part)
{
    std::vector<double> values;
    values.reserve(costs.size());
    for (const Cost& cost : costs)
        values.push_back(cost.*part);
    return values;
}

double MedianRatio(const Rounds& rounds, double Cost::*part)
{
    std::vector<double> ratios;
    for (std::size_t round = 0; round < rounds.ours.size(); ++round)
        ratios.push_back(rounds.ours[round].*part / rounds.reference[round].*part);
    return Median(std::move(ratios));
}

std::string Number(double value, int decimals)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(decimals) << value;
    return text.str();
}

}  // namespace

double Median(std::vector<double> values)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

void CompareTimes(Figure& figure, const Rounds& rounds, const TimeScale& scale)
{
    const double counts = scale.oursCount / scale.referenceCount;
    figure.ours = Median(Each(rounds.ours, &Cost::processor)) / scale.oursCount / scale.unitSeconds;
    figure.reference =
        Median(Each(rounds.reference, &Cost::processor)) / scale.referenceCount / scale.unitSeconds;
    figure.ratio = MedianRatio(rounds, &Cost::processor) / counts;
    figure.wallRatio = MedianRatio(rounds, &Cost::wall) / counts;
}

void PrintTable(std::ostream& out, const std::vector<Figure>& figures)
{
    const auto line = [&](const auto& name, const auto& title, const auto& ours,
                          const auto& reference, const auto& ratio, const auto& wall,
                          const auto& limit) -> std::ostream& {
        return out << std::left << std::setw(15) << name << std::setw(56) << title << std::right
                   << std::setw(14) << ours << std::setw(14) << reference << std::setw(7) << ratio
                   << std::setw(7) << wall << std::setw(7) << limit;
    };
    line("figure", "", "ours", "reference", "ratio", "wall", "limit") << '\n';
    for (const Figure& figure : figures)
        line(figure.name, figure.title, Number(figure.ours, 2) + ' ' + figure.unit,
             Number(figure.reference, 2) + ' ' + figure.unit, Number(figure.ratio, 2),
             figure.wallRatio ? Number(*figure.wallRatio, 2) : "-", Number(figure.limit, 1))
            << (figure.Over() ? "  OVER" : "  ok") << '\n';
}

void PrintJson(std::ostream& out, const std::vector<Figure>& figures)
{
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Figure& figure : figures)
        list.push_back({{"name", figure.name},
                        {"title", figure.title},
                        {"unit", figure.unit},
                        {"ours", figure.ours},
                        {"reference", figure.reference},
                        {"ratio", figure.ratio},
                        {"wallRatio", figure.wallRatio ? nlohmann::ordered_json(*figure.wallRatio)
                                                       : nlohmann::ordered_json()},
                        {"limit", figure.limit},
                        {"over", figure.Over()}});
    out << list.dump(2) << '\n';
}

}  // namespace clb
