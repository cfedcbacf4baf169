#include "output/illustrator_sink.h"

#include <cstring>

#include "output/document_paths.h"

namespace ondrel {
namespace {

/// Device units stand for points, whatever the resolution: pictures come out at the screen's dots
/// per inch over 72 times their size.
PagePlace ToIllustratorPage(const GraphicsContext& context, double x, double y) {
  return {x, context.PageHeight - y};
}

constexpr PathForm kForm = {
    .ToPage = ToIllustratorPage,
    .MoveTo = " m",
    .LineTo = " l",
    .PenWidth = " w",
    .Stroke = "S",
};

void IllustratorDrawText(GraphicsContext& context, double x, double y, TextAlignment alignment,
                         const char* text, std::size_t) {
  PutText(context, "/_");
  PutText(context, context.FontName);
  PutText(context, " ");
  PutInteger(context, context.DocumentFontSize);
  PutText(context, " 10 0 ");
  PutInteger(context, static_cast<std::int32_t>(alignment));
  PutLine(context, " z");

  PutText(context, "[1 0 0 1 ");
  document::PutPlace<kForm>(context, x, y, "]e");

  PutInteger(context, static_cast<std::int32_t>(std::strlen(text)));
  PutText(context, "(");
  PutText(context, text);
  PutLine(context, ")t");
  PutLine(context, "T");
}

void IllustratorDrawFilledBars(GraphicsContext& context, double left, double base, double right,
                               double top, const BinRecord* bins) {
  ForEachBar(context, {left, base, right, top}, bins, [&](const BarRecord& bar) {
    document::PutRectPath<kForm>(context, bar.Left, base, bar.Right, bar.Top);
    PutLine(context, "F");
  });
}

/// The centre comes onto the page, and its corners are told from there, not each by itself.
void IllustratorDrawDot(GraphicsContext& context, double y, double x, double size) {
  const double half = size / 2;
  const double pageY = context.PageHeight - y;
  PutPoint(context, x - half, pageY + half, " m");
  PutPoint(context, x + half, pageY + half, " l");
  PutPoint(context, x + half, pageY - half, " l");
  PutPoint(context, x - half, pageY - half, " l");
  PutPoint(context, x - half, pageY + half, " l");
  PutLine(context, "F");
}

/// The caller's operator: this form has one for what is filled and one for what is stroked.
void IllustratorSetColor(GraphicsContext& context, const char* suffix, std::size_t,
                         const RgbColor& color) {
  PutColor(context, color, suffix);
}

/// Opens a group, which the closing of the clip ends.
void IllustratorSetClip(GraphicsContext& context, const IntRect& rect) {
  PutLine(context, "q");
  document::PutClipPath<kForm>(context, rect);
  PutLine(context, "h");
  PutLine(context, "W");
  PutLine(context, "n");
}

}  // namespace

const GraphicsSink kIllustratorSink = {
    .DrawLine = document::DrawLine<kForm>,
    .MoveTo = document::MoveTo<kForm>,
    .LineTo = document::LineTo<kForm>,
    .StrokePath = document::StrokePath<kForm>,
    .DrawText = IllustratorDrawText,
    .DrawFilledBars = IllustratorDrawFilledBars,
    .DrawBarRectangles = document::DrawBarRectangles<kForm>,
    .DrawBarOutline = document::DrawBarOutline<kForm>,
    .DrawRect = document::DrawRect<kForm>,
    .DrawDurationCurve = document::DrawDurationCurve<kForm>,
    .DrawAmplitudeCurve = document::DrawAmplitudeCurve<kForm>,
    .DrawDot = IllustratorDrawDot,
    .SetColor = IllustratorSetColor,
    .SetClip = IllustratorSetClip,
    .GetPixelSnap = document::GetPixelSnap,
};

}  // namespace ondrel
