// The step of an axis that scales itself.
#pragma once

namespace ondrel {

/// 1, 2 or 5 times a power of ten, for a `size` above 0. The power is that of log10(size) cut
/// toward 0, and the step the largest of the three that is not above `size`. Below 1, where cutting
/// raises the logarithm, the step is the smallest power of ten that is not below `size`. A size
/// that stands on a step but for rounding counts as standing on it.
double AxisStep(double size);

}  // namespace ondrel
