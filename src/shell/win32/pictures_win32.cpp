// Pictures: what is drawn out of sight and then shown at once, and those of the resources.
#include "shell/toolkit.h"
#include "shell/win32/win32.h"

namespace ondrel::toolkit {
namespace {

HBITMAP BitmapOf(const BufferRecord& buffer) {
  return static_cast<HBITMAP>(buffer.Bitmap);
}

/// How a picture of black strokes on white is made smaller. A printer would turn the greys of a
/// mean into patterns of dots, so there the strokes are kept instead; a metafile is most often
/// looked at on a screen.
int StretchModeOf(HDC target) {
  return GetDeviceCaps(target, TECHNOLOGY) == DT_RASPRINTER ? BLACKONWHITE : HALFTONE;
}

/// With the bitmap selected into a device context in memory.
std::int32_t StretchOver(HDC target, HDC memory, HBITMAP bitmap, const IntRect& rect) {
  BITMAP facts{};
  GetObjectA(bitmap, sizeof(facts), &facts);
  SetStretchBltMode(target, StretchModeOf(target));
  SetBrushOrgEx(target, 0, 0, nullptr);  // as the mode wants it
  SetLastError(0);
  if (StretchBlt(target, rect.Left, rect.Top, Width(rect), Height(rect), memory, 0, 0,
                 facts.bmWidth, facts.bmHeight, SRCCOPY) != FALSE) {
    return 0;
  }
  const std::int32_t code = win32::LastError();
  return code != 0 ? code : ERROR_GEN_FAILURE;
}

}  // namespace

BufferRecord BeginBuffer(const DeviceRecord& device, const IntRect& rect) {
  BufferRecord buffer{device, nullptr};
  HDC target = win32::DcOf(device);
  HDC memory = CreateCompatibleDC(target);
  HBITMAP bitmap = CreateCompatibleBitmap(target, rect.Right, rect.Bottom);
  if (memory == nullptr || bitmap == nullptr) {
    if (bitmap != nullptr) DeleteObject(bitmap);
    if (memory != nullptr) DeleteDC(memory);
    return buffer;
  }
  SelectObject(memory, bitmap);
  buffer.Device = {.Dc = memory};
  buffer.Bitmap = bitmap;
  return buffer;
}

void EndBuffer(const DeviceRecord& device, BufferRecord& buffer, const IntRect& rect) {
  if (buffer.Bitmap == nullptr) return;
  HDC memory = win32::DcOf(buffer.Device);
  BitBlt(win32::DcOf(device), 0, 0, rect.Right, rect.Bottom, memory, 0, 0, SRCCOPY);
  DeleteDC(memory);
  DeleteObject(BitmapOf(buffer));
  buffer = {};
}

std::int32_t DrawImage(DeviceRecord& device, int resource, const IntRect& rect) {
  constexpr std::int32_t kNoMemory = -1;
  constexpr std::int32_t kNotLoaded = -2;
  auto* bitmap = static_cast<HBITMAP>(LoadImageA(win32::Module(), MAKEINTRESOURCEA(resource),
                                                 IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
  if (bitmap == nullptr) return kNotLoaded;
  // Compatible with the screen, since a metafile has no device context that it could be made for.
  HDC memory = CreateCompatibleDC(nullptr);
  std::int32_t error = kNoMemory;
  if (memory != nullptr) {
    HGDIOBJ former = SelectObject(memory, bitmap);
    error = StretchOver(win32::DcOf(device), memory, bitmap, rect);
    SelectObject(memory, former);
    DeleteDC(memory);
  }
  DeleteObject(bitmap);
  return error;
}

}  // namespace ondrel::toolkit
