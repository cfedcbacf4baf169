#include "derived/scatter_points.h"

#include <limits>

namespace ondrel {

double SourceValue(const SweepTable& sweeps, const LevelRecord& level, ScatterValue value) {
  if (value == ScatterValue::LevelTag) return level.TagValue;
  const SweepRecord* sweep = GetSweepByNumber(sweeps, level.Sweep);
  if (sweep == nullptr) return std::numeric_limits<double>::quiet_NaN();
  return value == ScatterValue::SweepTag ? sweep->TagValue : sweep->RelevantValue;
}

}  // namespace ondrel
