// Writing, and the read at start: what is on the disk afterwards, and what the user was told.
#include "preferences_fixture.h"
#include "support/other_settings.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kNoAccess[] = "Ondrel could not save the preferences. Error code 5.";

using SavePreferencesTest = PreferencesTest;

// --- At exit -------------------------------------------------------------------------------------

TEST_F(SavePreferencesTest, TheDefaultsAreTheseBytes) {
  SavePreferences(Frame());
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(OwnBytes(), DefaultPreferenceBytes());
  EXPECT_EQ(shell().Write.Calls, 302) << "line by line";
}

TEST_F(SavePreferencesTest, ALongerFileKeepsItsOldTail) {
  const std::string tail = "and what an older program left\r\n";
  const std::string old(DefaultPreferenceBytes().size(), '?');
  folder().WriteOwnFile(old + tail);
  SavePreferences(Frame());
  EXPECT_EQ(OwnBytes(), DefaultPreferenceBytes() + tail);
  workspace().FontSize = 99;
  RestorePreferences(Frame());
  EXPECT_EQ(workspace().FontSize, 10) << "the reader never looks there";
  EXPECT_EQ(shell().Create.Calls, 0) << "what is there is opened, not made anew";
}

TEST_F(SavePreferencesTest, WithoutTheFolderNothingIsWrittenAndTheUserIsTold) {
  shell().UserFolderFault.Next = 1;
  SavePreferences(Frame());
  EXPECT_THAT(Messages(), ElementsAre("Ondrel could not save the preferences. Error code 3."));
  EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Stop);
  EXPECT_FALSE(folder().HasOwnFile());
}

TEST_F(SavePreferencesTest, AFileThatCannotBeMadeIsTold) {
  shell().Create.Next = 1;
  SavePreferences(Frame());
  EXPECT_THAT(Messages(), ElementsAre(kNoAccess));
  EXPECT_FALSE(folder().HasOwnFile());
}

TEST_F(SavePreferencesTest, ANewFileThatDoesNotOpenIsToldAndDeleted) {
  shell().OpenForWriting.Next = 2;
  SavePreferences(Frame());
  EXPECT_THAT(Messages(), ElementsAre(kNoAccess));
  EXPECT_EQ(shell().Create.Calls, 1);
  EXPECT_FALSE(folder().HasOwnFile());
}

TEST_F(SavePreferencesTest, AFileThatDoesNotOpenIsMadeAnew) {
  folder().WriteOwnFile(DefaultPreferenceBytes() + "tail");
  shell().OpenForWriting.Next = 1;
  SavePreferences(Frame());
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(OwnBytes(), DefaultPreferenceBytes());
}

TEST_F(SavePreferencesTest, AnyFailedWriteIsToldOnceAndLeavesNoFile) {
  for (int write = 1; write <= 302; ++write) {
    SCOPED_TRACE(write);
    folder().WriteOwnFile(DefaultPreferenceBytes());
    shell().Boxes.clear();
    shell().Write = {.Next = write};
    SavePreferences(Frame());
    EXPECT_EQ(shell().Write.Calls, write) << "nothing is written after the failure";
    EXPECT_THAT(Messages(), ElementsAre(kWriteFailure));
    EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Stop);
    EXPECT_FALSE(folder().HasOwnFile());
    EXPECT_EQ(shell().OpenFiles, 0);
  }
}

TEST_F(SavePreferencesTest, WhatWasWrittenStaysWhenTheFileDoesNotClose) {
  shell().Close.Next = 1;
  SavePreferences(Frame());
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(OwnBytes(), DefaultPreferenceBytes());
}

TEST_F(SavePreferencesTest, AFailedWriteHasClosedTheFileByTheTimeItIsTold) {
  toolkit::FileHandle file;
  const std::string path = folder().In("direct");
  ASSERT_EQ(toolkit::CreateEmptyFile(path.c_str()), 0);
  ASSERT_EQ(toolkit::OpenFileForWriting(path.c_str(), &file), 0);
  int openAtBox = -1;
  shell().WhileBoxStands = [&](FrameWindow*) { openAtBox = shell().OpenFiles; };
  shell().Write.Next = 3;
  EXPECT_FALSE(WritePreferences(Frame(), file));
  EXPECT_EQ(openAtBox, 0);
  EXPECT_EQ(BytesOf(path), "8\r\n0\r\n") << "it is for the caller to delete it";
}

// --- By the menu ---------------------------------------------------------------------------------

TEST_F(SavePreferencesTest, TheMenuAsksForAFileAndReplacesWhatStandsThere) {
  const std::string path = NewFile("mine.set", std::string(5000, '?'));
  SaveAs(path);
  ASSERT_EQ(shell().FileDialogs.size(), 1u);
  EXPECT_EQ(shell().FileDialogs[0].Mode, toolkit::FileDialogMode::Save);
  EXPECT_EQ(shell().FileDialogs[0].Title, "Preference file:");
  EXPECT_EQ(shell().FileDialogs[0].DefaultName, "Ondrel.set");
  EXPECT_EQ(BytesOf(path), DefaultPreferenceBytes());
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_FALSE(folder().HasOwnFile()) << "the user's own file is another one";
}

TEST_F(SavePreferencesTest, CancellingTheDialogSavesNothing) {
  SavePreferencesCommand(Frame());
  EXPECT_EQ(shell().Create.Calls, 0);
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SavePreferencesTest, AFileOfTheMenuThatCannotBeMadeIsAWriteFailure) {
  shell().Create.Next = 1;
  SaveAs(folder().In("mine.set"));
  EXPECT_THAT(Messages(), ElementsAre(kWriteFailure));
  EXPECT_FALSE(std::filesystem::exists(folder().In("mine.set")));
  EXPECT_EQ(shell().OpenForWriting.Calls, 0);
}

TEST_F(SavePreferencesTest, AFileOfTheMenuThatDoesNotOpenIsAWriteFailure) {
  shell().OpenForWriting.Next = 1;
  SaveAs(folder().In("mine.set"));
  EXPECT_THAT(Messages(), ElementsAre(kWriteFailure));
  EXPECT_EQ(shell().Write.Calls, 0);
}

TEST_F(SavePreferencesTest, AFailedWriteOfTheMenuLeavesNoFile) {
  for (const int write : {1, 2, 150, 302}) {
    shell().Boxes.clear();
    shell().Write = {.Next = write};
    SaveAs(folder().In("mine.set"));
    EXPECT_THAT(Messages(), ElementsAre(kWriteFailure));
    EXPECT_FALSE(std::filesystem::exists(folder().In("mine.set")));
    EXPECT_EQ(shell().OpenFiles, 0);
  }
}

// --- At start ------------------------------------------------------------------------------------

using RestorePreferencesTest = PreferencesTest;

TEST_F(RestorePreferencesTest, WithoutAFileTheUserIsWelcomed) {
  RestorePreferences(Frame());
  EXPECT_THAT(Messages(), ElementsAre(kWelcome));
  EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Information);
  EXPECT_TRUE(std::filesystem::is_directory(folder().In("Halmere"))) << "made when it is missing";
}

TEST_F(RestorePreferencesTest, WithoutAFolderTheUserIsWelcomed) {
  folder().WriteOwnFile(PreferencesWith(3, "33"));
  shell().UserFolderFault.Next = 1;
  RestorePreferences(Frame());
  EXPECT_THAT(Messages(), ElementsAre(kWelcome));
  EXPECT_EQ(workspace().FontSize, 10);
}

TEST_F(RestorePreferencesTest, WithAFileThatDoesNotOpenTheUserIsWelcomed) {
  folder().WriteOwnFile(PreferencesWith(3, "33"));
  shell().Open.Next = 1;
  RestorePreferences(Frame());
  EXPECT_THAT(Messages(), ElementsAre(kWelcome));
  EXPECT_EQ(workspace().FontSize, 10);
}

TEST_F(RestorePreferencesTest, TheFirstTermsStandByTheRestoredAxes) {
  PreferenceTexts texts = DefaultPreferenceTexts();
  texts[84] = "2.500E+00";
  texts[87] = "5.000E-01";
  texts[121] = "-3";
  folder().WriteOwnFile(PreferenceBytes(texts));
  RestorePreferences(Frame());
  EXPECT_EQ(workspace().Amplitude.Terms[0].Current, 3.0);
  EXPECT_EQ(workspace().Amplitude.Terms[0].StdDev, 1.0);
  EXPECT_EQ(workspace().Duration.Terms[0].TimeConstant, 0.01);
}

TEST_F(RestorePreferencesTest, AfterABadFileTheFirstTermsStandByTheDefaultAxes) {
  folder().WriteOwnFile(PreferencesWith(302, "x"));
  workspace().Amplitude.Terms[0].Current = 9.0;
  workspace().Duration.Terms[0].TimeConstant = 9.0;
  RestorePreferences(Frame());
  EXPECT_EQ(workspace().Amplitude.Terms[0].Current, 1.0);
  EXPECT_EQ(workspace().Duration.Terms[0].TimeConstant, 0.0001);
}

TEST_F(RestorePreferencesTest, WithoutAFileTheTermsStayWhereTheyAre) {
  workspace().Amplitude.Terms[0].Current = 9.0;
  RestorePreferences(Frame());
  EXPECT_EQ(workspace().Amplitude.Terms[0].Current, 9.0);
}

TEST_F(RestorePreferencesTest, LoadingByTheMenuMovesNoTerm) {
  workspace().Amplitude.Terms[0].Current = 9.0;
  workspace().Duration.Terms[0].TimeConstant = 9.0;
  Load(NewFile("good.set", PreferencesWith(122, "-3")));
  EXPECT_EQ(workspace().Duration.MinimumExponent, -3);
  EXPECT_EQ(workspace().Amplitude.Terms[0].Current, 9.0);
  EXPECT_EQ(workspace().Duration.Terms[0].TimeConstant, 9.0);
}

TEST_F(RestorePreferencesTest, BothHistogramsAreLaidOutForTheirPlacesBeforeTheWelcome) {
  PreferenceTexts texts = DefaultPreferenceTexts();
  const char* const sides[] = {"100", "200", "700", "1000"};  // 600 high, 800 wide
  for (std::size_t i = 0; i < 4; ++i) texts[113 + i] = texts[151 + i] = sides[i];
  folder().WriteOwnFile(PreferenceBytes(texts));
  RestorePreferences(Frame());
  // The plot ends at seven eighths of the width and lies between a sixth and five sixths of the
  // height; the lower half of the durations is kept for negative terms.
  for (const ViewKind view : {ViewKind::Amplitude, ViewKind::Duration}) {
    EXPECT_DOUBLE_EQ(ViewOf(workspace(), view).Frame.PlotRight, 200 + 800 * 7 / 8.0);
    EXPECT_DOUBLE_EQ(ViewOf(workspace(), view).Frame.PlotTop, 100 + 600 / 6.0);
  }
  EXPECT_DOUBLE_EQ(ViewOf(workspace(), ViewKind::Amplitude).Frame.PlotBottom, 600.0);
  EXPECT_DOUBLE_EQ(ViewOf(workspace(), ViewKind::Duration).Frame.PlotBottom, 400.0);
  EXPECT_GT(workspace().Amplitude.PixelsPerBin, 0.0);
  EXPECT_GT(workspace().Duration.PixelsPerBin, 0.0);
}

TEST_F(RestorePreferencesTest, WithoutAFileTheHistogramsAreLaidOutBeforeTheWelcome) {
  ViewOf(workspace(), ViewKind::Amplitude).ViewRect = {200, 100, 1000, 700};
  ViewOf(workspace(), ViewKind::Duration).ViewRect = {200, 100, 1000, 700};
  double rightAtBox[2] = {};
  shell().WhileBoxStands = [&](FrameWindow*) {
    rightAtBox[0] = ViewOf(workspace(), ViewKind::Amplitude).Frame.PlotRight;
    rightAtBox[1] = ViewOf(workspace(), ViewKind::Duration).Frame.PlotRight;
  };
  RestorePreferences(Frame());
  EXPECT_DOUBLE_EQ(rightAtBox[0], 900.0);
  EXPECT_DOUBLE_EQ(rightAtBox[1], 900.0);
}

TEST_F(RestorePreferencesTest, WithoutDataNothingIsCounted) {
  folder().WriteOwnFile(PreferencesWith(124, "2000000000"));  // bins that no memory holds
  RestorePreferences(Frame());
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(workspace().Duration.Bins, nullptr);
  EXPECT_EQ(workspace().Amplitude.Bins, nullptr);
  EXPECT_EQ(shell().LiveAllocations, 0);
}

}  // namespace
}  // namespace ondrel
