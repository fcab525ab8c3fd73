#include "framework/chart/GroupColours.h"

#include <chrono>
#include <cmath>
#include <random>

namespace
{

constexpr ChartColour kRed{.red = 255, .green = 0, .blue = 0};
constexpr double kLeastContrast = 3;
constexpr unsigned kTopByte = 24;

/// What a part of a colour is in light: sRGB, as WCAG 2 has it.
double Light(std::uint8_t part)
{
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

/// From 1 to 21, as WCAG 2 has it.
double ContrastOnWhite(const ChartColour& colour)
{
    const double luminance =
        0.2126 * Light(colour.red) + 0.7152 * Light(colour.green) + 0.0722 * Light(colour.blue);
    return 1.05 / (luminance + 0.05);
}

ChartColour Drawn(std::mt19937& chance)
{
    // By hand: each library's distributions give numbers of their own.
    const auto part = [&chance] { return static_cast<std::uint8_t>(chance() >> kTopByte); };
    ChartColour colour;
    do
        colour = {.red = part(), .green = part(), .blue = part()};
    while (ContrastOnWhite(colour) < kLeastContrast);
    return colour;
}

} // namespace

std::vector<ChartColour> GroupColours(std::size_t count, std::uint32_t seed)
{
    std::mt19937 chance(seed);
    std::vector<ChartColour> colours;
    colours.reserve(count);
    while (colours.size() < count)
        colours.push_back(colours.empty() ? kRed : Drawn(chance));
    return colours;
}

std::uint32_t ClockSeed()
{
    // The lower half changes within a run, too.
    return static_cast<std::uint32_t>(std::chrono::system_clock::now().time_since_epoch().count());
}
