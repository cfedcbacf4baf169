#include "shell/export_dialogs.h"

#include <gmock/gmock.h>

#include <functional>

#include "support/shell_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

constexpr int kOk = 1;
constexpr int kCancel = 2;

class ExportDialogsTest : public ShellTest {
 protected:
  ExportDialogsTest() { workspace().ScreenDpi = 96.0; }

  void Script(const std::function<void(scripted::OpenDialog&)>& script) {
    shell().DialogScripts.push_back(script);
  }

  PictureSize size_;
};

/// 10 cm high and 20 cm wide on a screen of 96 dots per inch.
constexpr IntRect kClient = {0, 0, 756, 378};

TEST_F(ExportDialogsTest, GraphsBeginWithTheSizeOfTheViewAndTheDotsOfTheScreen) {
  workspace().ExportDpi = 0.0;
  workspace().ExportType = ExportChoice::Eps;
  Script([](scripted::OpenDialog& dialog) {
    EXPECT_EQ(dialog.Resource(), 131);
    EXPECT_EQ(dialog.At(5).Text, "10.00");
    EXPECT_EQ(dialog.At(7).Text, "20.00");
    EXPECT_THAT(dialog.At(8).Texts,
                ElementsAre("Adobe Illustrator", "Clipboard", "EPS", "Metafile"));
    EXPECT_EQ(dialog.At(8).Shown, 2);
    EXPECT_EQ(dialog.At(11).Text, "96.00");
  });
  EXPECT_FALSE(AskGraphExport(Frame(), kClient, &size_));
  EXPECT_EQ(workspace().ExportDpi, 0.0) << "cancelled";
}

TEST_F(ExportDialogsTest, GraphsKeepTheResolutionOfTheLastExport) {
  workspace().ExportDpi = 300.0;
  Script([](scripted::OpenDialog& dialog) { EXPECT_EQ(dialog.At(11).Text, "300.00"); });
  EXPECT_FALSE(AskGraphExport(Frame(), kClient, &size_));
}

TEST_F(ExportDialogsTest, WhatWasEnteredForAGraphIsStored) {
  Script([](scripted::OpenDialog& dialog) {
    dialog.Type(5, "12.5");
    dialog.Type(7, "15");
    dialog.Choose(8, 3);
    dialog.Type(11, "600");
    dialog.Press(kOk);
  });
  EXPECT_TRUE(AskGraphExport(Frame(), kClient, &size_));
  EXPECT_EQ(size_.Height, 12.5);
  EXPECT_EQ(size_.Width, 15.0);
  EXPECT_EQ(workspace().ExportType, ExportChoice::Metafile);
  EXPECT_EQ(workspace().ExportDpi, 600.0);
}

/// A view of 400 dots is not 10.58 cm wide, as the field says.
TEST_F(ExportDialogsTest, ASizeThatWasLeftAloneIsThatOfTheViewToTheLastDigit) {
  Script([](scripted::OpenDialog& dialog) { dialog.Press(kOk); });
  EXPECT_TRUE(AskGraphExport(Frame(), {0, 0, 400, 400}, &size_));
  EXPECT_EQ(size_.Width, 400 * 2.54 / 96.0);
}

TEST_F(ExportDialogsTest, AGraphHasALeastAndALargestSize) {
  Script([](scripted::OpenDialog& dialog) {
    const auto taken = [&](int control, const char* text) {
      dialog.Type(control, text);
      return dialog.At(kOk).Enabled;
    };
    EXPECT_TRUE(taken(5, "3.0"));
    EXPECT_TRUE(taken(5, "1e20"));
    EXPECT_FALSE(taken(5, "2.99"));
    EXPECT_FALSE(taken(5, "1.1e20"));
    EXPECT_TRUE(taken(5, "4"));
    EXPECT_TRUE(taken(7, "5.0"));
    EXPECT_TRUE(taken(7, "1e20"));
    EXPECT_FALSE(taken(7, "4.99"));
    EXPECT_TRUE(taken(7, "6"));
    EXPECT_FALSE(taken(11, "0"));
    EXPECT_FALSE(taken(11, "-1"));
    EXPECT_TRUE(taken(11, "0.01"));
    dialog.Press(kCancel);
  });
  EXPECT_FALSE(AskGraphExport(Frame(), kClient, &size_));
}

TEST_F(ExportDialogsTest, AViewThatIsTooSmallToBeExportedGreysOkAtOnce) {
  Script([](scripted::OpenDialog& dialog) {
    EXPECT_FALSE(dialog.At(kOk).Enabled);
    EXPECT_TRUE(dialog.At(kCancel).Enabled);
  });
  EXPECT_FALSE(AskGraphExport(Frame(), {0, 0, 100, 100}, &size_));
}

TEST_F(ExportDialogsTest, TextsHaveTwoFormsAndALimit) {
  Script([](scripted::OpenDialog& dialog) {
    EXPECT_EQ(dialog.Resource(), 129);
    EXPECT_THAT(dialog.At(3).Texts, ElementsAre("Excel", "Igor"));
    EXPECT_EQ(dialog.At(3).Shown, 0);
    EXPECT_TRUE(dialog.At(4).Checked);
    dialog.Choose(3, 1);
    dialog.Press(4);
    dialog.Press(kOk);
  });
  EXPECT_TRUE(AskTextExport(Frame()));
  EXPECT_EQ(workspace().TextExportType, TextExportChoice::Igor);
  EXPECT_FALSE(workspace().LimitToWindow);
}

TEST_F(ExportDialogsTest, ACancelledTextKeepsItsForm) {
  Script([](scripted::OpenDialog& dialog) {
    dialog.Choose(3, 1);
    dialog.Press(kCancel);
  });
  EXPECT_FALSE(AskTextExport(Frame()));
  EXPECT_EQ(workspace().TextExportType, TextExportChoice::Excel);
}

TEST_F(ExportDialogsTest, LevelsHaveTwoForms) {
  Script([](scripted::OpenDialog& dialog) {
    EXPECT_EQ(dialog.Resource(), 144);
    EXPECT_THAT(dialog.At(3).Texts, ElementsAre("QUB", "Ond"));
    EXPECT_EQ(dialog.At(3).Shown, 1);
    dialog.Choose(3, 0);
    dialog.Press(kOk);
  });
  EXPECT_TRUE(AskLevelFile(Frame()));
  EXPECT_EQ(workspace().LevelFileType, LevelFileChoice::Qub);
}

}  // namespace
}  // namespace ondrel
