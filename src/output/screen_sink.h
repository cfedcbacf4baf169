// The form of the drawing table that draws through a device context of the platform: a window, a
// printer or a metafile under construction.
#pragma once

#include "output/graphics_sink.h"

namespace ondrel {

/// The operations never fail from the view of the caller.
extern const GraphicsSink kScreenSink;

}  // namespace ondrel
