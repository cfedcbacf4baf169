#include "shell/dialog_fields.h"

#include <cstddef>

#include "support/shell_test.h"

namespace ondrel {
namespace {

struct Values {
  std::int32_t Count = 4;
  double Size = 0.5;
  bool Flag = true;
};

constexpr DialogField kFields[] = {
    IntegerField(6, offsetof(Values, Count), -5, 5),
    RealField(7, offsetof(Values, Size), kPositive),
    CheckField(8, offsetof(Values, Flag)),
};
constexpr int kStoring[] = {1, 2};
constexpr DialogTable kTable = {
    .Resource = 999, .Fields = kFields, .StoringButtons = kStoring, .CancelButton = 3};

class DialogFieldsTest : public ShellTest {
 protected:
  int RunWith(const std::function<void(scripted::OpenDialog&)>& script) {
    shell().DialogScripts.push_back(script);
    return RunFieldDialog(Frame(), kTable, &values_);
  }

  Values values_;
};

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

TEST_F(DialogFieldsTest, TwoBadFieldsMustBothBeMended) {
  RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(6, "x");
    dialog.Type(7, "x");
    dialog.Type(6, "1");
    EXPECT_FALSE(dialog.At(2).Enabled);
    dialog.Type(7, "1");
    EXPECT_TRUE(dialog.At(2).Enabled);
  });
}

TEST_F(DialogFieldsTest, CancelIsAlwaysThere) {
  const int button = RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(6, "");
    EXPECT_TRUE(dialog.At(3).Enabled);
    dialog.Press(3);
  });
  EXPECT_EQ(button, 3);
}

TEST_F(DialogFieldsTest, EscapeCancels) {
  const int button = RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(6, "5");
    dialog.Escape();
  });
  EXPECT_EQ(button, 3);
}

TEST_F(DialogFieldsTest, AControlThatFailsAtTheStartEndsTheDialog) {
  shell().ControlText.Next = 2;
  EXPECT_EQ(RunWith([](scripted::OpenDialog&) { ADD_FAILURE() << "the dialog is not shown"; }), -1);
}

TEST_F(DialogFieldsTest, BothEndsOfARangeAreInside) {
  RunWith([](scripted::OpenDialog& dialog) {
    for (const char* text : {"-5", "5", "+0"}) {
      dialog.Type(6, text);
      EXPECT_TRUE(dialog.At(1).Enabled) << text;
    }
    for (const char* text : {"-6", "6"}) {
      dialog.Type(6, text);
      EXPECT_FALSE(dialog.At(1).Enabled) << text;
    }
  });
}

TEST_F(DialogFieldsTest, APressOnACheckBoxFlipsTheFlagAndTheBox) {
  RunWith([](scripted::OpenDialog& dialog) {
    EXPECT_TRUE(dialog.At(8).Checked);
    dialog.Press(8);
    EXPECT_FALSE(dialog.At(8).Checked);
    dialog.Press(2);
  });
  EXPECT_FALSE(values_.Flag);
}

TEST_F(DialogFieldsTest, APressOfOkWithABadFieldDoesNotEndTheDialog) {
  const int button = RunWith([](scripted::OpenDialog& dialog) {
    dialog.Type(7, "0");
    dialog.At(2).Enabled = true;  // as if the platform had let it through
    dialog.Press(2);
    EXPECT_EQ(dialog.Result(), 0);
  });
  EXPECT_EQ(button, 3);
}

TEST_F(DialogFieldsTest, ControlsThatAreNoFieldsDoNothing) {
  RunWith([](scripted::OpenDialog& dialog) {
    dialog.Press(5);
    EXPECT_EQ(dialog.Result(), 0);
    EXPECT_TRUE(dialog.At(1).Enabled);
  });
  EXPECT_EQ(values_.Count, 4);
}

}  // namespace
}  // namespace ondrel
