#include "output/eps_sink.h"

#include "output/document_paths.h"

namespace ondrel {
namespace {

/// Device units become points.
PagePlace ToEpsPage(const GraphicsContext& context, double x, double y) {
  return {x / context.PointScale, context.PageHeight - y / context.PointScale};
}

constexpr PathForm kForm = {
    .ToPage = ToEpsPage,
    .MoveTo = " moveto",
    .LineTo = " lineto",
    .PenWidth = " setlinewidth",
    .Stroke = "stroke",
};

constexpr auto EpsMoveTo = document::MoveTo<kForm>;
constexpr auto EpsLineTo = document::LineTo<kForm>;

/// The document's procedure for text that ends at a place takes that place from the stack, so that
/// it stands alone, without an operator.
void EpsDrawText(GraphicsContext& context, double x, double y, TextAlignment alignment,
                 const char* text, std::size_t) {
  PutText(context, "/");
  PutText(context, context.FontName);
  PutLine(context, " findfont");
  PutInteger(context, context.DocumentFontSize);
  PutLine(context, " scalefont setfont");

  const bool endsThere = alignment == TextAlignment::Right;
  document::PutPlace<kForm>(context, x, y, endsThere ? "" : kForm.MoveTo);
  PutText(context, "(");
  PutText(context, text);
  PutLine(context, endsThere ? ") right_show" : ") show");
}

/// Unlike the other forms, one polygon for all bars, down to the base at both ends of the plot. A
/// bar that does not end within the plot has its left side drawn.
void EpsDrawFilledBars(GraphicsContext& context, double left, double base, double right, double top,
                       const BinRecord* bins) {
  EpsMoveTo(context, left, base);
  ForEachBar(
      context, {left, base, right, top}, bins,
      [&](const BarRecord& bar) {
        EpsLineTo(context, bar.Left, bar.Top);
        EpsLineTo(context, bar.Right, bar.Top);
      },
      [&](const BarRecord& beyond) { EpsLineTo(context, beyond.Left, beyond.Top); });
  EpsLineTo(context, right, base);
  EpsLineTo(context, left, base);
  PutLine(context, "fill");
}

/// The first line ends in an "F" where the path's operator would stand: a settled peculiarity of
/// these documents, although an interpreter of PostScript fails at it.
void EpsDrawDot(GraphicsContext& context, double y, double x, double size) {
  const double half = size / 2;
  document::PutPlace<kForm>(context, x - half, y - half, "F");
  EpsLineTo(context, x + half, y - half);
  EpsLineTo(context, x + half, y + half);
  EpsLineTo(context, x - half, y + half);
  EpsLineTo(context, x - half, y - half);
  PutLine(context, "fill");
}

/// One operator colours all: what the caller is about to draw makes no difference.
void EpsSetColor(GraphicsContext& context, const char*, std::size_t, const RgbColor& color) {
  PutColor(context, color, " setcmykcolor");
}

void EpsSetClip(GraphicsContext& context, const IntRect& rect) {
  document::PutClipPath<kForm>(context, rect);
  PutLine(context, "clip");
  PutLine(context, "newpath");
}

}  // namespace

const GraphicsSink kEpsSink = {
    .DrawLine = document::DrawLine<kForm>,
    .MoveTo = EpsMoveTo,
    .LineTo = EpsLineTo,
    .StrokePath = document::StrokePath<kForm>,
    .DrawText = EpsDrawText,
    .DrawFilledBars = EpsDrawFilledBars,
    .DrawBarRectangles = document::DrawBarRectangles<kForm>,
    .DrawBarOutline = document::DrawBarOutline<kForm>,
    .DrawRect = document::DrawRect<kForm>,
    .DrawDurationCurve = document::DrawDurationCurve<kForm>,
    .DrawAmplitudeCurve = document::DrawAmplitudeCurve<kForm>,
    .DrawDot = EpsDrawDot,
    .SetColor = EpsSetColor,
    .SetClip = EpsSetClip,
    .GetPixelSnap = document::GetPixelSnap,
};

}  // namespace ondrel
