// Measures how quickly the window shows and paints another month.
#pragma once
#include <cstddef>
#include <vector>

#include "bench/Figure.h"
#include "bench/WorkFolder.h"

namespace clb {

/// Measures "monthstep": the window at 1400 x 900 shows another month of 3,000 rows and paints it.
std::vector<Figure> MeasureMonthStep(const WorkFolder& work, int rounds);

/// The account whose months January and February of this year have so many rows each.
inline constexpr const char* kMonthStepAccount = "100";
inline constexpr int kMonthStepYear = 2026;
inline constexpr std::size_t kMonthStepRows = 3000;

}  // namespace clb
