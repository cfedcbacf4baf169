// Records hold amperes and seconds; dialogs, views and files show these scaled figures.
#pragma once

namespace ondrel {

inline constexpr double kPicoampere = 1e-12;   // A
inline constexpr double kMillisecond = 0.001;  // s
inline constexpr double kPointsPerInch = 72.0;
inline constexpr double kCentimetersPerInch = 2.54;

}  // namespace ondrel
