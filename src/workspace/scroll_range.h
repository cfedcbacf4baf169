// The scroll range of a table's view, which follows the table's count.
#pragma once

#include <cstdint>

#include "views/view_state.h"

namespace ondrel {

/// Sets the vertical range of an open view to 0 .. `count` - 1, to 0 .. 0 for an empty table: the
/// position of the thumb is a row's number. A top row that the table no longer has becomes its
/// last, also while the view is closed: nobody is left before an empty picture.
void RefreshScrollRange(ViewState& view, std::int32_t count);

}  // namespace ondrel
