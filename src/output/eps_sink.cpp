#include "output/eps_sink.h"

#include "output/bar_geometry.h"
#include "output/curve_points.h"
#include "output/document_lines.h"
#include "output/truncated_rect.h"

namespace ondrel {
namespace {

/// A line of the point's place on the page, where y grows upward.
void PutPagePoint(GraphicsContext& context, double x, double y, const char* suffix) {
  PutPoint(context, x / context.PointScale, context.PageHeight - y / context.PointScale, suffix);
}

void EpsMoveTo(GraphicsContext& context, double x, double y) {
  PutPagePoint(context, x, y, " moveto");
}

void EpsLineTo(GraphicsContext& context, double x, double y) {
  PutPagePoint(context, x, y, " lineto");
}

/// The pen width stands behind the path that it is for.
void EpsStrokePath(GraphicsContext& context) {
  PutPenWidth(context, " setlinewidth");
  PutLine(context, "stroke");
}

void EpsDrawLine(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  EpsMoveTo(context, x1, y1);
  EpsLineTo(context, x2, y2);
  EpsStrokePath(context);
}

/// A closed path that leaves its first corner along the y axis.
void PutRectPath(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  EpsMoveTo(context, x1, y1);
  EpsLineTo(context, x1, y2);
  EpsLineTo(context, x2, y2);
  EpsLineTo(context, x2, y1);
  EpsLineTo(context, x1, y1);
}

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
  PutPagePoint(context, x, y, endsThere ? "" : " moveto");
  PutText(context, "(");
  PutText(context, text);
  PutLine(context, endsThere ? ") right_show" : ") show");
}

/// Draws with the pen as it is: unlike other strokes, this one has no line of its width.
IntRect EpsDrawRect(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  PutRectPath(context, x1, y1, x2, y2);
  PutLine(context, "stroke");
  return TruncateRect(x1, y1, x2, y2);
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

void EpsDrawBarRectangles(GraphicsContext& context, double left, double base, double right,
                          double top, const BinRecord* bins) {
  ForEachBar(context, {left, base, right, top}, bins, [&](const BarRecord& bar) {
    PutRectPath(context, bar.Left, base, bar.Right, bar.Top);
    EpsStrokePath(context);
  });
}

void EpsDrawBarOutline(GraphicsContext& context, double left, double base, double right, double top,
                       const BinRecord* bins) {
  EpsMoveTo(context, left, base);
  const double end = ForEachBar(context, {left, base, right, top}, bins, [&](const BarRecord& bar) {
    EpsLineTo(context, bar.Left, bar.Top);
    EpsLineTo(context, bar.Right, bar.Top);
  });
  EpsLineTo(context, end, base);
  EpsStrokePath(context);
}

void DrawCurvePoint(GraphicsContext& context, const CurvePoint& point) {
  (point.Begins ? EpsMoveTo : EpsLineTo)(context, point.X, point.Y);
}

/// A curve draws with the pen as it is, as a rectangle does.
void EpsDrawDurationCurve(GraphicsContext& context, const DurationHistogram& fit, double x0,
                          double top, double base, std::int32_t firstTerm, std::int32_t endTerm) {
  ForEachCurvePoint(fit, {x0, top, base, firstTerm, endTerm}, context.BinCount,
                    [&](const CurvePoint& point) { DrawCurvePoint(context, point); });
  PutLine(context, "stroke");
}

// The twins count their points by themselves: this one's does not come from the context.
void EpsDrawAmplitudeCurve(GraphicsContext& context, const AmplitudeHistogram& fit, double x0,
                           double top, double base, std::int32_t firstTerm, std::int32_t endTerm) {
  ForEachCurvePoint(fit, {x0, top, base, firstTerm, endTerm}, CountBins(fit),
                    [&](const CurvePoint& point) { DrawCurvePoint(context, point); });
  PutLine(context, "stroke");
}

/// The first line ends in an "F" where the path's operator would stand: a settled peculiarity of
/// these documents, although an interpreter of PostScript fails at it.
void EpsDrawDot(GraphicsContext& context, double y, double x, double size) {
  const double half = size / 2;
  PutPagePoint(context, x - half, y - half, "F");
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
  EpsMoveTo(context, rect.Left, rect.Top);
  EpsLineTo(context, rect.Right, rect.Top);
  EpsLineTo(context, rect.Right, rect.Bottom);
  EpsLineTo(context, rect.Left, rect.Bottom);
  EpsLineTo(context, rect.Left, rect.Top);
  PutLine(context, "clip");
  PutLine(context, "newpath");
}

void EpsGetPixelSnap(GraphicsContext&, double* snap) {
  *snap = 0.0;
}

}  // namespace

const GraphicsSink kEpsSink = {
    .DrawLine = EpsDrawLine,
    .MoveTo = EpsMoveTo,
    .LineTo = EpsLineTo,
    .StrokePath = EpsStrokePath,
    .DrawText = EpsDrawText,
    .DrawFilledBars = EpsDrawFilledBars,
    .DrawBarRectangles = EpsDrawBarRectangles,
    .DrawBarOutline = EpsDrawBarOutline,
    .DrawRect = EpsDrawRect,
    .DrawDurationCurve = EpsDrawDurationCurve,
    .DrawAmplitudeCurve = EpsDrawAmplitudeCurve,
    .DrawDot = EpsDrawDot,
    .SetColor = EpsSetColor,
    .SetClip = EpsSetClip,
    .GetPixelSnap = EpsGetPixelSnap,
};

}  // namespace ondrel
