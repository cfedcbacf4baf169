// Plays metafiles into bitmaps.
#include "metafile_picture.h"

#include <cstring>

#include "wait.h"

namespace ondrel::e2e {
namespace {

template <typename Value>
Value ValueAt(const std::string& bytes, std::size_t place) {
  Value value{};
  std::memcpy(&value, bytes.data() + place, sizeof value);
  return value;
}

/// The pixels of a bitmap that is selected nowhere.
std::vector<std::uint32_t> PixelsOf(HDC screen, HBITMAP bitmap, int width, int height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;  // from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) *
                                    static_cast<std::size_t>(height));
  GetDIBits(screen, bitmap, 0, static_cast<UINT>(height), pixels.data(), &info, DIB_RGB_COLORS);
  for (std::uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
  return pixels;
}

/// On white.
Picture Played(HMETAFILE metafile, int width, int height) {
  const HDC screen = GetDC(nullptr);
  const HDC dc = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ before = SelectObject(dc, bitmap);
  PatBlt(dc, 0, 0, width, height, WHITENESS);
  const bool played = PlayMetaFile(dc, metafile) != FALSE;
  SelectObject(dc, before);
  Picture picture{width, height, PixelsOf(screen, bitmap, width, height)};
  DeleteObject(bitmap);
  DeleteDC(dc);
  ReleaseDC(nullptr, screen);
  if (!played) Fail("the metafile cannot be played");
  return picture;
}

void OpenClipboardAtLast() {
  WaitFor("the clipboard to be free", [] { return OpenClipboard(nullptr) != FALSE; });
}

}  // namespace

PlaceableHeader ReadPlaceableHeader(const std::string& file) {
  if (file.size() < kPlaceableHeaderSize) Fail("the file is too short for a metafile's header");
  const auto side = [&](std::size_t place) { return ValueAt<std::int16_t>(file, place); };
  return {.Key = ValueAt<std::uint32_t>(file, 0),
          .Handle = ValueAt<std::uint16_t>(file, 4),
          .Frame = {side(6), side(8), side(10), side(12)},
          .UnitsPerInch = ValueAt<std::uint16_t>(file, 14),
          .Reserved = ValueAt<std::uint32_t>(file, 16),
          .Checksum = ValueAt<std::uint16_t>(file, 20)};
}

std::uint16_t ChecksumOf(const std::string& file) {
  std::uint16_t sum = 0;
  for (std::size_t place = 0; place < kPlaceableHeaderSize - 2; place += 2) {
    sum = static_cast<std::uint16_t>(sum ^ ValueAt<std::uint16_t>(file, place));
  }
  return sum;
}

Picture PlayedFile(const std::string& file) {
  const Rect frame = ReadPlaceableHeader(file).Frame;
  const std::string bits = file.substr(kPlaceableHeaderSize);
  const HMETAFILE metafile =
      SetMetaFileBitsEx(static_cast<UINT>(bits.size()), reinterpret_cast<const BYTE*>(bits.data()));
  if (metafile == nullptr) Fail("behind the header stands no metafile");
  Picture picture = Played(metafile, frame.Width(), frame.Height());
  DeleteMetaFile(metafile);
  return picture;
}

PastedPicture PasteMetafile() {
  OpenClipboardAtLast();
  PastedPicture pasted;
  const HANDLE handle = GetClipboardData(CF_METAFILEPICT);
  const auto* given =
      handle == nullptr ? nullptr : static_cast<const METAFILEPICT*>(GlobalLock(handle));
  if (given != nullptr) {
    pasted = {static_cast<int>(given->mm), static_cast<int>(given->xExt),
              static_cast<int>(given->yExt), Played(given->hMF, given->xExt, given->yExt)};
    GlobalUnlock(handle);
  }
  CloseClipboard();
  if (given == nullptr) Fail("the clipboard has no metafile");
  return pasted;
}

void ClearClipboard() {
  OpenClipboardAtLast();
  EmptyClipboard();
  CloseClipboard();
}

HeldClipboard::HeldClipboard() {
  OpenClipboardAtLast();
}

HeldClipboard::~HeldClipboard() {
  CloseClipboard();
}

}  // namespace ondrel::e2e
