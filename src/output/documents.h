// What stands before and behind a drawing in the documents of the two file forms. The context's
// File is open and its Status is 0 when a document is begun. Failures go where those of the drawing
// go: the first one into Status, and nothing is written after it.
#pragma once

#include "output/graphics_sink.h"
#include "workspace/geometry.h"

namespace ondrel {

/// The comments by which other programs place the picture in `box`, and the procedure that text
/// needs which ends at a place. The picture is moved inward by 30 points; the box is not.
void OpenEpsDocument(GraphicsContext& context, const IntRect& box);

/// Ends the document and closes the file, also after a failure. What is on disk by then stays
/// there, as far as it came.
void CloseEpsDocument(GraphicsContext& context);

/// The comments by which other programs place the picture in `box` on the page `templateBox`.
void OpenIllustratorDocument(GraphicsContext& context, const IntRect& box,
                             const IntRect& templateBox);

/// Ends the group that a clip has opened: the form that draws has no operation for that.
void RestoreIllustratorClip(GraphicsContext& context);

/// As CloseEpsDocument.
void CloseIllustratorDocument(GraphicsContext& context);

}  // namespace ondrel
