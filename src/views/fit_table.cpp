#include "views/fit_table.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <span>

#include "fit/amplitude_model.h"
#include "fit/duration_model.h"
#include "fit/histogram_axis.h"
#include "shell/toolkit.h"
#include "views/formula_pictures.h"
#include "views/screen_drawing.h"
#include "views/table_columns.h"
#include "workspace/truncate.h"

namespace ondrel {
namespace {

// --- Columns -------------------------------------------------------------------------------------

constexpr int kDecimals = 3;

const AmplitudeTerm& AmplitudeTermAt(const Workspace& workspace, std::int32_t row) {
  return workspace.Amplitude.Terms[static_cast<std::size_t>(row)];
}

const DurationTerm& DurationTermAt(const Workspace& workspace, std::int32_t row) {
  return workspace.Duration.Terms[static_cast<std::size_t>(row)];
}

void NumberCell(const Workspace&, std::int32_t row, char* text) {
  IntegerText(row + 1, text);
}

/// No blank stands between number and unit.
void WriteWithUnit(double value, char letter, const char* unit, char* text) {
  const std::size_t length = RealText(value, kDecimals, letter, text);
  std::strcpy(text + length, unit);
}

template <auto Field>
void WithPicoamperes(const Workspace& workspace, std::int32_t row, char* text) {
  WriteWithUnit(AmplitudeTermAt(workspace, row).*Field, 'f', "pA", text);
}

void TimeConstantCell(const Workspace& workspace, std::int32_t row, char* text) {
  WriteWithUnit(DurationTermAt(workspace, row).TimeConstant, 'E', "s", text);
}

// The template of the last column names another word than its header; it is only a measure.
constexpr TableColumn kAmplitudeColumns[] = {
    {"EETerm", nullptr, nullptr, "Term", NumberCell},
    {"CurrentEEE", nullptr, nullptr, "Current", WithPicoamperes<&AmplitudeTerm::Current>},
    {"WeightEEEEE", nullptr, nullptr, "Weight",
     RealCell<AmplitudeTermAt, &AmplitudeTerm::Weight, kDecimals>},
    {"VarianceEEEE", nullptr, nullptr, "StdDev", WithPicoamperes<&AmplitudeTerm::StdDev>},
};

constexpr TableColumn kDurationColumns[] = {
    {"EETerm", nullptr, nullptr, "Term", NumberCell},
    {"WeightEE", nullptr, nullptr, "Weight",
     RealCell<DurationTermAt, &DurationTerm::Weight, kDecimals>},
    {"TimeConstantEEE", nullptr, nullptr, "TimeConstant", TimeConstantCell},
};

// --- The two tables ------------------------------------------------------------------------------

struct FitTable {
  ViewKind View;
  std::span<const FormulaPicture> Formula;
  std::span<const TableColumn> Columns;
  std::int32_t (*Events)(const Workspace& workspace);
  double (*LogLikelihood)(const Workspace& workspace);
  std::int32_t (*Terms)(const Workspace& workspace);
};

template <auto Histogram>
std::int32_t EventsOf(const Workspace& workspace) {
  return (workspace.*Histogram).EventsInHistogram;
}

/// Without bins there is nothing that the terms could miss.
template <auto Histogram>
double LogLikelihoodOf(const Workspace& workspace) {
  const auto& histogram = workspace.*Histogram;
  return histogram.Bins == nullptr ? 0.0 : LogLikelihood(histogram);
}

template <auto Histogram>
std::int32_t TermsOf(const Workspace& workspace) {
  return static_cast<std::int32_t>(CountTerms(workspace.*Histogram));
}

constexpr FitTable kAmplitudeTable = {
    .View = ViewKind::AmplitudeFit,
    .Formula = kAmplitudeFormula,
    .Columns = kAmplitudeColumns,
    .Events = EventsOf<&Workspace::Amplitude>,
    .LogLikelihood = LogLikelihoodOf<&Workspace::Amplitude>,
    .Terms = TermsOf<&Workspace::Amplitude>,
};
constexpr FitTable kDurationTable = {
    .View = ViewKind::DurationFit,
    .Formula = kDurationFormula,
    .Columns = kDurationColumns,
    .Events = EventsOf<&Workspace::Duration>,
    .LogLikelihood = LogLikelihoodOf<&Workspace::Duration>,
    .Terms = TermsOf<&Workspace::Duration>,
};

// --- Drawing -------------------------------------------------------------------------------------

constexpr double kHeaderGap = 3.0 / 2.0;  // lines, above the header

/// Larger than any destination, and small enough that lines add up below it.
constexpr std::int32_t kLargestFormula = 1 << 24;

std::int32_t Scaled(std::int32_t pixels, double dpi, double screenDpi) {
  return std::clamp(TruncateToInteger(pixels * dpi / screenDpi), 0, kLargestFormula);
}

/// As large as the picture for the screen is on the screen.
IntRect PlaceFormula(const Workspace& workspace, const FitTable& table, const IntRect& rect,
                     double dpi) {
  const FormulaPicture& onScreen = table.Formula.front();
  return {.Left = rect.Left,
          .Top = rect.Top,
          .Right = rect.Left + Scaled(onScreen.Width, dpi, workspace.ScreenDpi),
          .Bottom = rect.Top + Scaled(onScreen.Height, dpi, workspace.ScreenDpi)};
}

/// Returns 0 or the error of the picture.
std::int32_t DrawFormula(Workspace& workspace, const FitTable& table, const IntRect& place) {
  const FormulaPicture& picture = PictureFor(table.Formula, Width(place), Height(place));
  return toolkit::DrawImage(workspace.Graphics.Device, picture.Resource, place);
}

void DrawLabelled(const Drawing& drawing, double x, double baseline, const char* label,
                  const char* number) {
  constexpr std::size_t kLongestLabel = 30;
  char text[kLongestLabel + kNumberTextSize] = "";
  std::snprintf(text, sizeof text, "%s%s", label, number);
  DrawTextFrom(drawing, x, baseline, text);
}

void DrawSummary(const Drawing& drawing, const Workspace& workspace, const FitTable& table,
                 double left, double baseline, double lineHeight) {
  char number[kNumberTextSize] = "";
  IntegerText(table.Events(workspace), number);
  DrawLabelled(drawing, left, baseline, "Events in histogram: ", number);
  RealText(table.LogLikelihood(workspace), 4, 'E', number);
  DrawLabelled(drawing, left, baseline + lineHeight, "Log likelihood: ", number);
}

/// `baseline` is that of the line above the header's.
void DrawTerms(const Drawing& drawing, const Workspace& workspace, const FitTable& table,
               double baseline, double lineHeight) {
  const auto& columnRight = ViewOf(workspace, table.View).ColumnRight;
  DrawHeader(drawing, table.Columns, columnRight, baseline, lineHeight);
  double rowBaseline = baseline + lineHeight;
  for (std::int32_t term = 0; term < table.Terms(workspace); ++term) {
    rowBaseline += lineHeight;
    DrawCells(drawing, workspace, table.Columns, columnRight, term, rowBaseline);
  }
}

/// There is no setting for the colour of the text: it is the black with which every device begins.
void DrawBelowFormula(const Drawing& drawing, const Workspace& workspace, const FitTable& table,
                      const IntRect& formula, std::int32_t lineHeight) {
  const double baseline = formula.Bottom + lineHeight / 2;
  DrawSummary(drawing, workspace, table, formula.Left + lineHeight, baseline, lineHeight);
  if (HasFailed(drawing)) return;
  DrawTerms(drawing, workspace, table, baseline + lineHeight * kHeaderGap, lineHeight);
}

/// At the height of a first line of the destination, wherever the table was to stand.
void DrawFormulaFailure(const Drawing& drawing, std::int32_t error, const IntRect& rect,
                        std::int32_t lineHeight) {
  constexpr double kIndent = 10.0;
  char text[80] = "";
  std::snprintf(text, sizeof text, "Fail in loading the resource bitmap! Error code %d",
                static_cast<int>(error));
  DrawTextFrom(drawing, rect.Left + kIndent, lineHeight, text);
}

void MeasureFitColumns(Workspace& workspace, const FitTable& table, const IntRect& rect) {
  MeasureColumns(workspace, table.Columns, rect.Left, ViewOf(workspace, table.View).ColumnRight);
}

}  // namespace

std::int32_t FitLineHeight(const Workspace& workspace) {
  constexpr double kUsualLeading = 0.2;  // of the height of the letters
  const std::int32_t height = MeasureLine(workspace).Height;
  const std::int32_t leading =
      toolkit::MeasureFont(MeasuringDevice(workspace.Graphics)).ExternalLeading;
  return height + (leading != 0 ? leading : TruncateToInteger(kUsualLeading * height));
}

void MeasureAmplitudeFitColumns(Workspace& workspace, const IntRect& rect) {
  MeasureFitColumns(workspace, kAmplitudeTable, rect);
}

void MeasureDurationFitColumns(Workspace& workspace, const IntRect& rect) {
  MeasureFitColumns(workspace, kDurationTable, rect);
}

void DrawAmplitudeFitTable(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect,
                           double dpi, std::int32_t lineHeight) {
  const Drawing drawing{sink, workspace.Graphics};
  const IntRect formula = PlaceFormula(workspace, kAmplitudeTable, rect, dpi);
  const std::int32_t error = DrawFormula(workspace, kAmplitudeTable, formula);
  if (error != 0) {
    DrawFormulaFailure(drawing, error, rect, lineHeight);
    return;
  }
  DrawBelowFormula(drawing, workspace, kAmplitudeTable, formula, lineHeight);
}

void DrawDurationFitTable(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect,
                          double dpi, std::int32_t lineHeight) {
  // Unlike its twin this table tells no failure and stands without its formula. The one code that
  // keeps it away is none of those that a missing picture has.
  constexpr std::int32_t kErrorWithoutTable = 1;
  const Drawing drawing{sink, workspace.Graphics};
  const IntRect formula = PlaceFormula(workspace, kDurationTable, rect, dpi);
  if (DrawFormula(workspace, kDurationTable, formula) == kErrorWithoutTable) return;
  DrawBelowFormula(drawing, workspace, kDurationTable, formula, lineHeight);
}

}  // namespace ondrel
