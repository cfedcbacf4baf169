// What the forms of the drawing table and the views that draw with it have to decide alike.
#pragma once

namespace ondrel {

/// Whether `position` lies past `edge`, both in device units. Differences from rounding do not
/// count.
inline bool LiesBeyond(double position, double edge) {
  constexpr double kRounding = 1e-6;
  return position - edge > kRounding;
}

}  // namespace ondrel
