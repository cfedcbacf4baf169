// Devices: what is selected into a device context is made here, owned by the device record and
// deleted with it. What is selected is never asked back from the device context, since that of a
// metafile under construction gives no answer.
#include <cstring>

#include "shell/toolkit.h"
#include "shell/win32/win32.h"

namespace ondrel::toolkit {
namespace {

constexpr int kSetUpFontHeight = 10;  // device units, character height

HDC DcOf(const DeviceRecord& device) {
  return win32::DcOf(device);
}

/// Versions of Windows differ in what they answer to who measures in a metafile.
bool IsMetafile(const DeviceRecord& device) {
  return GetObjectType(DcOf(device)) == OBJ_METADC;
}

/// Selects a new object into the device and deletes the one that it replaces. Without a new object
/// all stays as it was.
void ReplaceObject(DeviceRecord& device, void*& owned, HGDIOBJ object) {
  if (object == nullptr) return;
  SelectObject(DcOf(device), object);
  if (owned != nullptr) DeleteObject(owned);
  owned = object;
}

void DropObject(DeviceRecord& device, void*& owned, int stockObject) {
  SelectObject(DcOf(device), GetStockObject(stockObject));
  if (owned != nullptr) DeleteObject(owned);
  owned = nullptr;
}

/// The pen of the device; before the first one a solid black pen of width 0.
LOGPEN PenOf(const DeviceRecord& device) {
  LOGPEN pen{PS_SOLID, {0, 0}, RGB(0, 0, 0)};
  if (device.Pen != nullptr) GetObjectA(device.Pen, sizeof(pen), &pen);
  return pen;
}

}  // namespace

DeviceRecord AcquireDevice(ChildWindow* window) {
  DeviceRecord device;
  device.Dc = GetDC(win32::HandleOf(window));
  return device;
}

void ReleaseDevice(ChildWindow* window, DeviceRecord& device) {
  ReleaseDC(win32::HandleOf(window), DcOf(device));
  device.Dc = nullptr;
}

DeviceRecord AcquireMeasuringDevice() {
  return {.Dc = CreateCompatibleDC(nullptr)};
}

void ReleaseMeasuringDevice(DeviceRecord& device) {
  DeleteDC(DcOf(device));
  device.Dc = nullptr;
}

void SetUpDevice(DeviceRecord& device) {
  // A negative height is that of the characters, without the leading above them.
  ReplaceObject(device, device.Font,
                CreateFontA(-kSetUpFontHeight, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                            DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                            DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE, "Arial"));
  SetTextAlign(DcOf(device), TA_BASELINE | TA_UPDATECP);
  SetBkMode(DcOf(device), TRANSPARENT);
  SetBkColor(DcOf(device), GetSysColor(COLOR_APPWORKSPACE));
}

void CleanUpDevice(DeviceRecord& device) {
  DropObject(device, device.Pen, BLACK_PEN);
  DropObject(device, device.Brush, WHITE_BRUSH);
  DropObject(device, device.Font, SYSTEM_FONT);
}

double DeviceDpi(const DeviceRecord& device) {
  return IsMetafile(device) ? 0.0 : GetDeviceCaps(DcOf(device), LOGPIXELSY);
}

void SetPenWidth(DeviceRecord& device, std::int32_t width) {
  const LOGPEN pen = PenOf(device);
  ReplaceObject(device, device.Pen,
                CreatePen(static_cast<int>(pen.lopnStyle), width, pen.lopnColor));
}

void SetFontHeight(DeviceRecord& device, std::int32_t height) {
  LOGFONTA font{};
  if (device.Font == nullptr || GetObjectA(device.Font, sizeof(font), &font) == 0) return;
  font.lfHeight = -height;
  font.lfWidth = 0;
  ReplaceObject(device, device.Font, CreateFontIndirectA(&font));
}

FontMetrics MeasureFont(const DeviceRecord& device) {
  if (IsMetafile(device)) return {};
  TEXTMETRICA metrics{};
  GetTextMetricsA(DcOf(device), &metrics);
  return {.Ascent = static_cast<std::int32_t>(metrics.tmAscent),
          .Descent = static_cast<std::int32_t>(metrics.tmDescent),
          .ExternalLeading = static_cast<std::int32_t>(metrics.tmExternalLeading)};
}

std::int32_t TextWidth(const DeviceRecord& device, const char* text) {
  if (IsMetafile(device)) return 0;
  SIZE size{};
  GetTextExtentPoint32A(DcOf(device), text, static_cast<int>(std::strlen(text)), &size);
  return static_cast<std::int32_t>(size.cx);
}

void SetBackground(DeviceRecord& device, const RgbColor& color) {
  SetBkColor(DcOf(device), win32::ToColor(color));
}

void FillArea(DeviceRecord& device, const IntRect& rect, const RgbColor& color) {
  const RECT area = win32::ToRect(rect);
  HBRUSH brush = CreateSolidBrush(win32::ToColor(color));
  FillRect(DcOf(device), &area, brush);
  DeleteObject(brush);
}

void SetDrawingColor(DeviceRecord& device, const RgbColor& color) {
  const COLORREF paint = win32::ToColor(color);
  const LOGPEN pen = PenOf(device);
  ReplaceObject(
      device, device.Pen,
      CreatePen(static_cast<int>(pen.lopnStyle), static_cast<int>(pen.lopnWidth.x), paint));
  ReplaceObject(device, device.Brush, CreateSolidBrush(paint));
  SetTextColor(DcOf(device), paint);
}

void MoveTo(DeviceRecord& device, std::int32_t x, std::int32_t y) {
  MoveToEx(DcOf(device), x, y, nullptr);
}

void LineTo(DeviceRecord& device, std::int32_t x, std::int32_t y) {
  ::LineTo(DcOf(device), x, y);
}

void DrawPoint(DeviceRecord& device, std::int32_t x, std::int32_t y) {
  MoveTo(device, x, y);
  LineTo(device, x, y);
  SetPixelV(DcOf(device), x, y, PenOf(device).lopnColor);
}

void FilledRect(DeviceRecord& device, const IntRect& rect) {
  Rectangle(DcOf(device), rect.Left, rect.Top, rect.Right, rect.Bottom);
}

void HollowRect(DeviceRecord& device, const IntRect& rect) {
  HGDIOBJ brush = device.Brush != nullptr ? device.Brush : GetStockObject(WHITE_BRUSH);
  SelectObject(DcOf(device), GetStockObject(NULL_BRUSH));
  Rectangle(DcOf(device), rect.Left, rect.Top, rect.Right, rect.Bottom);
  SelectObject(DcOf(device), brush);
}

void DrawTextHere(DeviceRecord& device, const char* text) {
  TextOutA(DcOf(device), 0, 0, text, static_cast<int>(std::strlen(text)));
}

void ClipTo(DeviceRecord& device, const IntRect& rect) {
  if (GetDeviceCaps(DcOf(device), CLIPCAPS) == CP_NONE) return;
  HRGN region = CreateRectRgn(rect.Left, rect.Top, rect.Right, rect.Bottom);
  SelectClipRgn(DcOf(device), region);
  DeleteObject(region);
}

void RemoveClip(DeviceRecord& device) {
  // A wide region stands for none, since not every device takes no region at all.
  HRGN everything = CreateRectRgn(-32767, -32767, 32767, 32767);
  SelectClipRgn(DcOf(device), everything);
  DeleteObject(everything);
}

void ScrollArea(ChildWindow*, DeviceRecord& device, const IntRect& rect, std::int32_t dy,
                const RgbColor& background) {
  const RECT area = win32::ToRect(rect);
  RECT freed{};
  if (ScrollDC(DcOf(device), 0, dy, &area, &area, nullptr, &freed) == FALSE) return;
  FillArea(device, win32::FromRect(freed), background);
}

}  // namespace ondrel::toolkit
