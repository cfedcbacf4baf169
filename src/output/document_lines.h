// The lines that both file forms of the drawing table write. What is drawn goes into the context's
// file, and the first write that fails into its Status; nothing is written once that is not 0.
#pragma once

#include <cstdint>
#include <string_view>

#include "output/graphics_sink.h"
#include "workspace/geometry.h"

namespace ondrel {

/// Each of these three writes a piece of a line that PutLine ends.
void PutText(GraphicsContext& context, std::string_view text);
void PutInteger(GraphicsContext& context, std::int32_t value);
/// With as many decimals as `digits` says.
void PutReal(GraphicsContext& context, double value, int digits);

/// Writes `text` and a line end.
void PutLine(GraphicsContext& context, std::string_view text);

/// A line of a coordinate pair in units of the page; what is no finite number is 0. `suffix` is the
/// operator of the path, with its leading blank; empty where the pair stands alone.
void PutPoint(GraphicsContext& context, double x, double y, std::string_view suffix);

/// A line of the context's pen width.
void PutPenWidth(GraphicsContext& context, std::string_view suffix);

/// A line of cyan, magenta, yellow and black, each 0 to 1. What the three inks share is black.
void PutColor(GraphicsContext& context, const RgbColor& color, std::string_view suffix);

}  // namespace ondrel
