// The step of an axis that scales itself.
#pragma once

namespace ondrel {

/// 1, 2 or 5 times a power of ten, for a `size` above 0. The power is that of log10(size) cut
/// toward 0, and the step the largest of the three that is not above `size`. For a size below 1 the
/// power is thus one that is not below it, and the step that power itself.
double AxisStep(double size);

}  // namespace ondrel
