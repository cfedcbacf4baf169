// Copies the screen's pixels.
#include "picture.h"

#include <algorithm>

#include "wait.h"

namespace ondrel::e2e {
namespace {

Rect CutTo(const Rect& rect, int width, int height) {
  return {std::clamp(rect.Left, 0, width), std::clamp(rect.Top, 0, height),
          std::clamp(rect.Right, 0, width), std::clamp(rect.Bottom, 0, height)};
}

}  // namespace

std::uint32_t Picture::At(int x, int y) const {
  return Pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(Width) +
                static_cast<std::size_t>(x)];
}

Picture Picture::Cut(const Rect& rect) const {
  const Rect part = CutTo(rect, Width, Height);
  Picture cut{std::max(0, part.Width()), std::max(0, part.Height()), {}};
  for (int y = part.Top; y < part.Bottom; ++y) {
    for (int x = part.Left; x < part.Right; ++x) cut.Pixels.push_back(At(x, y));
  }
  return cut;
}

int Picture::Count(std::uint32_t color) const {
  return static_cast<int>(std::count(Pixels.begin(), Pixels.end(), color));
}

Picture TakeScreen(const Rect& place) {
  const Rect part = CutTo(place, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
  Picture picture{part.Width(), part.Height(), {}};
  if (picture.Width <= 0 || picture.Height <= 0) return {};
  const HDC screen = GetDC(nullptr);
  const HDC copy = CreateCompatibleDC(screen);
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = picture.Width;
  format.bmiHeader.biHeight = -picture.Height;  // rows from the top
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(copy, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(copy, bitmap);
  const BOOL copied =
      BitBlt(copy, 0, 0, picture.Width, picture.Height, screen, part.Left, part.Top, SRCCOPY);
  GdiFlush();
  if (copied != 0) {
    const auto* pixels = static_cast<const std::uint32_t*>(bits);
    const auto count =
        static_cast<std::size_t>(picture.Width) * static_cast<std::size_t>(picture.Height);
    picture.Pixels.assign(pixels, pixels + count);
    for (std::uint32_t& pixel : picture.Pixels) pixel &= 0xFFFFFF;
  }
  SelectObject(copy, before);
  DeleteObject(bitmap);
  DeleteDC(copy);
  ReleaseDC(nullptr, screen);
  if (copied == 0) Fail("the screen could not be copied");
  return picture;
}

}  // namespace ondrel::e2e
