// The tables of fit parameters at their destinations.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "views/destinations_fixture.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class FitDestinationsTest : public DestinationsTest {
 protected:
  static constexpr std::int32_t kLeft = 20;
  // 20 and a fifth of it, since the font asks for no leading.
  static constexpr std::int32_t kFitLine = 24;

  FitDestinationsTest() { workspace().ScreenDpi = 96.0; }

  static DrawnText TextOf(const std::vector<std::string>& lines, const std::string& text) {
    for (const DrawnText& drawn : TextsIn(lines)) {
      if (drawn.Text == text) return drawn;
    }
    ADD_FAILURE() << "no " << text;
    return {};
  }
};

TEST_F(FitDestinationsTest, TheFormulaOnPaperAndInAMetafileIsAsLargeAsOnTheScreen) {
  // 376 * 300 / 96 = 1175 and 79 * 300 / 96 = 246.9; 355 and 67 in the twin.
  for (const auto& lines : {ToPaper(ViewKind::AmplitudeFit), ToMetafile(ViewKind::AmplitudeFit)}) {
    EXPECT_THAT(LinesWith(lines, "image"), ElementsAre(HasSubstr(" 20 10 1195 256")));
  }
  for (const auto& lines : {ToPaper(ViewKind::DurationFit), ToMetafile(ViewKind::DurationFit)}) {
    EXPECT_THAT(LinesWith(lines, "image"), ElementsAre(HasSubstr(" 20 10 1129 219")));
  }
}

TEST_F(FitDestinationsTest, TheFormulaOfADocumentIsSeenNowhereAndHasTheSizeOfTheScreen) {
  ToFile(ViewKind::AmplitudeFit);
  EXPECT_THAT(Drawn(), Contains(HasSubstr("measuring: image 600 20 10 396 89")));
  EXPECT_THAT(Drawn(), Not(Contains(StartsWith("image"))));
  ToFile(ViewKind::DurationFit);
  EXPECT_THAT(Drawn(), Contains(HasSubstr("measuring: image 601 20 10 375 77")));
}

TEST_F(FitDestinationsTest, LinesBelowTheFormulaHaveLeadingEverywhere) {
  const std::vector<std::string> paper = ToPaper(ViewKind::AmplitudeFit);
  const std::int32_t first = 256 + kFitLine / 2;
  EXPECT_EQ(TextOf(paper, "Events in histogram: 3"),
            (DrawnText{kLeft + kFitLine, first, "Events in histogram: 3"}));
  EXPECT_EQ(TextOf(paper, "Current").Y, first + kFitLine + 36);
  EXPECT_EQ(TextOf(paper, "1").Y, first + kFitLine + 36 + kFitLine);
  const std::vector<std::string> metafile = ToMetafile(ViewKind::AmplitudeFit);
  EXPECT_EQ(TextOf(metafile, "Events in histogram: 3").Y, first);
  EXPECT_EQ(TextOf(metafile, "1").Y, first + kFitLine + 36 + kFitLine);
}

TEST_F(FitDestinationsTest, TheLeadingThatTheFontAsksForIsMeasuredInAMetafileToo) {
  shell().ExternalLeading = 10;
  const std::int32_t first = 256 + 30 / 2;
  EXPECT_EQ(TextOf(ToMetafile(ViewKind::AmplitudeFit), "Events in histogram: 3"),
            (DrawnText{kLeft + 30, first, "Events in histogram: 3"}));
  EXPECT_EQ(TextOf(ToPaper(ViewKind::AmplitudeFit), "Events in histogram: 3"),
            (DrawnText{kLeft + 30, first, "Events in histogram: 3"}));
}

TEST_F(FitDestinationsTest, InAMetafileColumnsKeepTheirMeasuredPlaces) {
  const std::vector<std::string> amplitude = ToMetafile(ViewKind::AmplitudeFit);
  EXPECT_EQ(TextOf(amplitude, "Term").X, kLeft + 60);
  EXPECT_EQ(TextOf(amplitude, "Current").X, kLeft + 60 + 100);
  EXPECT_EQ(TextOf(amplitude, "Weight").X, kLeft + 60 + 100 + 110);
  EXPECT_EQ(TextOf(amplitude, "StdDev").X, kLeft + 60 + 100 + 110 + 120);
  const std::vector<std::string> duration = ToMetafile(ViewKind::DurationFit);
  EXPECT_EQ(TextOf(duration, "Weight").X, kLeft + 60 + 80);
  EXPECT_EQ(TextOf(duration, "TimeConstant").X, kLeft + 60 + 80 + 150);
}

TEST_F(FitDestinationsTest, OnPaperAndInDocumentsCellsEndAtTheirColumns) {
  EXPECT_EQ(TextOf(ToPaper(ViewKind::AmplitudeFit), "StdDev").X,
            kLeft + 60 + 100 + 110 + 120 - ExportWidth("StdDev"));
  EXPECT_THAT(ToFile(ViewKind::AmplitudeFit), Contains(HasSubstr("right 410 161 StdDev")));
  EXPECT_THAT(ToFile(ViewKind::DurationFit), Contains(HasSubstr("right 310 149 TimeConstant")));
}

TEST_F(FitDestinationsTest, ADocumentHasTheTextAndNoColour) {
  const std::vector<std::string> lines = ToFile(ViewKind::AmplitudeFit);
  EXPECT_EQ(lines[0], "clip 20 10 1700 1690");
  EXPECT_EQ(lines[1], "left 44 101 Events in histogram: 3");  // 89 + 24 / 2
  EXPECT_THAT(LinesWith(lines, "color"), IsEmpty());
}

TEST_F(FitDestinationsTest, AFormulaThatCannotBeDrawnIsToldInsteadOfTheAmplitudeTableEverywhere) {
  shell().ImageError = 87;
  const std::string told = "Fail in loading the resource bitmap! Error code 87";
  const DrawnText expected{kLeft + 10, kFitLine, told};
  EXPECT_THAT(TextsIn(ToPaper(ViewKind::AmplitudeFit)), ElementsAre(expected));
  EXPECT_THAT(TextsIn(ToMetafile(ViewKind::AmplitudeFit)), ElementsAre(expected));
  EXPECT_THAT(ToFile(ViewKind::AmplitudeFit),
              ElementsAre("clip 20 10 1700 1690", "left 30 24 " + told));
}

TEST_F(FitDestinationsTest, TheDurationTableStandsWithoutItsFormulaEverywhere) {
  const std::size_t texts = TextsIn(ToPaper(ViewKind::DurationFit)).size();
  shell().ImageError = 87;
  EXPECT_EQ(TextsIn(ToPaper(ViewKind::DurationFit)).size(), texts);
  EXPECT_EQ(TextsIn(ToMetafile(ViewKind::DurationFit)).size(), texts);
  EXPECT_EQ(LinesWith(ToFile(ViewKind::DurationFit), "right").size() + 2, texts);
  shell().ImageError = 1;
  EXPECT_THAT(TextsIn(ToPaper(ViewKind::DurationFit)), IsEmpty());
}

TEST_F(FitDestinationsTest, AFailureInTheSummaryLeavesTheTermsUndone) {
  recording::Clear();
  recording::FailText(1);
  DrawViewToFile(workspace(), ViewKind::DurationFit, recording::kRecordingSink, kPicture);
  EXPECT_THAT(LinesWith(recording::Lines(), "right"), IsEmpty());
}

}  // namespace
}  // namespace ondrel
