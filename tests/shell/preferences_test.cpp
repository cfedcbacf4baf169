// Reading: what becomes of good, bad and missing preference files, at start and by the menu.
#include "shell/preferences.h"

#include "preferences_fixture.h"
#include "support/other_settings.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The first `count` lines of the default file.
std::string FirstLines(std::size_t count) {
  PreferenceTexts texts = DefaultPreferenceTexts();
  texts.resize(count);
  return PreferenceBytes(texts);
}

std::string WithoutLineEnd(std::string bytes) {
  bytes.resize(bytes.size() - 2);
  return bytes;
}

class PreferencesReadingTest : public PreferencesTest {
 protected:
  /// Settings that no file of a test holds.
  void Change() {
    workspace().FontSize = 77;
    workspace().FrameRect = {1, 2, 3, 4};
    ViewOf(workspace(), ViewKind::Event).Colors[0] = {7, 8, 9};
  }
  bool IsChanged() {
    return workspace().FontSize == 77 && workspace().FrameRect == IntRect{1, 2, 3, 4} &&
           ViewOf(workspace(), ViewKind::Event).Colors[0] == RgbColor{7, 8, 9};
  }

  /// A read at start, after which the defaults hold and nothing was told.
  void ExpectDefaultsInSilence(const std::string& bytes) {
    Change();
    shell().Boxes.clear();
    folder().WriteOwnFile(bytes);
    RestorePreferences(Frame());
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(Held(), DefaultPreferenceBytes());
  }

  /// A read by the menu, after which the corruption was told and the defaults hold.
  void ExpectCorruptionTold(const std::string& bytes) {
    Change();
    shell().Boxes.clear();
    Load(NewFile("bad.set", bytes));
    EXPECT_THAT(Messages(), ElementsAre(kCorrupted));
    EXPECT_EQ(Held(), DefaultPreferenceBytes());
    EXPECT_EQ(shell().OpenFiles, 0);
    EXPECT_EQ(shell().LiveAllocations, 0);
  }
};

// --- Good files ----------------------------------------------------------------------------------

TEST_F(PreferencesReadingTest, AFileOfOtherSettingsIsReadAndWrittenAgainToTheSameBytes) {
  const OtherSettings other = OtherSettingsOf(workspace());
  Load(NewFile("other.set", other.Bytes()));
  EXPECT_THAT(Messages(), IsEmpty());
  other.ExpectHeld();
  EXPECT_EQ(Held(), other.Bytes());
}

TEST_F(PreferencesReadingTest, AFileOfOtherSettingsIsReadAtStart) {
  const OtherSettings other = OtherSettingsOf(workspace());
  folder().WriteOwnFile(other.Bytes());
  RestorePreferences(Frame());
  EXPECT_THAT(Messages(), IsEmpty());
  other.ExpectHeld();
}

TEST_F(PreferencesReadingTest, LinesAreTokensSoThatAnySpaceSeparatesThem) {
  const OtherSettings other = OtherSettingsOf(workspace());
  std::string bytes = other.Bytes();
  for (char& byte : bytes) {
    if (byte == '\r') byte = ' ';
    if (byte == '\n') byte = '\t';
  }
  Load(NewFile("other.set", "\x38Q" + bytes.substr(2)));  // the byte behind the version is free
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(Held(), other.Bytes());
}

TEST_F(PreferencesReadingTest, TheLastLineNeedsNoEnd) {
  Load(NewFile("good.set", WithoutLineEnd(PreferencesWith(302, "1302"))));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(ViewOf(workspace(), ViewKind::DurationScatter).ViewRect.Right, 1302);
}

TEST_F(PreferencesReadingTest, WhatStandsBehindTheLastLineIsNeverLookedAt) {
  Load(NewFile("long.set", PreferencesWith(3, "33") + "no number\r\n"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(workspace().FontSize, 33);
}

TEST_F(PreferencesReadingTest, ATokenOf39BytesIsReadWhole) {
  Load(NewFile("good.set", PreferencesWith(3, std::string(37, '0') + "42")));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(workspace().FontSize, 42);
}

TEST_F(PreferencesReadingTest, WhatIsLongerThan39BytesBecomesTheNextToken) {
  PreferenceTexts texts = DefaultPreferenceTexts();
  texts[2] = std::string(37, '0') + "420.5";  // the size of the font, and then that of the pen
  texts.erase(texts.begin() + 3);
  Load(NewFile("good.set", PreferenceBytes(texts)));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(workspace().FontSize, 42);
  EXPECT_EQ(workspace().PenSize, 0.5);
}

TEST_F(PreferencesReadingTest, ARealComesBackWithFourDigits) {
  workspace().PenSize = 0.123456;
  SavePreferences(Frame());
  RestorePreferences(Frame());
  EXPECT_EQ(workspace().PenSize, 0.1235);
}

TEST_F(PreferencesReadingTest, AShortViewRectOf70000ComesBackAs4464) {
  ViewOf(workspace(), ViewKind::Statistics).ViewRect = {1, 2, 70000, 3};
  SavePreferences(Frame());
  RestorePreferences(Frame());
  EXPECT_EQ(ViewOf(workspace(), ViewKind::Statistics).ViewRect, (IntRect{1, 2, 4464, 3}));
}

TEST_F(PreferencesReadingTest, AFlagOf2ReadsAsFalse) {
  Load(NewFile("flag.set", PreferencesWith(97, "2")));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_FALSE(workspace().Amplitude.ShowLabels);
}

TEST_F(PreferencesReadingTest, TheTwoEventCapacitiesMayDiffer) {
  PreferenceTexts texts = DefaultPreferenceTexts();
  texts[13] = "500";
  texts[26] = "700";
  Load(NewFile("capacities.set", PreferenceBytes(texts)));
  EXPECT_EQ(workspace().Events.Capacity, 500);
  EXPECT_EQ(workspace().Levels.Capacity, 700);
  ASSERT_TRUE(AllocateAllTables(Frame()));
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PreferencesReadingTest, WhatIsNotInTheFileKeepsItsValue) {
  workspace().LimitToWindow = false;
  workspace().ExportRect = {1, 2, 3, 4};
  workspace().ScreenDpi = 120.0;
  workspace().Amplitude.TermCount = 3;
  workspace().Duration.Terms[1].TimeConstant = 0.5;
  const RgbColor color{1, 2, 3};
  ViewOf(workspace(), ViewKind::Event).Colors[static_cast<std::size_t>(EventColor::Header)] = color;
  ViewOf(workspace(), ViewKind::Level).Colors[static_cast<std::size_t>(LevelColor::Header)] = color;
  ViewOf(workspace(), ViewKind::AmplitudeFit).Colors[0] = color;
  ViewOf(workspace(), ViewKind::DurationFit).Colors[0] = color;
  Load(NewFile("other.set", OtherSettingsOf(workspace()).Bytes()));
  EXPECT_FALSE(workspace().LimitToWindow);
  EXPECT_EQ(workspace().ExportRect, (IntRect{1, 2, 3, 4}));
  EXPECT_EQ(workspace().ScreenDpi, 120.0);
  EXPECT_EQ(workspace().Amplitude.TermCount, 3);
  EXPECT_EQ(workspace().Duration.Terms[1].TimeConstant, 0.5);
  EXPECT_EQ(ColorOf(ViewOf(workspace(), ViewKind::Event), EventColor::Header), color);
  EXPECT_EQ(ColorOf(ViewOf(workspace(), ViewKind::Level), LevelColor::Header), color);
  EXPECT_EQ(ColorOf(ViewOf(workspace(), ViewKind::AmplitudeFit), FitColor::Background), color);
  EXPECT_EQ(ColorOf(ViewOf(workspace(), ViewKind::DurationFit), FitColor::Background), color);
}

// --- Bad files -----------------------------------------------------------------------------------

TEST_F(PreferencesReadingTest, AFileOfVersion7AtStartLeavesTheDefaultsInSilence) {
  folder().WriteOwnFile("7" + OtherSettingsOf(workspace()).Bytes().substr(1));
  RestorePreferences(Frame());
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(Held(), DefaultPreferenceBytes());
}

TEST_F(PreferencesReadingTest, AFileOfAnotherVersionByTheMenuIsToldAndChangesNothing) {
  Change();
  const std::string path = NewFile("seven.set", "7" + DefaultPreferenceBytes().substr(1));
  Load(path);
  const std::string name = path.substr(path.find_last_of('\\') + 1, 31);
  EXPECT_THAT(Messages(),
              ElementsAre(name + " is from a different version of Ondrel. This version of Ondrel "
                                 "cannot read it."));
  EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Stop);
  EXPECT_TRUE(IsChanged());
  EXPECT_EQ(shell().OpenFiles, 0);
}

TEST_F(PreferencesReadingTest, TheMessageNamesWhatStandsBehindTheLastBackslashUpTo31Bytes) {
  toolkit::FileHandle file;
  ASSERT_EQ(toolkit::OpenFileForReading(NewFile("seven.set", "7").c_str(), &file), 0);
  ReadPreferences(Frame(), "short name.set", file, false);
  EXPECT_THAT(Messages(), ElementsAre("short name.set is from a different version of Ondrel. This "
                                      "version of Ondrel cannot read it."));
  shell().Boxes.clear();
  Load(NewFile(std::string(60, 'n') + ".set", "7"));
  const std::string text = Messages().at(0);
  EXPECT_EQ(text.find(" is from"), 31u) << text;
}

TEST_F(PreferencesReadingTest, AnEmptyFileIsOfAnotherVersion) {
  Change();
  Load(NewFile("empty.set", ""));
  EXPECT_EQ(Messages().size(), 1u);
  EXPECT_NE(Messages().at(0).find("different version"), std::string::npos);
  EXPECT_TRUE(IsChanged());
}

TEST_F(PreferencesReadingTest, AFileOfTheVersionAloneIsCorrupted) {
  ExpectCorruptionTold("8");
  ExpectCorruptionTold("8\r");
  ExpectCorruptionTold("8\r\n");
  ExpectCorruptionTold("8\r\n \t\r\n");
}

TEST_F(PreferencesReadingTest, AFileCutAfterLine100AtStartLeavesTheDefaultsInSilence) {
  ExpectDefaultsInSilence(FirstLines(100));
}

TEST_F(PreferencesReadingTest, AFileCutAfterLine100ByTheMenuIsToldAndTheDefaultsHold) {
  ExpectCorruptionTold(FirstLines(100));
}

TEST_F(PreferencesReadingTest, AFileWithoutItsLastValueIsCorrupted) {
  ExpectCorruptionTold(WithoutLineEnd(FirstLines(301)));
  ExpectCorruptionTold(FirstLines(301));
  ExpectDefaultsInSilence(FirstLines(301));
}

TEST_F(PreferencesReadingTest, AWordOnAnyLineIsTold) {
  for (int line = 2; line <= 302; ++line) {
    SCOPED_TRACE(line);
    ExpectCorruptionTold(PreferencesWith(line, "x"));
  }
}

TEST_F(PreferencesReadingTest, AWordOnAnyLineAtStartLeavesTheDefaultsInSilence) {
  for (int line = 2; line <= 302; ++line) {
    SCOPED_TRACE(line);
    ExpectDefaultsInSilence(PreferencesWith(line, "x"));
  }
}

TEST_F(PreferencesReadingTest, AWordForTheVersionIsAnotherVersion) {
  Change();
  Load(NewFile("bad.set", PreferencesWith(1, "x")));
  EXPECT_TRUE(IsChanged());
  EXPECT_EQ(Messages().size(), 1u);
}

// --- Files that cannot be read -------------------------------------------------------------------

TEST_F(PreferencesReadingTest, AFileThatCannotBeReadChangesNothingAndIsNotTold) {
  const std::string path = NewFile("other.set", OtherSettingsOf(workspace()).Bytes());
  Change();
  for (scripted::Fault* fault :
       {&shell().Open, &shell().Size, &shell().Seek, &shell().Read, &shell().Allocation}) {
    fault->Next = 1;
    Load(path);
    EXPECT_EQ(fault->Next, 0) << "the fault took effect";
    EXPECT_TRUE(IsChanged());
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(shell().OpenFiles, 0);
    EXPECT_EQ(shell().LiveAllocations, 0);
  }
}

TEST_F(PreferencesReadingTest, AFileThatCannotBeReadAtStartIsNoFirstRun) {
  folder().WriteOwnFile(OtherSettingsOf(workspace()).Bytes());
  for (scripted::Fault* fault : {&shell().Size, &shell().Read, &shell().Allocation}) {
    fault->Next = 1;
    RestorePreferences(Frame());
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(Held(), DefaultPreferenceBytes());
  }
}

TEST_F(PreferencesReadingTest, CancellingTheDialogLoadsNothing) {
  Change();
  LoadPreferencesCommand(Frame());
  ASSERT_EQ(shell().FileDialogs.size(), 1u);
  EXPECT_EQ(shell().FileDialogs[0].Mode, toolkit::FileDialogMode::Open);
  EXPECT_EQ(shell().FileDialogs[0].Title, "Preference file:");
  EXPECT_EQ(shell().FileDialogs[0].DefaultName, "");
  EXPECT_TRUE(IsChanged());
  EXPECT_EQ(shell().Open.Calls, 0);
}

}  // namespace
}  // namespace ondrel
