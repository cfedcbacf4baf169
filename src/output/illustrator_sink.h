// The form of the drawing table that writes an Adobe Illustrator 1.1 document. Device units stand
// in it as if they were points, so that a picture comes out larger than it was asked for, by the
// dots per inch of the screen over 72.
#pragma once

#include "output/graphics_sink.h"

namespace ondrel {

/// A failed write goes into the context's Status, and the operation leaves its other lines
/// unwritten. Text stands in the document as it is: one with a backslash or a parenthesis without
/// its partner breaks it. Of a clip only the beginning is written; see RestoreIllustratorClip.
extern const GraphicsSink kIllustratorSink;

}  // namespace ondrel
