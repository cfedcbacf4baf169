// Rectangles of reals as the platform takes them, and as every form of the drawing table returns
// the one that it drew.
#pragma once

#include "workspace/geometry.h"
#include "workspace/truncate.h"

namespace ondrel {

inline IntRect TruncateRect(double left, double top, double right, double bottom) {
  return {TruncateToInteger(left), TruncateToInteger(top), TruncateToInteger(right),
          TruncateToInteger(bottom)};
}

}  // namespace ondrel
