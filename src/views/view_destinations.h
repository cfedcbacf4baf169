// Where a view goes besides its window: into a document, into a metafile, onto paper. Each of these
// lays the view out in `ExportRect`, with letters and pens of `DeviceFontSize` and `DevicePenSize`,
// and runs the routine that draws it in the window; the background is left out. The window is drawn
// again at the end, since columns, bins and markers are those of the last layout.
#pragma once

#include <cstdint>

#include "output/graphics_sink.h"
#include "output/placeable_metafile.h"
#include "views/view_state.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Draws with a file form, into the file that is open in the context. Returns the context's Status:
/// 0, the code of the write that failed, or -1 when there is nothing to measure with.
std::int32_t DrawViewToFile(Workspace& workspace, ViewKind kind, const GraphicsSink& sink,
                            const IntRect& rect);

/// Draws into a new metafile, for the file that the context names or for none. False when it could
/// not be made; the context's Status is -1 then.
[[nodiscard]] bool DrawViewToMetafile(Workspace& workspace, ViewKind kind, MetafileRecord* record);

/// Draws on a page of the printer.
void DrawViewToPrinter(Workspace& workspace, ViewKind kind, const DeviceRecord& printer);

}  // namespace ondrel
