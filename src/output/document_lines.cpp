#include "output/document_lines.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "workspace/number_text.h"
#include "workspace/output_file.h"

namespace ondrel {
namespace {

constexpr int kCoordinateDigits = 3;
constexpr int kPenWidthDigits = 2;
constexpr int kInkDigits = 3;

constexpr double kFullChannel = 65535.0;

using NumberText = std::array<char, kNumberTextSize>;

/// A place that is no number, such as that of a curve over no counts, would end the work of whoever
/// reads the document.
double OnPage(double place) {
  return std::isfinite(place) ? place : 0.0;
}

}  // namespace

void PutText(GraphicsContext& context, std::string_view text) {
  if (context.Status != 0) return;
  context.Status = WriteText(*context.File, text);
}

void PutInteger(GraphicsContext& context, std::int32_t value) {
  NumberText text;
  const std::size_t length = IntegerText(value, text.data());
  PutText(context, {text.data(), length});
}

void PutReal(GraphicsContext& context, double value, int digits) {
  NumberText text;
  const std::size_t length = RealText(value, digits, 'f', text.data());
  PutText(context, {text.data(), length});
}

void PutLine(GraphicsContext& context, std::string_view text) {
  if (context.Status != 0) return;
  context.Status = WriteLine(*context.File, text);
}

void PutPoint(GraphicsContext& context, double x, double y, std::string_view suffix) {
  PutReal(context, OnPage(x), kCoordinateDigits);
  PutText(context, " ");
  PutReal(context, OnPage(y), kCoordinateDigits);
  PutLine(context, suffix);
}

void PutPenWidth(GraphicsContext& context, std::string_view suffix) {
  PutReal(context, context.PenWidth, kPenWidthDigits);
  PutLine(context, suffix);
}

void PutColor(GraphicsContext& context, const RgbColor& color, std::string_view suffix) {
  const double cyan = 1.0 - color.Red / kFullChannel;
  const double magenta = 1.0 - color.Green / kFullChannel;
  const double yellow = 1.0 - color.Blue / kFullChannel;
  const double black = std::min({cyan, magenta, yellow});
  for (const double ink : {cyan - black, magenta - black, yellow - black}) {
    PutReal(context, std::clamp(ink, 0.0, 1.0), kInkDigits);
    PutText(context, " ");
  }
  PutReal(context, std::clamp(black, 0.0, 1.0), kInkDigits);
  PutLine(context, suffix);
}

}  // namespace ondrel
