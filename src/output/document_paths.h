// The operations of the drawing table that both file forms carry out alike: all that comes to
// nothing but paths. A form tells how a place comes onto its pages and how the operators of a path
// are written.
#pragma once

#include <cstdint>

#include "output/bar_geometry.h"
#include "output/curve_points.h"
#include "output/document_lines.h"
#include "output/truncated_rect.h"

namespace ondrel {

/// A place in units of the page, where y grows upward.
struct PagePlace {
  double X = 0.0;
  double Y = 0.0;
};

/// In what the paths of the two forms differ.
struct PathForm {
  PagePlace (*ToPage)(const GraphicsContext& context, double x, double y);
  // Written behind numbers, and so with a leading blank.
  const char* MoveTo;
  const char* LineTo;
  const char* PenWidth;
  const char* Stroke;  // a line of its own
};

}  // namespace ondrel

namespace ondrel::document {

/// A line of the place on the page of what stands at (x, y) in the drawing.
template <const PathForm& kForm>
void PutPlace(GraphicsContext& context, double x, double y, const char* suffix) {
  const PagePlace place = kForm.ToPage(context, x, y);
  PutPoint(context, place.X, place.Y, suffix);
}

// --- Paths ---------------------------------------------------------------------------------------

template <const PathForm& kForm>
void MoveTo(GraphicsContext& context, double x, double y) {
  PutPlace<kForm>(context, x, y, kForm.MoveTo);
}

template <const PathForm& kForm>
void LineTo(GraphicsContext& context, double x, double y) {
  PutPlace<kForm>(context, x, y, kForm.LineTo);
}

/// The pen width stands behind the path that it is for.
template <const PathForm& kForm>
void StrokePath(GraphicsContext& context) {
  PutPenWidth(context, kForm.PenWidth);
  PutLine(context, kForm.Stroke);
}

template <const PathForm& kForm>
void DrawLine(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  MoveTo<kForm>(context, x1, y1);
  LineTo<kForm>(context, x2, y2);
  StrokePath<kForm>(context);
}

/// A closed path that leaves its first corner along the y axis.
template <const PathForm& kForm>
void PutRectPath(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  MoveTo<kForm>(context, x1, y1);
  LineTo<kForm>(context, x1, y2);
  LineTo<kForm>(context, x2, y2);
  LineTo<kForm>(context, x2, y1);
  LineTo<kForm>(context, x1, y1);
}

/// Draws with the pen as it is: unlike other strokes, this one has no line of its width.
template <const PathForm& kForm>
IntRect DrawRect(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  PutRectPath<kForm>(context, x1, y1, x2, y2);
  PutLine(context, kForm.Stroke);
  return TruncateRect(x1, y1, x2, y2);
}

/// The path of a clip, which leaves its first corner along the x axis: a form ends it as it does.
template <const PathForm& kForm>
void PutClipPath(GraphicsContext& context, const IntRect& rect) {
  MoveTo<kForm>(context, rect.Left, rect.Top);
  LineTo<kForm>(context, rect.Right, rect.Top);
  LineTo<kForm>(context, rect.Right, rect.Bottom);
  LineTo<kForm>(context, rect.Left, rect.Bottom);
  LineTo<kForm>(context, rect.Left, rect.Top);
}

// --- Bars ----------------------------------------------------------------------------------------

template <const PathForm& kForm>
void DrawBarRectangles(GraphicsContext& context, double left, double base, double right, double top,
                       const BinRecord* bins) {
  ForEachBar(context, {left, base, right, top}, bins, [&](const BarRecord& bar) {
    PutRectPath<kForm>(context, bar.Left, base, bar.Right, bar.Top);
    StrokePath<kForm>(context);
  });
}

template <const PathForm& kForm>
void DrawBarOutline(GraphicsContext& context, double left, double base, double right, double top,
                    const BinRecord* bins) {
  MoveTo<kForm>(context, left, base);
  const double end = ForEachBar(context, {left, base, right, top}, bins, [&](const BarRecord& bar) {
    LineTo<kForm>(context, bar.Left, bar.Top);
    LineTo<kForm>(context, bar.Right, bar.Top);
  });
  LineTo<kForm>(context, end, base);
  StrokePath<kForm>(context);
}

// --- Curves --------------------------------------------------------------------------------------

/// A curve draws with the pen as it is, as a rectangle does.
template <const PathForm& kForm, typename Histogram>
void DrawCurve(GraphicsContext& context, const Histogram& fit, const CurvePlot& plot,
               std::int64_t pointCount) {
  ForEachCurvePoint(fit, plot, pointCount, [&](const CurvePoint& point) {
    (point.Begins ? MoveTo<kForm> : LineTo<kForm>)(context, point.X, point.Y);
  });
  PutLine(context, kForm.Stroke);
}

template <const PathForm& kForm>
void DrawDurationCurve(GraphicsContext& context, const DurationHistogram& fit, double x0,
                       double top, double base, std::int32_t firstTerm, std::int32_t endTerm) {
  DrawCurve<kForm>(context, fit, {x0, top, base, firstTerm, endTerm}, context.BinCount);
}

// The twins count their points by themselves: this one's does not come from the context.
template <const PathForm& kForm>
void DrawAmplitudeCurve(GraphicsContext& context, const AmplitudeHistogram& fit, double x0,
                        double top, double base, std::int32_t firstTerm, std::int32_t endTerm) {
  DrawCurve<kForm>(context, fit, {x0, top, base, firstTerm, endTerm}, CountBins(fit));
}

// --- Layout --------------------------------------------------------------------------------------

/// A page has no whole units to which bins could be snapped.
inline void GetPixelSnap(GraphicsContext&, double* snap) {
  *snap = 0.0;
}

}  // namespace ondrel::document
