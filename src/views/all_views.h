// What is done to all twelve views at once, in fixed orders.
#pragma once

#include "workspace/workspace.h"

namespace ondrel {

/// Gives the views their default colours and no remembered places, fills the drawing tables, and
/// sets the cascade by the platform's window metrics. No window is touched.
void ResetViews(Workspace& workspace);

/// Repaints every view whose picture is stale: the one way by which a change reaches the screen.
void RefreshViews(Workspace& workspace);

/// Closes every view.
void CloseViews(Workspace& workspace);

}  // namespace ondrel
