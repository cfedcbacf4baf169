// The event, level and sweep views: the columns of three tables that scroll alike.
#pragma once

#include "views/scrolling_table.h"
#include "views/view_kinds.h"

namespace ondrel {

extern const ViewRoutines kEventViewRoutines;
extern const ViewRoutines kLevelViewRoutines;
extern const ViewRoutines kSweepViewRoutines;

}  // namespace ondrel
