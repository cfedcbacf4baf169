// The form of the drawing table that writes an EPS document. Device units become points, so that a
// picture has the size it was asked for.
#pragma once

#include "output/graphics_sink.h"

namespace ondrel {

/// A failed write goes into the context's Status, and the operation leaves its other lines
/// unwritten. Text stands in the document as it is: one with a backslash or a parenthesis without
/// its partner breaks it. A clip holds for the rest of the document.
extern const GraphicsSink kEpsSink;

}  // namespace ondrel
