#include "bench/GrowthTable.h"

#include <cmath>
#include <iomanip>
#include <ostream>
#include <sstream>

namespace clb {
namespace {

constexpr int kTitleWidth = 44;
constexpr int kCellWidth = 30;

std::string Number(double value)
{
    std::ostringstream text;
    const int decimals = value >= 100 ? 0 : value >= 10 ? 1 : value >= 1 ? 2 : 3;
    text << std::fixed << std::setprecision(decimals) << value;
    return text.str();
}

std::string CellText(const GrowthCell& cell)
{
    if (!cell.reference)
        return Number(cell.ours);
    std::ostringstream text;
    text << Number(cell.ours) << " / " << Number(*cell.reference) << " = " << std::fixed
         << std::setprecision(2) << cell.ours / *cell.reference;
    return text.str();
}

std::string GrowthText(const GrowthLine& line, const std::vector<std::int64_t>& sizes)
{
    if (line.growth == Growth::Free || line.cells.size() < 2)
        return "-";
    const double whole = line.cells.back().ours / line.cells.front().ours;
    const double rows = static_cast<double>(sizes.back()) / static_cast<double>(sizes.front());
    return line.growth == Growth::WithRows ? Number(whole / rows) + " a row" : Number(whole);
}

std::string Grouped(std::int64_t number)
{
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size(); at > 3; at -= 3)
        digits.insert(at - 3, ",");
    return digits;
}

}  // namespace

void PrintGrowth(std::ostream& out, const std::vector<std::int64_t>& sizes,
                 const std::vector<GrowthLine>& lines)
{
    out << std::left << std::setw(kTitleWidth) << "ours / bare storage = ratio";
    for (const std::int64_t size : sizes)
        out << std::right << std::setw(kCellWidth) << Grouped(size);
    out << std::setw(14) << "growth" << '\n';
    for (const GrowthLine& line : lines) {
        out << std::left << std::setw(kTitleWidth) << line.title + ", " + line.unit << std::right;
        for (const GrowthCell& cell : line.cells)
            out << std::setw(kCellWidth) << CellText(cell);
        out << std::setw(14) << GrowthText(line, sizes) << '\n';
    }
}

}  // namespace clb
