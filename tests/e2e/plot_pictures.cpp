// Looks for the parts of a plot pixel by pixel.
#include "plot_pictures.h"

#include <algorithm>
#include <set>
#include <string>

namespace ondrel::e2e {
namespace {

using ::testing::AssertionFailure;
using ::testing::AssertionResult;
using ::testing::AssertionSuccess;

/// What went wrong so far. A picture that is all wrong would fill pages.
class Faults {
 public:
  void Note(const std::string& fault) {
    constexpr int kMost = 8;
    if (++count_ <= kMost) text_ += "\n  " + fault;
  }
  [[nodiscard]] AssertionResult Result() const {
    if (count_ == 0) return AssertionSuccess();
    return AssertionFailure() << count_ << " faults, first of them:" << text_;
  }

 private:
  int count_ = 0;
  std::string text_;
};

std::string At(int x, int y) {
  return " at " + std::to_string(x) + "," + std::to_string(y);
}

// --- Texts ---------------------------------------------------------------------------------------

constexpr int kBeside = 6;  // pixels to the left and the right of a text that have to be empty

/// A text as it looks on the screen, with its baseline below `ascent`.
Picture DrawnText(const std::string& text, const TextSize& size) {
  const HDC screen = GetDC(nullptr);
  const HDC dc = CreateCompatibleDC(screen);
  const HGDIOBJ fontBefore = SelectObject(dc, FirstFont());
  Picture picture{size.Width + 2 * kBeside, size.Ascent + size.Descent, {}};
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, picture.Width, picture.Height);
  const HGDIOBJ bitmapBefore = SelectObject(dc, bitmap);
  PatBlt(dc, 0, 0, picture.Width, picture.Height, WHITENESS);
  SetTextAlign(dc, TA_BASELINE);
  TextOutA(dc, kBeside, size.Ascent, text.c_str(), static_cast<int>(text.size()));
  for (int y = 0; y < picture.Height; ++y) {
    for (int x = 0; x < picture.Width; ++x) {
      picture.Pixels.push_back(static_cast<std::uint32_t>(GetPixel(dc, x, y)) & 0xFFFFFF);
    }
  }
  SelectObject(dc, bitmapBefore);
  DeleteObject(SelectObject(dc, fontBefore));
  DeleteObject(bitmap);
  DeleteDC(dc);
  ReleaseDC(nullptr, screen);
  return picture;
}

enum class Side { From, UpTo };

/// A text that begins or ends at a place on its baseline, pixel by pixel, and nothing beside it
/// that could be part of it. Ticks may come close to the right of one that ends at its place.
void LookForText(const Picture& view, const TextReader& reader, const std::string& text, double x,
                 double baseline, Side side, Faults& faults) {
  const TextSize size = SizeOf(text);
  const int left = static_cast<int>(side == Side::From ? x : x - size.Width) - kBeside;
  const int top = static_cast<int>(baseline) - size.Ascent;
  const Picture expected = DrawnText(text, size);
  const int width = expected.Width - (side == Side::From ? 0 : kBeside - 1);
  const Picture seen = view.Cut({left, top, left + width, top + expected.Height});
  if (seen == expected.Cut({0, 0, width, expected.Height})) return;
  std::string read;
  for (const std::string& line : reader.Lines(seen)) read += " '" + line + "'";
  faults.Note("for '" + text + "' reads" + read + At(left + kBeside, top + size.Ascent));
}

// --- Ticks ---------------------------------------------------------------------------------------

/// Places along a line of one pixel's breadth that are black.
std::set<int> InkAlong(const Picture& view, const Rect& line) {
  std::set<int> places;
  for (int y = line.Top; y < line.Bottom; ++y) {
    for (int x = line.Left; x < line.Right; ++x) {
      if (view.At(x, y) == kBlack) places.insert(line.Height() == 1 ? x : y);
    }
  }
  return places;
}

std::string ToText(const std::set<int>& places) {
  std::string text;
  for (const int place : places) text += " " + std::to_string(place);
  return text;
}

void CompareTicks(const std::string& which, const std::set<int>& seen,
                  const std::set<int>& expected, Faults& faults) {
  if (seen == expected) return;
  faults.Note(which + " stand at" + ToText(seen) + " for" + ToText(expected));
}

}  // namespace

// --- Data ----------------------------------------------------------------------------------------

AssertionResult ShowsOnly(const Picture& view, const std::vector<Rect>& squares,
                          std::uint32_t color) {
  std::set<std::pair<int, int>> inside;
  for (const Rect& square : squares) {
    for (int y = square.Top; y < square.Bottom; ++y) {
      for (int x = square.Left; x < square.Right; ++x) inside.insert({x, y});
    }
  }
  Faults faults;
  for (int y = 0; y < view.Height; ++y) {
    for (int x = 0; x < view.Width; ++x) {
      const bool expected = inside.count({x, y}) != 0;
      if ((view.At(x, y) == color) == expected) continue;
      faults.Note((expected ? "missing" : "superfluous") + At(x, y));
    }
  }
  return faults.Result();
}

AssertionResult ShowsCurve(const Picture& view, const std::vector<Point>& places,
                           std::uint32_t color) {
  Faults faults;
  std::set<int> columns;
  for (std::size_t i = 0; i + 1 < places.size(); ++i) {  // a line ends in front of its last pixel
    const Point& place = places[i];
    const Point& before = places[i == 0 ? 0 : i - 1];
    const Point& after = places[i + 1];
    const int highest = std::min({before.Y, place.Y, after.Y}) - 1;
    const int lowest = std::max({before.Y, place.Y, after.Y}) + 1;
    columns.insert(place.X);
    if (view.Cut({place.X, place.Y - 1, place.X + 1, place.Y + 2}).Count(color) == 0) {
      faults.Note("missing" + At(place.X, place.Y));
    }
    const int all = view.Cut({place.X, 0, place.X + 1, view.Height}).Count(color);
    const int close = view.Cut({place.X, highest, place.X + 1, lowest + 1}).Count(color);
    if (all != close) faults.Note("away from the curve" + At(place.X, place.Y));
  }
  for (int x = 0; x < view.Width; ++x) {
    if (columns.count(x) != 0) continue;
    if (view.Cut({x, 0, x + 1, view.Height}).Count(color) != 0) {
      faults.Note("beside the curve" + At(x, 0));
    }
  }
  return faults.Result();
}

AssertionResult ShowsData(const PlotKind& kind, const Picture& view,
                          const std::vector<RecordedSweep>& sweeps) {
  const PlotFrame frame = FrameOf(kind, view);
  if (&kind == &kStationarityPlot) return ShowsCurve(view, StationarityOf(frame, sweeps).Curve);
  const std::vector<Rect> dots = DotsOf(kind, frame, sweeps);
  if (dots.empty()) return AssertionFailure() << "the recording has no dot in the frame";
  return ShowsOnly(view, dots);
}

// --- Axes ----------------------------------------------------------------------------------------

AssertionResult ShowsTitles(const PlotKind& kind, const Picture& view, const TextReader& reader) {
  const PlotFrame frame = FrameOf(kind, view);
  Faults faults;
  LookForText(view, reader, kind.AcrossTitle, frame.Left + (frame.Right - frame.Left) / 3.0,
              frame.Bottom + frame.Reference / 7.0, Side::From, faults);
  LookForText(view, reader, kind.UpTitle, frame.Left / 2.0, frame.Top * 3.0 / 5.0, Side::From,
              faults);
  return faults.Result();
}

AssertionResult ShowsAxisLines(const PlotKind& kind, const Picture& view) {
  const PlotFrame frame = FrameOf(kind, view);
  const int left = static_cast<int>(frame.Left);
  const int bottom = static_cast<int>(frame.Bottom);
  // Data may stand on the lines.
  const auto isDrawn = [&](const Rect& line) {
    const Picture part = view.Cut(line);
    const int drawn = part.Count(kBlack) + part.Count(kRed);
    return drawn == static_cast<int>(part.Pixels.size()) && part.Count(kBlack) > drawn / 2;
  };
  Faults faults;
  if (!isDrawn({left, static_cast<int>(frame.Top), left + 1, bottom})) faults.Note("upright axis");
  if (!isDrawn({left, bottom, static_cast<int>(frame.Right), bottom + 1}))
    faults.Note("lower axis");
  return faults.Result();
}

AssertionResult ShowsTicks(const PlotKind& kind, const Picture& view, const PlotMarks& marks) {
  const PlotFrame frame = FrameOf(kind, view);
  const int left = static_cast<int>(frame.Left);
  const int right = static_cast<int>(frame.Right);
  const int top = static_cast<int>(frame.Top);
  const int bottom = static_cast<int>(frame.Bottom);
  const int minorLength = static_cast<int>(frame.Reference / 75.0);
  const auto across = [&](int distance) {
    const int y = bottom + distance;
    return InkAlong(view, {left, y, right + 1, y + 1});
  };
  const auto up = [&](int distance) {
    const int x = left - distance;
    return InkAlong(view, {x, top - 1, x + 1, bottom + 1});
  };
  std::set<int> expectedAcross;
  std::set<int> expectedUp;
  for (const double offset : marks.Across.Major) {
    expectedAcross.insert(static_cast<int>(frame.Left + offset));
  }
  for (const double offset : marks.Up.Major) {
    expectedUp.insert(static_cast<int>(frame.Bottom - offset));
  }
  Faults faults;
  // Small ticks end before that.
  CompareTicks("long ticks below", across(minorLength + 1), expectedAcross, faults);
  CompareTicks("long ticks beside", up(minorLength + 1), expectedUp, faults);
  for (const double offset : marks.Across.Minor) {
    expectedAcross.insert(static_cast<int>(frame.Left + offset));
  }
  for (const double offset : marks.Up.Minor) {
    expectedUp.insert(static_cast<int>(frame.Bottom - offset));
  }
  CompareTicks("ticks below", across(minorLength - 1), expectedAcross, faults);
  CompareTicks("ticks beside", up(minorLength - 1), expectedUp, faults);
  return faults.Result();
}

AssertionResult ShowsNumbers(const PlotKind& kind, const Picture& view, const TextReader& reader,
                             const PlotMarks& marks) {
  const PlotFrame frame = FrameOf(kind, view);
  Faults faults;
  for (const AxisNumber& number : marks.Across.Numbers) {
    LookForText(view, reader, number.Text, frame.Left + number.Offset,
                frame.Bottom + frame.Reference / 15.0, Side::From, faults);
  }
  for (const AxisNumber& number : marks.Up.Numbers) {
    LookForText(view, reader, number.Text, frame.Left - frame.Width / 35.0,
                frame.Bottom - number.Offset, Side::UpTo, faults);
  }
  return faults.Result();
}

}  // namespace ondrel::e2e
