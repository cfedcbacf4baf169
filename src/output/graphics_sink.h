// The drawing table: everything that a view may do to put marks on a page, and the context in which
// it does so. A view is handed a sink, the context in the Workspace and a rectangle, and never
// learns whether it draws on the screen, on paper, into a metafile or into a document.
#pragma once

#include <cstddef>
#include <cstdint>

#include "shell/window_record.h"
#include "workspace/geometry.h"
#include "workspace/records.h"

namespace ondrel {

struct AmplitudeHistogram;
struct BinRecord;
struct DurationHistogram;
struct OutputFile;

/// The label of a vertical axis that stands highest, while labels are looked for.
struct TopLabel {
  bool Found = false;
  double Y = 0.0;          // its baseline, device units
  std::int32_t Width = 0;  // device units
};

/// What the operations of a sink share. The bin fields are set before a bar operation is called,
/// all others by the entry that starts a drawing.
struct GraphicsContext {
  DeviceRecord Device;                // of the screen form
  DeviceRecord Lent;                  // measures in place of a Device that cannot; else empty
  OutputFile* File = nullptr;         // the open output file of the file forms; borrowed
  char FileName[kPathSize] = "";      // of a metafile export; empty: it stays in memory
  char FontName[32] = "Helvetica";    // PostScript name, for the file forms
  std::int32_t DocumentFontSize = 0;  // file forms, in units of their pages
  double PenWidth = 0.0;              // file forms, in units of their pages
  double PointScale = 1.0;            // device units per point of the EPS form
  std::int32_t Status = 0;        // 0, or the error of the last failed write; a drawing then stops
  double PageHeight = 0.0;        // in the units of the file form
  std::int32_t BinCount = 0;      // bins of a bar operation
  double BinScale = 0.0;          // device units per data unit of a bin's height
  double BinWidth = 0.0;          // device units
  double BinPeak = 0.0;           // the data value that fills the plot, with BinFitHeight
  std::int32_t BinFitHeight = 0;  // nonzero: a bin fills (base - top) * Height / BinPeak
  TopLabel Highest;
};

/// The device with whose font everything is measured before it is drawn: columns, lines, centred
/// texts. A text that ends at a place is measured by the screen form itself, on its own device.
inline const DeviceRecord& MeasuringDevice(const GraphicsContext& context) {
  return context.Lent.Dc != nullptr ? context.Lent : context.Device;
}

enum class TextAlignment : std::int32_t { Left = 0, Right = 2 };

/// Fifteen operations, every slot filled. Coordinates are device units of the drawing's rectangle,
/// y growing downward. Bins are indexed from 1: element 0 is never drawn.
struct GraphicsSink {
  void (*DrawLine)(GraphicsContext& context, double x1, double y1, double x2, double y2);
  void (*MoveTo)(GraphicsContext& context, double x, double y);
  void (*LineTo)(GraphicsContext& context, double x, double y);
  /// Ends the path that MoveTo and LineTo made; the screen has drawn it by then.
  void (*StrokePath)(GraphicsContext& context);
  /// `y` is the baseline; with Right, `x` is where the text ends. `capacity` is ignored.
  void (*DrawText)(GraphicsContext& context, double x, double y, TextAlignment alignment,
                   const char* text, std::size_t capacity);
  void (*DrawFilledBars)(GraphicsContext& context, double left, double base, double right,
                         double top, const BinRecord* bins);
  void (*DrawBarRectangles)(GraphicsContext& context, double left, double base, double right,
                            double top, const BinRecord* bins);
  void (*DrawBarOutline)(GraphicsContext& context, double left, double base, double right,
                         double top, const BinRecord* bins);
  /// Returns the four arguments truncated.
  IntRect (*DrawRect)(GraphicsContext& context, double x1, double y1, double x2, double y2);
  /// The sum of the terms from `firstTerm` up to but not including `endTerm`.
  void (*DrawDurationCurve)(GraphicsContext& context, const DurationHistogram& fit, double x0,
                            double top, double base, std::int32_t firstTerm, std::int32_t endTerm);
  void (*DrawAmplitudeCurve)(GraphicsContext& context, const AmplitudeHistogram& fit, double x0,
                             double top, double base, std::int32_t firstTerm, std::int32_t endTerm);
  /// A square of side `size` centred on (x, y). Note that y comes first.
  void (*DrawDot)(GraphicsContext& context, double y, double x, double size);
  /// `suffix` is " k" for what is filled (text, bars) and " K" for what is stroked.
  void (*SetColor)(GraphicsContext& context, const char* suffix, std::size_t capacity,
                   const RgbColor& color);
  void (*SetClip)(GraphicsContext& context, const IntRect& rect);
  /// 1.0 where bins are laid out on whole device units (the screen), else 0.0.
  void (*GetPixelSnap)(GraphicsContext& context, double* snap);
};

}  // namespace ondrel
