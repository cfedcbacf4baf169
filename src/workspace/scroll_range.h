// The scroll range of a table's view, which follows the table's count.
#pragma once

#include <cstdint>

#include "views/view_state.h"

namespace ondrel {

/// Sets the vertical range of an open view to 0 .. `count` - 1, to 0 .. 0 for an empty table: the
/// position of the thumb is a row's number. Nothing happens while the view is closed.
void RefreshScrollRange(const ViewState& view, std::int32_t count);

}  // namespace ondrel
