// The program from one run to the next, and its preference file as text.
#include "preferences_fixture.h"

#include <gmock/gmock.h>

#include "dialog_sheets.h"

namespace ondrel::e2e {

void PreferencesTest::StartAfresh() {
  program_.reset();
  program_ = std::make_unique<Program>();
  program_->PassStart();
}

void PreferencesTest::StartAgain() {
  program_.reset();
  program_ = std::make_unique<Program>(FormerRuns::Remembered);
}

void PreferencesTest::ExitAndStartAgain() {
  EXPECT_EQ(program_->Exit(), 0);
  StartAgain();
}

Dialog PreferencesTest::OpenSettings() const {
  program_->Command(command::kSettings);
  return program_->WaitForDialog("File Settings");
}

void PreferencesTest::EnterFontSize(const std::string& points) const {
  const Dialog dialog = OpenSettings();
  dialog.Type(settings::kFontSize, points);
  dialog.Leave(settings::kOk);
  program_->ToForeground();
}

void PreferencesTest::ExpectFontSize(const std::string& points) const {
  const Dialog dialog = OpenSettings();
  EXPECT_EQ(dialog.Text(settings::kFontSize), points);
  dialog.Leave(settings::kCancel);
  program_->ToForeground();
}

void PreferencesTest::EnterEverything() const {
  for (const DialogSheet& sheet : EverySheet()) {
    const Dialog dialog = OpenSheet(*program_, sheet);
    EnterAll(dialog, sheet);
    dialog.Leave(kOkButton);
    program_->ToForeground();
  }
}

void PreferencesTest::ExpectEverythingEntered() const {
  for (const DialogSheet& sheet : EverySheet()) {
    SCOPED_TRACE(sheet.Name);
    const Dialog dialog = OpenSheet(*program_, sheet);
    EXPECT_THAT(dialog.Lines(), ::testing::ElementsAreArray(LinesLater(sheet)));
    dialog.Leave(kCancelButton);
    program_->ToForeground();
  }
}

}  // namespace ondrel::e2e
