// How long it takes to paint a scatter plot on a screen of Windows, from the levels to the picture.
// The baseline is the same picture made with what the platform offers and nothing else: the places
// of the dots are known, and `Rectangle` is called for each. The medians of turns are compared, and
// so are both pictures, pixel by pixel. Returns 1 when they differ.
#include <windows.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <vector>

#include "derived/scatter_points.h"
#include "output/screen_sink.h"
#include "scatter_cases.h"
#include "shell/toolkit.h"
#include "views/all_views.h"
#include "views/scatter_views.h"
#include "views/screen_drawing.h"
#include "workspace/truncate.h"

namespace ondrel::bench {
namespace {

constexpr std::size_t kTurns = 9;
constexpr RgbColor kInk{65535, 0, 0};

/// A picture in memory as a window is painted through, and the screen to show it on.
class Canvas {
 public:
  Canvas() {
    screen_.Dc = GetDC(nullptr);
    memory_ = CreateCompatibleDC(ScreenDc());
    bitmap_ = CreateCompatibleBitmap(ScreenDc(), kPlotRect.Right, kPlotRect.Bottom);
    SelectObject(memory_, bitmap_);
  }
  ~Canvas() {
    DeleteDC(memory_);
    DeleteObject(bitmap_);
    ReleaseDC(nullptr, ScreenDc());
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  HDC Memory() const { return memory_; }
  void Show() const {
    BitBlt(ScreenDc(), 0, 0, kPlotRect.Right, kPlotRect.Bottom, memory_, 0, 0, SRCCOPY);
    GdiFlush();
  }
  std::vector<std::uint32_t> Pixels() const {
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(Width(kPlotRect)) *
                                      static_cast<std::size_t>(Height(kPlotRect)));
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = Width(kPlotRect);
    info.bmiHeader.biHeight = Height(kPlotRect);
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    HDC other = CreateCompatibleDC(memory_);
    GetDIBits(other, bitmap_, 0, static_cast<UINT>(Height(kPlotRect)), pixels.data(), &info,
              DIB_RGB_COLORS);
    DeleteDC(other);
    return pixels;
  }

 private:
  HDC ScreenDc() const { return static_cast<HDC>(screen_.Dc); }

  DeviceRecord screen_;
  HDC memory_ = nullptr;
  HBITMAP bitmap_ = nullptr;
};

void PaintPlot(Workspace& workspace, const Canvas& canvas) {
  BeginScreenDrawing(workspace, {.Dc = canvas.Memory()}, kWhite);
  toolkit::FillArea(workspace.Graphics.Device, kPlotRect, kWhite);
  LayoutScatter(workspace, kPlotRect, toolkit::DeviceDpi(workspace.Graphics.Device));
  DrawScatter(workspace, kScreenSink, kPlotRect);
  EndDrawing(workspace);
  canvas.Show();
}

std::vector<RECT> RectanglesOf(const Workspace& workspace) {
  const double half = ViewOf(workspace, ViewKind::Scatter).Scatter.SymbolPixels / 2.0;
  std::vector<RECT> rectangles;
  ForEachScatterPoint(workspace, [&](const ScatterPoint& point) {
    rectangles.push_back({TruncateToInteger(point.X - half), TruncateToInteger(point.Y - half),
                          TruncateToInteger(point.X + half), TruncateToInteger(point.Y + half)});
    return true;
  });
  return rectangles;
}

void PaintRectangles(const std::vector<RECT>& rectangles, const Canvas& canvas) {
  HDC dc = canvas.Memory();
  const RECT area{0, 0, kPlotRect.Right, kPlotRect.Bottom};
  FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  HGDIOBJ pen = CreatePen(PS_SOLID, 1, RGB(255, 0, 0));
  HGDIOBJ brush = CreateSolidBrush(RGB(255, 0, 0));
  SelectObject(dc, pen);
  SelectObject(dc, brush);
  for (const RECT& r : rectangles) Rectangle(dc, r.left, r.top, r.right, r.bottom);
  SelectObject(dc, GetStockObject(BLACK_PEN));
  SelectObject(dc, GetStockObject(WHITE_BRUSH));
  DeleteObject(pen);
  DeleteObject(brush);
  canvas.Show();
}

using Times = std::array<double, kTurns>;

template <typename Run>
double Milliseconds(Run run) {
  const auto start = std::chrono::steady_clock::now();
  run();
  return 1e3 * std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(Times& times) {
  std::sort(times.begin(), times.end());
  return times[kTurns / 2];
}

bool RunWith(Workspace& workspace, std::int32_t levels) {
  const Canvas canvas;
  FillScatterLevels(workspace, levels);
  PaintPlot(workspace, canvas);
  const std::vector<std::uint32_t> shown = canvas.Pixels();
  const std::vector<RECT> rectangles = RectanglesOf(workspace);
  PaintRectangles(rectangles, canvas);
  const bool right = shown == canvas.Pixels();
  Times product;
  Times baseline;
  for (std::size_t turn = 0; turn < kTurns; ++turn) {
    baseline[turn] = Milliseconds([&] { PaintRectangles(rectangles, canvas); });
    product[turn] = Milliseconds([&] { PaintPlot(workspace, canvas); });
  }
  std::printf("%8zu dots %9.1f ms   baseline %9.1f ms   ratio %5.2f   %s\n", rectangles.size(),
              Median(product), Median(baseline), Median(baseline) / Median(product),
              right ? "right" : "WRONG");
  return right;
}

int RunAll() {
  constexpr std::int32_t kFew = 100000;
  constexpr std::int32_t kMany = 1000000;
  const auto workspace = std::make_unique<Workspace>();
  FrameWindow frame;
  frame.Owner = workspace.get();
  workspace->Frame = &frame;
  workspace->Levels.Capacity = kMany;
  workspace->Scatter.ShowAxes = false;
  workspace->Scatter.ShowLabels = false;
  AllocateLevelTable(&frame);
  if (workspace->Levels.Index == nullptr) return 1;
  ResetViews(*workspace);
  ViewOf(*workspace, ViewKind::Scatter).Colors[0] = kInk;
  bool right = true;
  for (const std::int32_t levels : {kFew, kMany}) right = RunWith(*workspace, levels) && right;
  FreeAllTables(*workspace);
  return right ? 0 : 1;
}

}  // namespace
}  // namespace ondrel::bench

int main() {
  return ondrel::bench::RunAll();
}
