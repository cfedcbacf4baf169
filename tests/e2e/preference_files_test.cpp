// Preference files: spoilt ones, those of the user's choice, and one that cannot be written.
#include <gmock/gmock.h>

#include <filesystem>

#include "preferences_fixture.h"

namespace ondrel::e2e {
namespace {

using ::testing::SizeIs;

constexpr const char* kCorrupted =
    "The preferences file is corrupted. Ondrel will use the default settings.";

class PreferenceFiles : public PreferencesTest {
 protected:
  void Load(const std::string& path) const {
    program_->Command(kLoadPreferences);
    ChooseFile(program_->WaitForDialog(kPreferenceDialog), path);
  }
};

/// Of the file that a run with a font of 14 points has left.
class SpoiltPreferences : public PreferenceFiles {
 protected:
  [[nodiscard]] std::string Content() {
    StartAfresh();
    EnterFontSize("14");
    EXPECT_EQ(program_->Exit(), 0);
    return ContentOf(PreferencePath());
  }

  void ExpectQuietDefaults(const std::string& content) {
    WriteContent(PreferencePath(), content);
    StartAgain();
    const Dialog dialog = program_->WaitForDialog("File Settings");
    EXPECT_THAT(program_->Dialogs(), SizeIs(1)) << program_->Describe();
    EXPECT_EQ(dialog.Text(settings::kFontSize), "10");
    EXPECT_EQ(dialog.Text(settings::kEvents), "8000");
    dialog.Leave(settings::kOk);
    ExpectNoData(*program_);
  }
};

std::string FirstLines(const std::string& content, std::size_t count) {
  std::string text;
  const std::vector<std::string> lines = LinesOf(content);
  for (std::size_t i = 0; i < count && i < lines.size(); ++i) text += lines[i] + "\r\n";
  return text;
}

TEST_F(SpoiltPreferences, TheFileItselfHolds) {
  WriteContent(PreferencePath(), Content());
  StartAgain();
  EXPECT_EQ(program_->WaitForDialog("File Settings").Text(settings::kFontSize), "14");
}

TEST_F(SpoiltPreferences, AtTheStartACutFileGivesTheDefaultsWithoutAWord) {
  ExpectQuietDefaults(FirstLines(Content(), 100));
}

TEST_F(SpoiltPreferences, AtTheStartAFileOfVersionSevenGivesTheDefaultsWithoutAWord) {
  std::string content = Content();
  content[0] = '7';
  ExpectQuietDefaults(content);
}

TEST_F(SpoiltPreferences, TheMenuTellsOfACutFileAndTakesTheDefaults) {
  const std::string path = File("cut.set", FirstLines(Content(), kPreferenceLines - 1));
  StartAfresh();
  EnterFontSize("17");
  Load(path);
  const Box box = program_->WaitForBox(kCorrupted);
  EXPECT_EQ(box.Caption(), "");
  EXPECT_EQ(box.Icon(), BoxIcon::Stop);
  box.Answer(kOkButton);
  ExpectFontSize("10");
}

TEST_F(SpoiltPreferences, TheMenuTellsOfAWordInPlaceOfANumber) {
  std::string content = Content();
  content.replace(content.find("8000"), 4, "many");
  const std::string path = File("words.set", content);
  StartAfresh();
  Load(path);
  program_->WaitForBox(kCorrupted).Answer(kOkButton);
  ExpectFontSize("10");
}

TEST_F(SpoiltPreferences, TheMenuTellsOfAnotherVersionAndKeepsTheSettings) {
  std::string content = Content();
  content[0] = '7';
  const std::string path = File("seven.set", content);
  StartAfresh();
  EnterFontSize("17");
  Load(path);
  const Box box = program_->WaitForBox(
      "seven.set is from a different version of Ondrel. This version of Ondrel cannot read it.");
  EXPECT_EQ(box.Icon(), BoxIcon::Stop);
  box.Answer(kOkButton);
  ExpectFontSize("17");
}

// --- Files of the user's choice ------------------------------------------------------------------

TEST_F(PreferenceFiles, WhatWasSavedUnderANameIsThereWhenItIsLoaded) {
  StartAfresh();
  OpenData();
  EnterEverything();
  const std::string path = File("mine.set", "");
  std::filesystem::remove(path);
  program_->Command(kSavePreferences);
  const Dialog dialog = program_->WaitForDialog(kPreferenceDialog);
  EXPECT_EQ(dialog.Text(kFileNameField), "Ondrel.set");
  ChooseFile(dialog, path);
  WaitFor("the file to be whole",
          [&] { return LinesOf(ContentOf(path)).size() == kPreferenceLines; });
  EXPECT_FALSE(std::filesystem::exists(PreferencePath()));

  StartAfresh();
  Load(path);
  program_->ToForeground();
  OpenData();
  ExpectEverythingEntered();
}

TEST_F(PreferenceFiles, ALongerFileIsReplacedAndNotOverwritten) {
  StartAfresh();
  const std::string path = File("old.set", std::string(20000, 'x'));
  program_->Command(kSavePreferences);
  const Dialog dialog = program_->WaitForDialog(kPreferenceDialog);
  const Window field = dialog.Frame().Control(kFileNameField);
  WaitFor("the file dialog to take the path", [&] {
    field.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    return field.Text() == path;
  });
  dialog.Press(kOkButton);
  // Whether it may replace the file is asked by the platform, in its own words.
  WaitFor("the question", [&] {
    const std::vector<Window> dialogs = program_->Dialogs();
    return !dialogs.empty() && Box::Is(dialogs.front()) &&
           dialogs.front().Control(kYesButton).Exists();
  });
  Box(program_->Dialogs().front()).Answer(kYesButton);
  WaitFor("the file to be whole",
          [&] { return LinesOf(ContentOf(path)).size() == kPreferenceLines; });
  EXPECT_EQ(ContentOf(path).find('x'), std::string::npos);
}

TEST_F(PreferenceFiles, CancellingTheFileDialogsChangesNothing) {
  StartAfresh();
  EnterFontSize("17");
  program_->Command(kSavePreferences);
  program_->WaitForDialog(kPreferenceDialog).Leave(kCancelButton);
  program_->ToForeground();
  EXPECT_FALSE(std::filesystem::exists(PreferencePath()));
  program_->Command(kLoadPreferences);
  program_->WaitForDialog(kPreferenceDialog).Leave(kCancelButton);
  program_->ToForeground();
  ExpectFontSize("17");
}

// --- Files that cannot be written ----------------------------------------------------------------

TEST_F(PreferenceFiles, AnEndThatCannotSaveTellsTheCodeAndIsAnEndAllTheSame) {
  StartAfresh();
  EnterFontSize("17");
  std::filesystem::create_directories(std::filesystem::path(PreferencePath()).parent_path());
  WriteContent(PreferencePath(), "held");
  {
    const HeldFile held(PreferencePath());
    program_->Command(command::kExit);
    const Box box = program_->WaitForBox("Ondrel could not save the preferences. Error code " +
                                         std::to_string(ERROR_SHARING_VIOLATION) + ".");
    EXPECT_EQ(box.Icon(), BoxIcon::Stop);
    box.Answer(kOkButton);
    EXPECT_EQ(program_->WaitForEnd(), 0);
  }
  EXPECT_EQ(ContentOf(PreferencePath()), "held");
}

}  // namespace
}  // namespace ondrel::e2e
