// The device of the scripted shell: every call becomes a line of text.
#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

#include "support/scripted_shell.h"

namespace ondrel::scripted {

namespace {

/// What a device keeps while it lives; the record's handles point here.
struct Device {
  std::int32_t FontHeight = 10;
  std::int32_t X = 0;
  std::int32_t Y = 0;
};

Device& DeviceOf(const DeviceRecord& record) {
  return *static_cast<Device*>(record.Dc);
}

/// `line` makes the text of what is drawn.
template <typename Line>
void Draw(Line line) {
  if (TheShell().KeepsDrawing) TheShell().Drawing.push_back(line());
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
  ++TheShell().OpenDevices;
  return {.Dc = new Device};
}

void ReleaseDevice(ChildWindow*, DeviceRecord& device) {
  --TheShell().OpenDevices;
  delete static_cast<Device*>(device.Dc);
  device.Dc = nullptr;
}

BufferRecord BeginBuffer(const DeviceRecord& device, const IntRect&) {
  static char bitmap;
  if (TheShell().NoBuffers) return {.Device = device};
  return {.Device = AcquireDevice(nullptr), .Bitmap = &bitmap};
}

void EndBuffer(const DeviceRecord&, BufferRecord& buffer, const IntRect& rect) {
  if (buffer.Bitmap == nullptr) return;
  Draw([&] { return "show " + Text(rect); });
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
  Draw([&] { return "clean up"; });
}
double DeviceDpi(const DeviceRecord&) {
  return TheShell().DeviceDpi;
}
void SetPenWidth(DeviceRecord& device, std::int32_t width) {
  Own(device.Pen);
  Draw([&] { return "pen width " + std::to_string(width); });
}

void SetFontHeight(DeviceRecord& device, std::int32_t height) {
  Own(device.Font);
  DeviceOf(device).FontHeight = height;
}

FontMetrics MeasureFont(const DeviceRecord& device) {
  return MetricsOf(DeviceOf(device).FontHeight);
}

std::int32_t TextWidth(const DeviceRecord& device, const char* text) {
  return Saturated(std::int64_t{CharWidth(DeviceOf(device).FontHeight)} *
                   static_cast<std::int64_t>(std::string(text).size()));
}

void SetBackground(DeviceRecord&, const RgbColor& color) {
  Draw([&] { return "background " + Text(color); });
}

void FillArea(DeviceRecord&, const IntRect& rect, const RgbColor& color) {
  Draw([&] { return "fill " + Text(rect) + " with " + Text(color); });
}

void SetDrawingColor(DeviceRecord& device, const RgbColor& color) {
  Own(device.Pen);
  Own(device.Brush);
  Draw([&] { return "color " + Text(color); });
}

void MoveTo(DeviceRecord& device, std::int32_t x, std::int32_t y) {
  DeviceOf(device).X = x;
  DeviceOf(device).Y = y;
}

void LineTo(DeviceRecord& device, std::int32_t x, std::int32_t y) {
  Device& state = DeviceOf(device);
  Draw([&] { return "line " + Text(state.X, state.Y) + " to " + Text(x, y); });
  MoveTo(device, x, y);
}

void DrawPoint(DeviceRecord& device, std::int32_t x, std::int32_t y) {
  Draw([&] { return "point " + Text(x, y); });
  MoveTo(device, x, y);
}

void FilledRect(DeviceRecord&, const IntRect& rect) {
  Draw([&] { return "filled rect " + Text(rect); });
}
void HollowRect(DeviceRecord&, const IntRect& rect) {
  Draw([&] { return "hollow rect " + Text(rect); });
}

std::int32_t DrawImage(DeviceRecord&, int resource, const IntRect& rect) {
  if (TheShell().ImageError != 0) return TheShell().ImageError;
  Draw([&] { return "image " + std::to_string(resource) + " " + Text(rect); });
  return 0;
}

void DrawTextHere(DeviceRecord& device, const char* text) {
  Device& state = DeviceOf(device);
  Draw([&] { return "text " + Text(state.X, state.Y) + " " + text; });
  state.X = Saturated(std::int64_t{state.X} + TextWidth(device, text));
}

void ClipTo(DeviceRecord&, const IntRect& rect) {
  Draw([&] { return "clip " + Text(rect); });
}
void RemoveClip(DeviceRecord&) {
  Draw([&] { return "clip off"; });
}

void ScrollArea(ChildWindow*, DeviceRecord&, const IntRect& rect, std::int32_t dy,
                const RgbColor& background) {
  Draw([&] {
    return "scroll " + Text(rect) + " by " + std::to_string(dy) + " with " + Text(background);
  });
}

}  // namespace ondrel::toolkit
