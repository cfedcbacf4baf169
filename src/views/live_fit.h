// A fit while it runs: each pass is shown in the histogram and in the table of parameters.
#pragma once

#include "fit/fit_operations.h"

namespace ondrel {

extern const FitDisplay kLiveDisplay;

}  // namespace ondrel
