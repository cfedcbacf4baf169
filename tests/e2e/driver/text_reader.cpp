// Draws characters as the program does and looks for them in pictures.
#include "text_reader.h"

#include <algorithm>

namespace ondrel::e2e {
namespace {

constexpr int kWordGap = 4;  // columns without ink between two words, at least
constexpr int kMargin = 4;   // around a drawn text; ink may reach over a character's box

/// Of characters that look alike the first is read.
constexpr char kCharacters[] =
    "0123456789.-+abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ()/:";

struct Canvas {
  Picture Image;
  int Baseline = 0;
};

Canvas DrawText(const std::string& text, int points) {
  const HDC screen = GetDC(nullptr);
  const HDC dc = CreateCompatibleDC(screen);
  const int height = points * GetDeviceCaps(screen, LOGPIXELSY) / 72;
  const HFONT font =
      CreateFontA(-height, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "Arial");
  const HGDIOBJ fontBefore = SelectObject(dc, font);
  const int length = static_cast<int>(text.size());
  SIZE size{};
  GetTextExtentPointA(dc, text.c_str(), length, &size);
  TEXTMETRICA metrics{};
  GetTextMetricsA(dc, &metrics);
  Canvas canvas;
  canvas.Image.Width = static_cast<int>(size.cx) + 2 * kMargin;
  canvas.Image.Height = static_cast<int>(size.cy) + 2 * kMargin;
  canvas.Baseline = kMargin + static_cast<int>(metrics.tmAscent);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, canvas.Image.Width, canvas.Image.Height);
  const HGDIOBJ bitmapBefore = SelectObject(dc, bitmap);
  PatBlt(dc, 0, 0, canvas.Image.Width, canvas.Image.Height, WHITENESS);
  SetTextAlign(dc, TA_BASELINE);
  TextOutA(dc, kMargin, canvas.Baseline, text.c_str(), length);
  for (int y = 0; y < canvas.Image.Height; ++y) {
    for (int x = 0; x < canvas.Image.Width; ++x) {
      canvas.Image.Pixels.push_back(static_cast<std::uint32_t>(GetPixel(dc, x, y)) & 0xFFFFFF);
    }
  }
  SelectObject(dc, bitmapBefore);
  SelectObject(dc, fontBefore);
  DeleteObject(bitmap);
  DeleteObject(font);
  DeleteDC(dc);
  ReleaseDC(nullptr, screen);
  return canvas;
}

bool ColumnHas(const Picture& picture, std::uint32_t color, int x) {
  for (int y = 0; y < picture.Height; ++y) {
    if (picture.At(x, y) == color) return true;
  }
  return false;
}

bool RowHas(const Picture& picture, std::uint32_t color, int y) {
  for (int x = 0; x < picture.Width; ++x) {
    if (picture.At(x, y) == color) return true;
  }
  return false;
}

std::size_t CountReadable(const std::string& line) {
  return static_cast<std::size_t>(
      std::count_if(line.begin(), line.end(), [](char c) { return c != '?' && c != ' '; }));
}

}  // namespace

TextReader::TextReader(int points) : points_(points) {
  for (const char* character = kCharacters; *character != '\0'; ++character) {
    characters_.push_back(Draw(std::string(1, *character)));
  }
}

TextReader::Stamp TextReader::Draw(const std::string& text) const {
  const Canvas canvas = DrawText(text, points_);
  const Picture& image = canvas.Image;
  Rect box{image.Width, image.Height, 0, 0};
  for (int y = 0; y < image.Height; ++y) {
    for (int x = 0; x < image.Width; ++x) {
      if (image.At(x, y) != kBlack) continue;
      box = {std::min(box.Left, x), std::min(box.Top, y), std::max(box.Right, x + 1),
             std::max(box.Bottom, y + 1)};
    }
  }
  Stamp stamp{text, box.Width(), box.Height(), canvas.Baseline - box.Top, {}};
  for (const std::uint32_t pixel : image.Cut(box).Pixels) stamp.Ink.push_back(pixel == kBlack);
  return stamp;
}

bool TextReader::Shows(const Picture& picture, const std::string& text, std::uint32_t color) const {
  const Stamp stamp = Draw(text);
  const auto standsAt = [&](int left, int top) {
    std::size_t place = 0;
    for (int y = 0; y < stamp.Height; ++y) {
      for (int x = 0; x < stamp.Width; ++x) {
        if ((picture.At(left + x, top + y) == color) != stamp.Ink[place++]) return false;
      }
    }
    return true;
  };
  for (int top = 0; top + stamp.Height <= picture.Height; ++top) {
    for (int left = 0; left + stamp.Width <= picture.Width; ++left) {
      if (standsAt(left, top)) return true;
    }
  }
  return false;
}

bool TextReader::FillsColumns(const Picture& band, std::uint32_t color, const Stamp& stamp,
                              int left, int baseline) const {
  if (left + stamp.Width > band.Width) return false;
  const int top = baseline - stamp.Top;
  if (top < 0 || top + stamp.Height > band.Height) return false;
  for (int y = 0; y < band.Height; ++y) {
    for (int x = 0; x < stamp.Width; ++x) {
      const bool inside = y >= top && y < top + stamp.Height;
      const bool ink = inside && stamp.Ink[static_cast<std::size_t>((y - top) * stamp.Width + x)];
      if ((band.At(left + x, y) == color) != ink) return false;
    }
  }
  return true;
}

std::string TextReader::ReadBand(const Picture& band, std::uint32_t color, int baseline) const {
  std::string line;
  int blanks = 0;
  for (int x = 0; x < band.Width;) {
    if (!ColumnHas(band, color, x)) {
      ++blanks;
      ++x;
      continue;
    }
    if (!line.empty() && blanks >= kWordGap) line += ' ';
    blanks = 0;
    const Stamp* best = nullptr;
    for (const Stamp& stamp : characters_) {
      const bool wider = best == nullptr || stamp.Width > best->Width;
      if (wider && FillsColumns(band, color, stamp, x, baseline)) best = &stamp;
    }
    line += best != nullptr ? best->Text : "?";
    x += best != nullptr ? best->Width : 1;
  }
  return line;
}

std::vector<std::string> TextReader::Lines(const Picture& picture, std::uint32_t color) const {
  std::vector<std::string> lines;
  for (int top = 0; top < picture.Height; ++top) {
    if (!RowHas(picture, color, top)) continue;
    int bottom = top;
    while (bottom < picture.Height && RowHas(picture, color, bottom)) ++bottom;
    const Picture band = picture.Cut({0, top, picture.Width, bottom});
    std::string best;
    for (int baseline = band.Height; baseline > 0; --baseline) {
      const std::string line = ReadBand(band, color, baseline);
      if (best.empty() || CountReadable(line) > CountReadable(best)) best = line;
    }
    lines.push_back(best);
    top = bottom;
  }
  return lines;
}

}  // namespace ondrel::e2e
