#include "workspace/preference_lines.h"

#include <cmath>
#include <limits>
#include <map>
#include <string>

#include "support/other_settings.h"
#include "support/preference_texts.h"
#include "support/shell_test.h"
#include "views/all_views.h"
#include "workspace/number_text.h"

namespace ondrel {
namespace {

class PreferenceLinesTest : public ShellTest {
 protected:
  PreferenceLinesTest() { ResetViews(workspace()); }

  std::string Text(int line) {
    char text[kNumberTextSize] = "";
    PreferenceText(workspace(), line, text);
    return text;
  }
  bool Store(int line, const std::string& text) {
    return StorePreference(workspace(), line, text.c_str());
  }
};

TEST_F(PreferenceLinesTest, TheDefaultsAreWrittenAsTheyStandHere) {
  const PreferenceTexts texts = DefaultPreferenceTexts();
  ASSERT_EQ(texts.size(), 302u);
  for (int line = 2; line <= 302; ++line) {
    EXPECT_EQ(Text(line), texts[static_cast<std::size_t>(line - 1)]) << "line " << line;
  }
}

TEST_F(PreferenceLinesTest, EveryLineIsStoredWhereItBelongsAndWrittenFromThere) {
  const OtherSettings other = OtherSettingsOf(workspace());
  ASSERT_EQ(other.Texts().size(), 301u);
  other.ExpectDefaultsAreOthers();
  for (const auto& [line, text] : other.Texts()) EXPECT_TRUE(Store(line, text)) << line;
  other.ExpectHeld();
  for (const auto& [line, text] : other.Texts()) EXPECT_EQ(Text(line), text) << line;
}

TEST_F(PreferenceLinesTest, ALineTouchesNoOtherLine) {
  const PreferenceTexts defaults = DefaultPreferenceTexts();
  const OtherSettings other = OtherSettingsOf(workspace());
  for (const auto& [changed, text] : other.Texts()) {
    ASSERT_TRUE(Store(changed, text));
    for (int line = 2; line <= 302; ++line) {
      const std::string& was = defaults[static_cast<std::size_t>(line - 1)];
      ASSERT_EQ(Text(line), line == changed ? text : was) << "line " << line << " by " << changed;
    }
    ASSERT_TRUE(Store(changed, defaults[static_cast<std::size_t>(changed - 1)]));
  }
}

TEST_F(PreferenceLinesTest, RealsKeepFourSignificantDigits) {
  workspace().PenSize = 0.123456;
  EXPECT_EQ(Text(4), "1.235E-01");
  ASSERT_TRUE(Store(4, Text(4)));
  EXPECT_EQ(workspace().PenSize, 0.1235);
}

TEST_F(PreferenceLinesTest, TheBurstResolutionIsWrittenInMilliseconds) {
  workspace().Events.BurstResolution = 0.0015;
  EXPECT_EQ(Text(13), "1.500E+00");
}

TEST_F(PreferenceLinesTest, TheInstrumentDelayIsWrittenInSeconds) {
  workspace().Levels.InstrumentDelay = 0.0015;
  EXPECT_EQ(Text(71), "1.500E-03");
}

TEST_F(PreferenceLinesTest, OfTheTwoPlotsWithAmplitudesOnlyOneWritesPicoamperes) {
  workspace().Scatter.Minimum = 2.5e-12;
  workspace().AmplitudeScatter.AmplitudeMinimum = 2.5e-12;
  EXPECT_EQ(Text(166), "2.500E+00");
  EXPECT_EQ(Text(255), "2.500E-12");
}

TEST_F(PreferenceLinesTest, AFlagIsTrueForOneAlone) {
  for (const auto& [text, value] : std::map<std::string, bool>{
           {"0", false}, {"1", true}, {"2", false}, {"-1", false}, {"257", false}, {"+1", true}}) {
    ASSERT_TRUE(Store(97, text));
    EXPECT_EQ(workspace().Amplitude.ShowLabels, value) << text;
  }
}

TEST_F(PreferenceLinesTest, AListTakesTheLowByteOfANumber) {
  ASSERT_TRUE(Store(12, "257"));
  EXPECT_EQ(workspace().Events.AmplitudeMode, LevelAmplitude::Delta);
  ASSERT_TRUE(Store(12, "-254"));
  EXPECT_EQ(workspace().Events.AmplitudeMode, LevelAmplitude::DeltaMagnitude);
  ASSERT_TRUE(Store(12, "255"));
  EXPECT_EQ(Text(12), "255") << "beyond the list, and kept";
}

TEST_F(PreferenceLinesTest, TheKindOfCountAxisIsAPlaceInAListAndNoFlag) {
  for (const int line : {89, 129}) {
    const bool& root =
        line == 89 ? workspace().Amplitude.SquareRootAxis : workspace().Duration.SquareRootAxis;
    ASSERT_TRUE(Store(line, "2"));
    EXPECT_TRUE(root) << "the nearest place of the list";
    ASSERT_TRUE(Store(line, "256"));
    EXPECT_FALSE(root) << "the low byte counts";
    ASSERT_TRUE(Store(line, "1"));
    EXPECT_TRUE(root);
    EXPECT_EQ(Text(line), "1");
  }
}

TEST_F(PreferenceLinesTest, PlacesOfTheYoungerViewsAreReadAsSixteenBits) {
  for (const int first : {184, 204, 218, 247, 273, 299}) {
    for (int line = first; line < first + 4; ++line) {
      ASSERT_TRUE(Store(line, "70000"));
      EXPECT_EQ(Text(line), "4464") << line;
      ASSERT_TRUE(Store(line, "40000"));
      EXPECT_EQ(Text(line), "-25536") << line;
      ASSERT_TRUE(Store(line, "-32768"));
      EXPECT_EQ(Text(line), "-32768") << line;
    }
  }
}

TEST_F(PreferenceLinesTest, AllOtherPlacesKeepTheirBits) {
  for (const int first : {6, 23, 81, 114, 118, 152, 156}) {
    for (int line = first; line < first + 4; ++line) {
      ASSERT_TRUE(Store(line, "70000"));
      EXPECT_EQ(Text(line), "70000") << line;
    }
  }
}

TEST_F(PreferenceLinesTest, AYoungerViewsPlaceIsWrittenWhole) {
  ViewOf(workspace(), ViewKind::Scatter).ViewRect.Right = 70000;
  EXPECT_EQ(Text(187), "70000");
  ASSERT_TRUE(Store(187, Text(187)));
  EXPECT_EQ(ViewOf(workspace(), ViewKind::Scatter).ViewRect.Right, 4464);
}

TEST_F(PreferenceLinesTest, WhatIsNoNumberFailsAndIsStoredAsFarAsItIsOne) {
  EXPECT_FALSE(Store(3, "12abc"));
  EXPECT_EQ(workspace().FontSize, 12);
  EXPECT_FALSE(Store(13, "2.5ms"));
  EXPECT_EQ(workspace().Events.BurstResolution, 0.0025);
  EXPECT_FALSE(Store(2, "1x"));
  EXPECT_TRUE(workspace().SkipStartupDialog);
  EXPECT_FALSE(Store(187, "70000x"));
  EXPECT_EQ(ViewOf(workspace(), ViewKind::Scatter).ViewRect.Right, 4464);
  EXPECT_FALSE(Store(5, "0x"));
  EXPECT_EQ(workspace().LevelFileType, LevelFileChoice::Qub);
}

TEST_F(PreferenceLinesTest, EveryLineRefusesAWordAndAnIntegerLineAReal) {
  const PreferenceTexts defaults = DefaultPreferenceTexts();
  for (int line = 2; line <= 302; ++line) {
    EXPECT_FALSE(Store(line, "x")) << line;
    const bool isReal = defaults[static_cast<std::size_t>(line - 1)].find('E') != std::string::npos;
    EXPECT_EQ(Store(line, "1.5"), isReal) << line;
    EXPECT_FALSE(Store(line, isReal ? "1E400" : "2147483648")) << line << " is out of range";
  }
}

/// Else the next start would take the file for a corrupted one.
TEST_F(PreferenceLinesTest, AnyRealInMemoryIsReadBack) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const double value : {kLargest, -kLargest, kInfinity, -kInfinity}) {
    workspace().Amplitude.FitTolerance = value;
    ASSERT_TRUE(Store(93, Text(93))) << Text(93);
    EXPECT_GE(std::fabs(workspace().Amplitude.FitTolerance), 1.79e308);
    EXPECT_EQ(std::signbit(workspace().Amplitude.FitTolerance), std::signbit(value));
  }
  workspace().Amplitude.FitTolerance = std::numeric_limits<double>::quiet_NaN();
  ASSERT_TRUE(Store(93, Text(93)));
  EXPECT_EQ(workspace().Amplitude.FitTolerance, 0.0);
  workspace().Events.BurstResolution = kLargest;  // in ms it is infinite
  ASSERT_TRUE(Store(13, Text(13)));
}

}  // namespace
}  // namespace ondrel
