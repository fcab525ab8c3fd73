// The unit of sizes on reports and in company data: a twip is a twentieth of a printer's point.
#pragma once

inline constexpr int kTwipsInInch = 1440;
inline constexpr double kTwipsInCentimetre = kTwipsInInch / 2.54;
inline constexpr int kTwipsInPixel = kTwipsInInch / 96; ///< of a screen of 96 pixels an inch
