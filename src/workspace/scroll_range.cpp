#include "workspace/scroll_range.h"

#include <algorithm>

#include "shell/toolkit.h"

namespace ondrel {

void RefreshScrollRange(ViewState& view, std::int32_t count) {
  const std::int32_t last = std::max(count - 1, 0);
  view.TopRow = std::clamp(view.TopRow, 0, last);
  if (view.Window != nullptr) toolkit::SetScrollRange(view.Window, Axis::Vertical, last);
}

}  // namespace ondrel
