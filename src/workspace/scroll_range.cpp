#include "workspace/scroll_range.h"

#include <algorithm>

#include "shell/toolkit.h"

namespace ondrel {

void RefreshScrollRange(const ViewState& view, std::int32_t count) {
  if (view.Window == nullptr) return;
  toolkit::SetScrollRange(view.Window, Axis::Vertical, std::max(count - 1, 0));
}

}  // namespace ondrel
