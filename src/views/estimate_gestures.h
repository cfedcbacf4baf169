// Estimates by mouse on a histogram: a double click on the axis adds a term, one on a handle
// removes it, drags move, lift and widen. They work while the view of the fit's parameters is open.
#pragma once

#include "views/view_kinds.h"

namespace ondrel {

extern const MouseRoutines kAmplitudeMouse;
extern const MouseRoutines kDurationMouse;

}  // namespace ondrel
