#include "output/illustrator_sink.h"

#include <cstring>

#include "output/bar_geometry.h"
#include "output/curve_points.h"
#include "output/document_lines.h"
#include "output/truncated_rect.h"

namespace ondrel {
namespace {

/// A line of the point's place on the page, where y grows upward.
void PutPagePoint(GraphicsContext& context, double x, double y, const char* suffix) {
  PutPoint(context, x, context.PageHeight - y, suffix);
}

void IllustratorMoveTo(GraphicsContext& context, double x, double y) {
  PutPagePoint(context, x, y, " m");
}

void IllustratorLineTo(GraphicsContext& context, double x, double y) {
  PutPagePoint(context, x, y, " l");
}

/// The pen width stands behind the path that it is for.
void IllustratorStrokePath(GraphicsContext& context) {
  PutPenWidth(context, " w");
  PutLine(context, "S");
}

void IllustratorDrawLine(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  IllustratorMoveTo(context, x1, y1);
  IllustratorLineTo(context, x2, y2);
  IllustratorStrokePath(context);
}

/// A closed path that leaves its first corner along the y axis.
void PutRectPath(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  IllustratorMoveTo(context, x1, y1);
  IllustratorLineTo(context, x1, y2);
  IllustratorLineTo(context, x2, y2);
  IllustratorLineTo(context, x2, y1);
  IllustratorLineTo(context, x1, y1);
}

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
  PutPagePoint(context, x, y, "]e");

  PutInteger(context, static_cast<std::int32_t>(std::strlen(text)));
  PutText(context, "(");
  PutText(context, text);
  PutLine(context, ")t");
  PutLine(context, "T");
}

/// Draws with the pen as it is: unlike other strokes, this one has no line of its width.
IntRect IllustratorDrawRect(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  PutRectPath(context, x1, y1, x2, y2);
  PutLine(context, "S");
  return TruncateRect(x1, y1, x2, y2);
}

void IllustratorDrawFilledBars(GraphicsContext& context, double left, double base, double right,
                               double top, const BinRecord* bins) {
  ForEachBar(context, {left, base, right, top}, bins, [&](const BarRecord& bar) {
    PutRectPath(context, bar.Left, base, bar.Right, bar.Top);
    PutLine(context, "F");
  });
}

void IllustratorDrawBarRectangles(GraphicsContext& context, double left, double base, double right,
                                  double top, const BinRecord* bins) {
  ForEachBar(context, {left, base, right, top}, bins, [&](const BarRecord& bar) {
    PutRectPath(context, bar.Left, base, bar.Right, bar.Top);
    IllustratorStrokePath(context);
  });
}

void IllustratorDrawBarOutline(GraphicsContext& context, double left, double base, double right,
                               double top, const BinRecord* bins) {
  IllustratorMoveTo(context, left, base);
  const double end = ForEachBar(context, {left, base, right, top}, bins, [&](const BarRecord& bar) {
    IllustratorLineTo(context, bar.Left, bar.Top);
    IllustratorLineTo(context, bar.Right, bar.Top);
  });
  IllustratorLineTo(context, end, base);
  IllustratorStrokePath(context);
}

void DrawCurvePoint(GraphicsContext& context, const CurvePoint& point) {
  (point.Begins ? IllustratorMoveTo : IllustratorLineTo)(context, point.X, point.Y);
}

/// A curve draws with the pen as it is, as a rectangle does.
void IllustratorDrawDurationCurve(GraphicsContext& context, const DurationHistogram& fit, double x0,
                                  double top, double base, std::int32_t firstTerm,
                                  std::int32_t endTerm) {
  ForEachCurvePoint(fit, {x0, top, base, firstTerm, endTerm}, context.BinCount,
                    [&](const CurvePoint& point) { DrawCurvePoint(context, point); });
  PutLine(context, "S");
}

// The twins count their points by themselves: this one's does not come from the context.
void IllustratorDrawAmplitudeCurve(GraphicsContext& context, const AmplitudeHistogram& fit,
                                   double x0, double top, double base, std::int32_t firstTerm,
                                   std::int32_t endTerm) {
  ForEachCurvePoint(fit, {x0, top, base, firstTerm, endTerm}, CountBins(fit),
                    [&](const CurvePoint& point) { DrawCurvePoint(context, point); });
  PutLine(context, "S");
}

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

void IllustratorSetColor(GraphicsContext& context, const char* suffix, std::size_t,
                         const RgbColor& color) {
  PutColor(context, color, suffix);
}

/// Opens a group, which the closing of the clip ends.
void IllustratorSetClip(GraphicsContext& context, const IntRect& rect) {
  PutLine(context, "q");
  IllustratorMoveTo(context, rect.Left, rect.Top);
  IllustratorLineTo(context, rect.Right, rect.Top);
  IllustratorLineTo(context, rect.Right, rect.Bottom);
  IllustratorLineTo(context, rect.Left, rect.Bottom);
  IllustratorLineTo(context, rect.Left, rect.Top);
  PutLine(context, "h");
  PutLine(context, "W");
  PutLine(context, "n");
}

void IllustratorGetPixelSnap(GraphicsContext&, double* snap) {
  *snap = 0.0;
}

}  // namespace

const GraphicsSink kIllustratorSink = {
    .DrawLine = IllustratorDrawLine,
    .MoveTo = IllustratorMoveTo,
    .LineTo = IllustratorLineTo,
    .StrokePath = IllustratorStrokePath,
    .DrawText = IllustratorDrawText,
    .DrawFilledBars = IllustratorDrawFilledBars,
    .DrawBarRectangles = IllustratorDrawBarRectangles,
    .DrawBarOutline = IllustratorDrawBarOutline,
    .DrawRect = IllustratorDrawRect,
    .DrawDurationCurve = IllustratorDrawDurationCurve,
    .DrawAmplitudeCurve = IllustratorDrawAmplitudeCurve,
    .DrawDot = IllustratorDrawDot,
    .SetColor = IllustratorSetColor,
    .SetClip = IllustratorSetClip,
    .GetPixelSnap = IllustratorGetPixelSnap,
};

}  // namespace ondrel
