// The label of a graph's vertical axis that stands highest. Every graph makes its labels while it
// draws: it is drawn once on nothing to find them.
#pragma once

#include <cstdint>

#include "views/view_kinds.h"

namespace ondrel {

/// Width of the label in the font that measures, device units; 0 when the view shows no labels.
/// `view` must have been laid out for `destination`, on which no mark is made.
std::int32_t TopLabelWidth(Workspace& workspace, const ViewRoutines& view,
                           const Destination& destination);

}  // namespace ondrel
