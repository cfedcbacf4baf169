// The device of the scripted shell: every call becomes a line of text.
#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

#include "support/scripted_device.h"

namespace ondrel::scripted {

DeviceRecord MakeDevice(DeviceKind kind, double dpi) {
  ++TheShell().OpenDevices;
  return {.Dc = new Device{.Kind = kind, .Dpi = dpi, .Picture = {}}};
}

void FreeDevice(DeviceRecord& record) {
  if (record.Dc == nullptr) return;
  --TheShell().OpenDevices;
  delete static_cast<Device*>(record.Dc);
  record.Dc = nullptr;
}

namespace {

/// `line` makes the text of what is drawn.
template <typename Line>
void Draw(const DeviceRecord& record, Line line) {
  if (!TheShell().KeepsDrawing) return;
  Device& device = DeviceOf(record);
  const std::string mark = device.Kind == DeviceKind::Measuring ? "measuring: " : "";
  TheShell().Drawing.push_back(mark + line());
  if (device.Kind == DeviceKind::Metafile) device.Picture.push_back(line());
  if (device.Kind == DeviceKind::Printer) TheShell().Printer.Paper.push_back(line());
}

/// A metafile measures nothing.
bool Measures(const DeviceRecord& record) {
  return DeviceOf(record).Kind != DeviceKind::Metafile;
}

/// A new object takes the place of the one that the record owned.
void Own(void*& object) {
  static char token;
  if (object == nullptr) ++TheShell().DeviceObjects;
  object = &token;
}

void Drop(void*& object) {
  if (object != nullptr) --TheShell().DeviceObjects;
  object = nullptr;
}

/// Fonts may be as large as settings take them.
std::int32_t Saturated(std::int64_t value) {
  return static_cast<std::int32_t>(
      std::min<std::int64_t>(value, std::numeric_limits<std::int32_t>::max()));
}

std::string Text(const IntRect& rect) {
  return std::to_string(rect.Left) + " " + std::to_string(rect.Top) + " " +
         std::to_string(rect.Right) + " " + std::to_string(rect.Bottom);
}

std::string Text(const RgbColor& color) {
  return std::to_string(color.Red) + " " + std::to_string(color.Green) + " " +
         std::to_string(color.Blue);
}

std::string Text(std::int32_t x, std::int32_t y) {
  return std::to_string(x) + " " + std::to_string(y);
}

}  // namespace

std::int32_t CharWidth(std::int32_t fontHeight) {
  return fontHeight / 2 + fontHeight % 2;
}

toolkit::FontMetrics MetricsOf(std::int32_t fontHeight) {
  return {.Ascent = fontHeight - fontHeight / 4,
          .Descent = fontHeight / 4,
          .ExternalLeading = TheShell().ExternalLeading};
}

}  // namespace ondrel::scripted

namespace ondrel::toolkit {

using namespace scripted;

DeviceRecord AcquireDevice(ChildWindow*) {
  return MakeDevice(DeviceKind::Window, TheShell().DeviceDpi);
}
void ReleaseDevice(ChildWindow*, DeviceRecord& device) {
  FreeDevice(device);
}

DeviceRecord AcquireMeasuringDevice() {
  if (TheShell().MeasuringDevice.Strikes()) return {};
  return MakeDevice(DeviceKind::Measuring, TheShell().DeviceDpi);
}
void ReleaseMeasuringDevice(DeviceRecord& device) {
  FreeDevice(device);
}

BufferRecord BeginBuffer(const DeviceRecord& device, const IntRect&) {
  static char bitmap;
  if (TheShell().NoBuffers) return {.Device = device};
  return {.Device = AcquireDevice(nullptr), .Bitmap = &bitmap};
}

void EndBuffer(const DeviceRecord& device, BufferRecord& buffer, const IntRect& rect) {
  if (buffer.Bitmap == nullptr) return;
  Draw(device, [&] { return "show " + Text(rect); });
  ReleaseDevice(nullptr, buffer.Device);
}

void SetUpDevice(DeviceRecord& device) {
  Own(device.Font);
  DeviceOf(device).FontHeight = 10;
}
void CleanUpDevice(DeviceRecord& device) {
  Drop(device.Pen);
  Drop(device.Brush);
  Drop(device.Font);
  Draw(device, [&] { return "clean up"; });
}
double DeviceDpi(const DeviceRecord& device) {
  return DeviceOf(device).Dpi;
}
void SetPenWidth(DeviceRecord& device, std::int32_t width) {
  Own(device.Pen);
  Draw(device, [&] { return "pen width " + std::to_string(width); });
}

void SetFontHeight(DeviceRecord& device, std::int32_t height) {
  Own(device.Font);
  DeviceOf(device).FontHeight = height;
}

FontMetrics MeasureFont(const DeviceRecord& device) {
  if (!Measures(device)) return {};
  return MetricsOf(DeviceOf(device).FontHeight);
}

std::int32_t TextWidth(const DeviceRecord& device, const char* text) {
  if (!Measures(device)) return 0;
  return Saturated(std::int64_t{CharWidth(DeviceOf(device).FontHeight)} *
                   static_cast<std::int64_t>(std::string(text).size()));
}

void SetBackground(DeviceRecord& device, const RgbColor& color) {
  Draw(device, [&] { return "background " + Text(color); });
}

void FillArea(DeviceRecord& device, const IntRect& rect, const RgbColor& color) {
  Draw(device, [&] { return "fill " + Text(rect) + " with " + Text(color); });
}

void SetDrawingColor(DeviceRecord& device, const RgbColor& color) {
  Own(device.Pen);
  Own(device.Brush);
  Draw(device, [&] { return "color " + Text(color); });
}

void MoveTo(DeviceRecord& device, std::int32_t x, std::int32_t y) {
  DeviceOf(device).X = x;
  DeviceOf(device).Y = y;
}

void LineTo(DeviceRecord& device, std::int32_t x, std::int32_t y) {
  Device& state = DeviceOf(device);
  Draw(device, [&] { return "line " + Text(state.X, state.Y) + " to " + Text(x, y); });
  MoveTo(device, x, y);
}

void DrawPoint(DeviceRecord& device, std::int32_t x, std::int32_t y) {
  Draw(device, [&] { return "point " + Text(x, y); });
  MoveTo(device, x, y);
}

void FilledRect(DeviceRecord& device, const IntRect& rect) {
  Draw(device, [&] { return "filled rect " + Text(rect); });
}
void HollowRect(DeviceRecord& device, const IntRect& rect) {
  Draw(device, [&] { return "hollow rect " + Text(rect); });
}

std::int32_t DrawImage(DeviceRecord& device, int resource, const IntRect& rect) {
  if (TheShell().ImageError != 0) return TheShell().ImageError;
  Draw(device, [&] { return "image " + std::to_string(resource) + " " + Text(rect); });
  return 0;
}

void DrawTextHere(DeviceRecord& device, const char* text) {
  Device& state = DeviceOf(device);
  Draw(device, [&] { return "text " + Text(state.X, state.Y) + " " + text; });
  state.X = Saturated(std::int64_t{state.X} + TextWidth(device, text));
}

void ClipTo(DeviceRecord& device, const IntRect& rect) {
  if (DeviceOf(device).Kind == DeviceKind::Metafile) return;  // it tells that it cannot clip
  Draw(device, [&] { return "clip " + Text(rect); });
}
void RemoveClip(DeviceRecord& device) {
  Draw(device, [&] { return "clip off"; });
}

void ScrollArea(ChildWindow*, DeviceRecord& device, const IntRect& rect, std::int32_t dy,
                const RgbColor& background) {
  Draw(device, [&] {
    return "scroll " + Text(rect) + " by " + std::to_string(dy) + " with " + Text(background);
  });
}

}  // namespace ondrel::toolkit
