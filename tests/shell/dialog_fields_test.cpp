#include "shell/dialog_fields.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>

#include "shell/dialog_fields_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

// --- Showing -------------------------------------------------------------------------------------

TEST_F(DialogFieldsTest, EachKindOfFieldShowsItsSetting) {
  RunWith([](scripted::OpenDialog& dialog) {
    EXPECT_EQ(dialog.Resource(), 999);
    EXPECT_EQ(dialog.At(6).Text, "4");
    EXPECT_EQ(dialog.At(7).Text, "0.50");
    EXPECT_TRUE(dialog.At(8).Checked);
    EXPECT_EQ(dialog.At(9).Text, "1.235") << "in its unit";
    EXPECT_EQ(dialog.At(10).Text, "2.00");
    EXPECT_EQ(dialog.At(11).Text, "1.2346E-04");
    EXPECT_FALSE(dialog.At(12).Checked);
    EXPECT_TRUE(dialog.At(13).Checked);
    EXPECT_FALSE(dialog.At(14).Checked);
    EXPECT_THAT(dialog.At(15).Texts, ElementsAre("Filled", "Outlined", "Rectangles"));
    EXPECT_EQ(dialog.At(15).Shown, 2);
  });
}

TEST_F(DialogFieldsTest, AChoiceBeyondTheDialogShowsAndCountsAsItsLast) {
  values_.Axis = 3;
  values_.Style = 255;
  RunWith([](scripted::OpenDialog& dialog) {
    EXPECT_TRUE(dialog.At(14).Checked);
    EXPECT_EQ(dialog.At(15).Shown, 2);
    dialog.Press(1);
  });
  EXPECT_EQ(values_.Axis, 2);
  EXPECT_EQ(values_.Style, 2);
}

TEST_F(DialogFieldsTest, AChoiceBeyondTheDialogStaysWhenItIsCancelled) {
  values_.Axis = 3;
  values_.Style = 255;
  RunWith([](scripted::OpenDialog& dialog) { dialog.Press(3); });
  EXPECT_EQ(values_.Axis, 3);
  EXPECT_EQ(values_.Style, 255);
}

/// Five fields with texts, one check box, three radio buttons and a list.
TEST_F(DialogFieldsTest, AnyControlThatFailsAtTheStartEndsTheDialogAtOnce) {
  for (int call = 1; call <= 10; ++call) {
    shell().ControlText.Next = call;
    EXPECT_EQ(RunFieldDialog(Frame(), kTable, &values_), -1) << call;
    EXPECT_EQ(shell().ControlText.Next, 0) << call;
    ExpectAsAtFirst();
  }
  shell().ControlText.Calls = 0;
  EXPECT_EQ(RunFieldDialog(Frame(), kTable, &values_), 3);
  EXPECT_EQ(shell().ControlText.Calls, 10);
}

// --- Numbers -------------------------------------------------------------------------------------

TEST_F(DialogFieldsTest, TypingALoneMinusGreysOkAndFinishingTheNumberBringsItBack) {
  const int button = RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(6, "-");
    EXPECT_FALSE(dialog.At(1).Enabled);
    dialog.Type(6, "-3");
    EXPECT_TRUE(dialog.At(1).Enabled);
    dialog.Press(1);
  });
  EXPECT_EQ(button, 1);
  EXPECT_EQ(values_.Count, -3);
}

TEST_F(DialogFieldsTest, BothEndsOfARangeAreInside) {
  ExpectTaken(6, {"-5", "5", "+0"}, true);
  ExpectTaken(6, {"-6", "6", "-2147483649", "2147483648"}, false);
  ExpectTaken(10, {"-8000", "8000", "8E3"}, true);
  ExpectTaken(10, {"-8000.0001", "8000.0001", "-9e307", "9e307"}, false);
  ExpectTaken(9, {"0", "-0", "1e300"}, true);
  ExpectTaken(9, {"-0.001", "-1e-300"}, false);
}

TEST_F(DialogFieldsTest, APositiveFieldDoesNotTakeZero) {
  ExpectTaken(7, {"1e-300", "0.01", "1.7976931348623157e308"}, true);
  ExpectTaken(7, {"0", "0.0", "-0.0", "-1e-300", "-1"}, false);
}

TEST_F(DialogFieldsTest, AnyNumberTakesEveryNumberThatIsOne) {
  ExpectTaken(11, {"0", "-1.7976931348623157e308", "1.7976931348623157e308", "-.5", "5."}, true);
  ExpectTaken(11, {"", "-", ".", "e5", "1e", "1e400", "-1e400", "nan", "inf", "0x1", "1,5", "1 "},
              false);
}

TEST_F(DialogFieldsTest, AnIntegerFieldTakesNoRealsAndNoEmptyText) {
  ExpectTaken(6, {"", "1.0", "1e0", "x", "1x", "--1", "0x1"}, false);
}

/// The longest text that is read has 339 letters; what may stand behind it is unknown.
TEST_F(DialogFieldsTest, ATextThatIsTooLongToBeReadIsBad) {
  RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(7, "1." + std::string(337, '0'));
    EXPECT_TRUE(dialog.At(1).Enabled);
    dialog.Type(7, "1." + std::string(338, '0'));
    EXPECT_FALSE(dialog.At(1).Enabled);
    dialog.Type(7, "1." + std::string(400, '0') + "x");
    EXPECT_FALSE(dialog.At(1).Enabled);
  });
}

TEST_F(DialogFieldsTest, ANumberIsStoredInTheUnitOfMemory) {
  RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(9, "2.345678");
    dialog.Press(1);
  });
  EXPECT_EQ(values_.Delay, 2.345678 * 0.001) << "also what the field would not show";
}

constexpr DialogField kWide[] = {IntegerField<&Values::Count>(6)};
constexpr DialogTable kWideTable = {.Resource = 1, .Fields = kWide};

TEST_F(DialogFieldsTest, AnIntegerOfTheWholeRangeIsStored) {
  for (const std::int32_t value :
       {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
    shell().DialogScripts.push_back([&](scripted::OpenDialog& dialog) {
      dialog.Type(6, std::to_string(value));
      dialog.Press(kOkButton);
    });
    EXPECT_TRUE(EditSettings(Frame(), kWideTable, values_));
    EXPECT_EQ(values_.Count, value);
  }
}

TEST_F(DialogFieldsTest, UnchangedFieldsKeepEveryDigit) {
  RunWith([](scripted::OpenDialog& dialog) { dialog.Press(1); });
  ExpectAsAtFirst();
}

TEST_F(DialogFieldsTest, AFieldThatIsTypedBackToItsTextKeepsEveryDigit) {
  RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(9, "7");
    dialog.Type(9, "1.235");
    dialog.Type(11, "");
    dialog.Type(11, "1.2346E-04");
    dialog.Press(1);
  });
  ExpectAsAtFirst();
}

TEST_F(DialogFieldsTest, TheSameNumberInOtherWordsIsANewOne) {
  RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(9, "1.2350");
    dialog.Press(1);
  });
  EXPECT_EQ(values_.Delay, 1.235 * 0.001);
}

}  // namespace
}  // namespace ondrel
