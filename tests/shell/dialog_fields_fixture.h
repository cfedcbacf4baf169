// A dialog with a field of each kind, two buttons that store, 1 and 2, and 3 that cancels.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>

#include "shell/dialog_fields.h"
#include "support/shell_test.h"

namespace ondrel {

struct Values {
  std::int32_t Count = 4;
  double Size = 0.5;
  bool Flag = true;
  double Delay = 0.00123456;  // s
  double Range = 2.0;
  double Tolerance = 0.000123456;
  std::uint8_t Axis = 1;
  std::uint8_t Style = 2;
};

inline constexpr const char* kStyles[] = {"Filled", "Outlined", "Rectangles"};
inline constexpr DialogField kFields[] = {
    IntegerField<&Values::Count>(6, -5, 5),
    RealField<&Values::Size>(7, kPositive),
    CheckField<&Values::Flag>(8),
    RealField<&Values::Delay>(9, kNotNegative, {.Unit = 0.001, .Decimals = 3}),
    RealField<&Values::Range>(10, {.Low = -8000.0, .High = 8000.0}),
    RealField<&Values::Tolerance>(11, kAnyReal, {.Decimals = 4, .Notation = 'E'}),
    RadioField<&Values::Axis>(12, 14),
    ListField<&Values::Style>(15, kStyles),
};
inline constexpr int kStoring[] = {1, 2};
inline constexpr DialogTable kTable = {
    .Resource = 999, .Fields = kFields, .StoringButtons = kStoring, .CancelButton = 3};

class DialogFieldsTest : public ShellTest {
 protected:
  int RunWith(const std::function<void(scripted::OpenDialog&)>& script) {
    shell().DialogScripts.push_back(script);
    return RunFieldDialog(Frame(), kTable, &values_);
  }

  /// Types each text and tells whether the buttons that store are enabled then.
  void ExpectTaken(int control, std::initializer_list<const char*> texts, bool taken) {
    RunWith([&](scripted::OpenDialog& dialog) {
      for (const char* text : texts) {
        dialog.Type(control, text);
        EXPECT_EQ(dialog.At(1).Enabled, taken) << "'" << text << "'";
        EXPECT_EQ(dialog.At(2).Enabled, taken) << "'" << text << "'";
        EXPECT_TRUE(dialog.At(3).Enabled);
      }
    });
  }

  void ExpectAsAtFirst() {
    const Values former;
    EXPECT_EQ(values_.Count, former.Count);
    EXPECT_EQ(values_.Size, former.Size);
    EXPECT_EQ(values_.Flag, former.Flag);
    EXPECT_EQ(values_.Delay, former.Delay);
    EXPECT_EQ(values_.Range, former.Range);
    EXPECT_EQ(values_.Tolerance, former.Tolerance);
    EXPECT_EQ(values_.Axis, former.Axis);
    EXPECT_EQ(values_.Style, former.Style);
  }

  Values values_;
};

inline void EnterEverything(scripted::OpenDialog& dialog) {
  dialog.Type(6, "-2");
  dialog.Type(7, "3");
  dialog.Press(8);
  dialog.Type(9, "2.5");
  dialog.Type(10, "-8000");
  dialog.Type(11, "1E-9");
  dialog.Press(14);
  dialog.Choose(15, 0);
}

}  // namespace ondrel
