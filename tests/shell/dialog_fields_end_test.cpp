// When a dialog can be confirmed, and what its end stores.
#include <gtest/gtest.h>

#include <limits>

#include "shell/dialog_fields_fixture.h"

namespace ondrel {
namespace {

class DialogEndTest : public DialogFieldsTest {};

// --- The mask of bad fields ----------------------------------------------------------------------

TEST_F(DialogEndTest, TwoBadFieldsMustBothBeMended) {
  RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(6, "x");
    dialog.Type(7, "x");
    dialog.Type(6, "1");
    EXPECT_FALSE(dialog.At(2).Enabled);
    dialog.Type(7, "1");
    EXPECT_TRUE(dialog.At(2).Enabled);
    dialog.Type(7, "x");
    dialog.Type(6, "x");
    dialog.Type(6, "1");
    EXPECT_FALSE(dialog.At(2).Enabled) << "in the other order";
  });
}

TEST_F(DialogEndTest, AFieldThatIsBadTwiceIsMendedOnce) {
  RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(6, "x");
    dialog.Type(6, "xx");
    EXPECT_FALSE(dialog.At(1).Enabled);
    dialog.Type(6, "1");
    EXPECT_TRUE(dialog.At(1).Enabled);
  });
}

/// The buttons are touched only when the first field turns bad and when the last is mended.
TEST_F(DialogEndTest, ButtonsAreGreyedTheFirstTimeOnly) {
  RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(6, "x");
    dialog.At(1).Enabled = true;
    dialog.Type(7, "x");
    EXPECT_TRUE(dialog.At(1).Enabled);
    dialog.At(1).Enabled = false;
    dialog.Type(6, "1");
    EXPECT_FALSE(dialog.At(1).Enabled);
    dialog.Type(7, "1");
    EXPECT_TRUE(dialog.At(1).Enabled);
    dialog.At(1).Enabled = false;
    dialog.Type(7, "2");
    EXPECT_FALSE(dialog.At(1).Enabled) << "nothing was bad before";
  });
}

TEST_F(DialogEndTest, OtherControlsDoNotMendABadField) {
  RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(6, "x");
    dialog.Press(8);
    dialog.Press(12);
    dialog.Choose(15, 0);
    EXPECT_FALSE(dialog.At(1).Enabled);
  });
}

TEST_F(DialogEndTest, ABadSettingGreysOkFromTheStart) {
  const double bad[] = {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(),
                        std::numeric_limits<double>::infinity()};
  for (const double size : bad) {
    values_.Size = size;
    RunWith([](scripted::OpenDialog& dialog) {
      EXPECT_FALSE(dialog.At(1).Enabled);
      EXPECT_TRUE(dialog.At(3).Enabled);
      dialog.Type(7, "1");
      EXPECT_TRUE(dialog.At(1).Enabled);
    });
  }
}

TEST_F(DialogEndTest, ABadIntegerGreysOkFromTheStart) {
  for (const std::int32_t count : {-6, 6}) {
    values_.Count = count;
    RunWith([](scripted::OpenDialog& dialog) {
      EXPECT_FALSE(dialog.At(1).Enabled);
      dialog.Type(6, "5");
      EXPECT_TRUE(dialog.At(1).Enabled);
    });
  }
}

constexpr DialogField kBounded[] = {
    RealField<&Values::Delay>(6, {.Low = 1.0, .High = 3.0}, {.Unit = 0.001})};
constexpr DialogTable kBoundedTable = {.Resource = 1, .Fields = kBounded};

TEST_F(DialogEndTest, BoundsHoldInTheUnitOfTheField) {
  for (const double delay : {0.0005, 0.002, 0.004, 2.0}) {
    values_.Delay = delay;
    shell().DialogScripts.push_back([&](scripted::OpenDialog& dialog) {
      EXPECT_EQ(dialog.At(kOkButton).Enabled, delay == 0.002) << delay;
      dialog.Type(6, "0.99");
      EXPECT_FALSE(dialog.At(kOkButton).Enabled);
      dialog.Type(6, "1");
      EXPECT_TRUE(dialog.At(kOkButton).Enabled);
    });
    EXPECT_FALSE(EditSettings(Frame(), kBoundedTable, values_));
  }
}

TEST_F(DialogEndTest, TwoBadSettingsMustBothBeMended) {
  values_.Count = 6;
  values_.Delay = -1.0;
  RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(6, "5");
    EXPECT_FALSE(dialog.At(1).Enabled);
    dialog.Type(9, "0");
    EXPECT_TRUE(dialog.At(1).Enabled);
    dialog.Press(1);
  });
  EXPECT_EQ(values_.Count, 5);
  EXPECT_EQ(values_.Delay, 0.0);
}

/// What the user has not touched is judged by the setting, which the field may show too roughly.
TEST_F(DialogEndTest, ASettingThatShowsAsABadNumberIsGoodUntilThatIsTyped) {
  values_.Size = 0.001;
  RunWith([](scripted::OpenDialog& dialog) {
    EXPECT_EQ(dialog.At(7).Text, "0.00");
    EXPECT_TRUE(dialog.At(1).Enabled);
    dialog.Type(7, "0.0");
    EXPECT_FALSE(dialog.At(1).Enabled) << "another text, and no positive number";
    dialog.Type(7, "0.00");
    EXPECT_TRUE(dialog.At(1).Enabled) << "the setting again";
    dialog.Press(1);
  });
  EXPECT_EQ(values_.Size, 0.001);
}

TEST_F(DialogEndTest, ASettingThatShowsAsAGoodNumberIsBadAllTheSame) {
  values_.Range = 8000.001;
  RunWith([](scripted::OpenDialog& dialog) {
    EXPECT_EQ(dialog.At(10).Text, "8000.00");
    EXPECT_FALSE(dialog.At(1).Enabled);
    dialog.Type(10, "8000");
    EXPECT_TRUE(dialog.At(1).Enabled);
    dialog.Press(1);
  });
  EXPECT_EQ(values_.Range, 8000.0);
}

TEST_F(DialogEndTest, APressOfOkWithABadFieldDoesNotEndTheDialog) {
  const int button = RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(7, "0");
    dialog.At(2).Enabled = true;  // as if the platform had let it through
    dialog.Press(2);
    EXPECT_EQ(dialog.Result(), 0);
  });
  EXPECT_EQ(button, 3);
  EXPECT_EQ(values_.Size, 0.5);
}

// --- Choices -------------------------------------------------------------------------------------

TEST_F(DialogEndTest, APressOnACheckBoxFlipsTheFlagAndTheBox) {
  RunWith([](scripted::OpenDialog& dialog) {
    for (const bool checked : {false, true, false}) {
      dialog.Press(8);
      EXPECT_EQ(dialog.At(8).Checked, checked);
    }
    dialog.Press(2);
  });
  EXPECT_FALSE(values_.Flag);
}

TEST_F(DialogEndTest, ARadioButtonTakesTheMarkFromTheOthers) {
  for (const int pressed : {14, 12, 13}) {
    RunWith([&](scripted::OpenDialog& dialog) {
      dialog.Press(pressed);
      for (int button = 12; button <= 14; ++button) {
        EXPECT_EQ(dialog.At(button).Checked, button == pressed) << button;
      }
      dialog.Press(1);
    });
    EXPECT_EQ(values_.Axis, pressed - 12);
  }
}

TEST_F(DialogEndTest, AListStoresThePlaceOfItsTextFromZero) {
  for (const int place : {0, 1, 2}) {
    RunWith([&](scripted::OpenDialog& dialog) {
      dialog.Choose(15, place);
      dialog.Press(1);
    });
    EXPECT_EQ(values_.Style, place);
  }
}

TEST_F(DialogEndTest, AListThatShowsNothingIsBad) {
  RunWith([](scripted::OpenDialog& dialog) {
    dialog.Choose(15, -1);
    EXPECT_FALSE(dialog.At(1).Enabled);
    dialog.Choose(15, 0);
    EXPECT_TRUE(dialog.At(1).Enabled);
  });
}

// --- The end -------------------------------------------------------------------------------------

TEST_F(DialogEndTest, NothingIsStoredBeforeOk) {
  RunWith([&](scripted::OpenDialog& dialog) {
    EnterEverything(dialog);
    ExpectAsAtFirst();
    dialog.Press(1);
  });
  EXPECT_EQ(values_.Count, -2);
  EXPECT_EQ(values_.Size, 3.0);
  EXPECT_FALSE(values_.Flag);
  EXPECT_EQ(values_.Delay, 2.5 * 0.001);
  EXPECT_EQ(values_.Range, -8000.0);
  EXPECT_EQ(values_.Tolerance, 1e-9);
  EXPECT_EQ(values_.Axis, 2);
  EXPECT_EQ(values_.Style, 0);
}

TEST_F(DialogEndTest, EachButtonThatStoresDoesAndTellsWhichItWas) {
  for (const int button : {1, 2}) {
    values_ = {};
    EXPECT_EQ(RunWith([&](scripted::OpenDialog& dialog) {
                dialog.Type(6, "2");
                dialog.Press(button);
              }),
              button);
    EXPECT_EQ(values_.Count, 2);
  }
}

TEST_F(DialogEndTest, CancelIsAlwaysThereAndChangesNothing) {
  const int button = RunWith([](scripted::OpenDialog& dialog) {
    EnterEverything(dialog);
    dialog.Type(6, "");
    EXPECT_TRUE(dialog.At(3).Enabled);
    dialog.Press(3);
  });
  EXPECT_EQ(button, 3);
  ExpectAsAtFirst();
}

TEST_F(DialogEndTest, EscapeCancels) {
  const int button = RunWith([](scripted::OpenDialog& dialog) {
    EnterEverything(dialog);
    dialog.Escape();
  });
  EXPECT_EQ(button, 3);
  ExpectAsAtFirst();
}

TEST_F(DialogEndTest, ControlsThatAreNoFieldsDoNothing) {
  RunWith([](scripted::OpenDialog& dialog) {
    dialog.Press(5);
    EXPECT_EQ(dialog.Result(), 0);
    EXPECT_TRUE(dialog.At(1).Enabled);
  });
  ExpectAsAtFirst();
}

}  // namespace
}  // namespace ondrel
