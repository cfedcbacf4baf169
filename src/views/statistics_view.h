// The statistics of the selected levels: a row for each level number that has events, and a line
// with their total. The view does not scroll; what does not fit is cut off by the window.
#pragma once

#include "views/view_kinds.h"

namespace ondrel {

extern const ViewRoutines kStatisticsViewRoutines;

}  // namespace ondrel
