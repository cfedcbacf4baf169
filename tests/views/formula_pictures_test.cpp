#include "views/formula_pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "workspace/geometry.h"

namespace ondrel {
namespace {

constexpr FormulaPicture kThree[] = {{1, 100, 20}, {2, 200, 40}, {3, 800, 160}};

int Chosen(std::int32_t width, std::int32_t height) {
  return PictureFor(kThree, width, height).Resource;
}

TEST(PictureForTest, ThePictureOfExactlyTheSizeIsTaken) {
  EXPECT_EQ(Chosen(100, 20), 1);
  EXPECT_EQ(Chosen(200, 40), 2);
  EXPECT_EQ(Chosen(800, 160), 3);
}

TEST(PictureForTest, OnePixelMoreInEitherDirectionCallsForTheNext) {
  EXPECT_EQ(Chosen(101, 20), 2);
  EXPECT_EQ(Chosen(100, 21), 2);
  EXPECT_EQ(Chosen(201, 1), 3);
  EXPECT_EQ(Chosen(1, 41), 3);
}

TEST(PictureForTest, WhatIsSmallerThanAllTakesTheSmallest) {
  EXPECT_EQ(Chosen(0, 0), 1);
  EXPECT_EQ(Chosen(99, 19), 1);
}

TEST(PictureForTest, WhatIsLargerThanAllTakesTheLargest) {
  EXPECT_EQ(Chosen(801, 160), 3);
  EXPECT_EQ(Chosen(100000, 100000), 3);
}

// --- The files -----------------------------------------------------------------------------------

/// A bitmap of two colours, read from its file.
class Bitmap {
 public:
  explicit Bitmap(const std::string& name) {
    std::ifstream file(std::string(ONDREL_SOURCE_DIR) + "/src/resources/" + name, std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(file), {});
  }

  bool IsTwoColoured() const {
    return bytes_.size() > 62 && bytes_[0] == 'B' && bytes_[1] == 'M' && bytes_[28] == 1 &&
           Color(0) == 0x000000 && Color(1) == 0xFFFFFF;
  }
  int Width() const { return static_cast<int>(Number(18)); }
  int Height() const { return static_cast<int>(Number(22)); }

  /// Rows count from the top.
  bool IsBlack(int x, int y) const {
    const int rowSize = (Width() + 31) / 32 * 4;
    const int place = static_cast<int>(Number(10)) + (Height() - 1 - y) * rowSize + x / 8;
    return (static_cast<unsigned char>(bytes_[static_cast<std::size_t>(place)]) >> (7 - x % 8) &
            1) == 0;
  }

  /// The smallest rectangle around all that is black.
  IntRect Ink() const {
    IntRect ink{Width(), Height(), 0, 0};
    for (int y = 0; y < Height(); ++y) {
      for (int x = 0; x < Width(); ++x) {
        if (!IsBlack(x, y)) continue;
        ink = {std::min(ink.Left, x), std::min(ink.Top, y), std::max(ink.Right, x + 1),
               std::max(ink.Bottom, y + 1)};
      }
    }
    return ink;
  }

 private:
  std::uint32_t Number(std::size_t place) const {
    std::uint32_t number = 0;
    for (std::size_t i = 4; i-- > 0;) {
      number = number << 8 | static_cast<unsigned char>(bytes_[place + i]);
    }
    return number;
  }
  std::uint32_t Color(std::size_t index) const { return Number(54 + 4 * index) & 0xFFFFFF; }

  std::vector<char> bytes_;
};

struct ExpectedPicture {
  int Resource;
  const char* Constant;  // of the resource script
  std::string File;
  int Width;
  int Height;
};

const std::vector<ExpectedPicture> kExpectedPictures = {
    {600, "ONDREL_FORMULA_AMPLITUDE", "amplitude_formula.bmp", 376, 79},
    {610, "ONDREL_FORMULA_AMPLITUDE_LARGE", "amplitude_formula_large.bmp", 3008, 632},
    {601, "ONDREL_FORMULA_DURATION", "duration_formula.bmp", 355, 67},
    {611, "ONDREL_FORMULA_DURATION_LARGE", "duration_formula_large.bmp", 2840, 536},
};

TEST(FormulaPictures, AreBlackOnWhiteAndOfTheirSizes) {
  for (const ExpectedPicture& expected : kExpectedPictures) {
    const Bitmap bitmap(expected.File);
    ASSERT_TRUE(bitmap.IsTwoColoured()) << expected.File;
    EXPECT_EQ(bitmap.Width(), expected.Width) << expected.File;
    EXPECT_EQ(bitmap.Height(), expected.Height) << expected.File;
  }
}

TEST(FormulaPictures, HaveAMarginOfWhiteOnAllSides) {
  for (const ExpectedPicture& expected : kExpectedPictures) {
    const IntRect ink = Bitmap(expected.File).Ink();
    EXPECT_GT(ink.Left, 0) << expected.File;
    EXPECT_GT(ink.Top, 0) << expected.File;
    EXPECT_LT(ink.Right, expected.Width) << expected.File;
    EXPECT_LT(ink.Bottom, expected.Height) << expected.File;
    EXPECT_GT(Width(ink), expected.Width * 4 / 5) << expected.File;
  }
}

TEST(FormulaPictures, TheLargeOnesHaveTheirInkWhereTheSmallOnesHaveIt) {
  for (const std::string name : {"amplitude_formula", "duration_formula"}) {
    const IntRect small = Bitmap(name + ".bmp").Ink();
    const IntRect large = Bitmap(name + "_large.bmp").Ink();
    EXPECT_NEAR(large.Left / 8.0, small.Left, 2.0) << name;
    EXPECT_NEAR(large.Top / 8.0, small.Top, 2.0) << name;
    EXPECT_NEAR(large.Right / 8.0, small.Right, 6.0) << name << ": letters fitted to pixels";
    EXPECT_NEAR(large.Bottom / 8.0, small.Bottom, 2.0) << name;
  }
}

TEST(FormulaPictures, TheTablesTellTheirNumbersAndSizes) {
  std::vector<FormulaPicture> pictures;
  pictures.insert(pictures.end(), std::begin(kAmplitudeFormula), std::end(kAmplitudeFormula));
  pictures.insert(pictures.end(), std::begin(kDurationFormula), std::end(kDurationFormula));
  ASSERT_EQ(pictures.size(), kExpectedPictures.size());
  for (std::size_t i = 0; i < pictures.size(); ++i) {
    const ExpectedPicture& expected = kExpectedPictures[i];
    EXPECT_EQ(pictures[i].Resource, expected.Resource) << expected.File;
    EXPECT_EQ(pictures[i].Width, expected.Width) << expected.File;
    EXPECT_EQ(pictures[i].Height, expected.Height) << expected.File;
  }
}

TEST(FormulaPictures, StandInTheResourceScriptUnderTheNumbersOfTheTables) {
  std::ifstream script(std::string(ONDREL_SOURCE_DIR) + "/src/resources/ondrel.rc");
  const std::string text(std::istreambuf_iterator<char>(script), {});
  for (const ExpectedPicture& expected : kExpectedPictures) {
    const std::string line =
        std::string("\n") + expected.Constant + " BITMAP \"resources/" + expected.File + "\"";
    EXPECT_THAT(text, ::testing::HasSubstr(line));
  }
}

}  // namespace
}  // namespace ondrel
