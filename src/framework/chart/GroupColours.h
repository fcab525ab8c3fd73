// Colours by chance, for the groups of marks.
#pragma once

#include "framework/chart/ChartData.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// The first is pure red, each further one is drawn by chance until it has a contrast of 3:1 or more on
/// white. The same for the same seed.
std::vector<ChartColour> GroupColours(std::size_t count, std::uint32_t seed);

/// Another one each time.
std::uint32_t ClockSeed();
