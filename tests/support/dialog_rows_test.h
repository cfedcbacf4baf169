// The settings dialogs as tables, and what each of them is held to: it shows its settings, judges
// what is typed, stores what was entered and nothing else, and draws its views anew.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "support/all_views_test.h"

namespace ondrel {

/// A setting in its unit of memory, whatever its type.
struct Setting {
  std::function<double(const Workspace&)> Read;
  std::function<void(Workspace&, double)> Write;
};

template <typename Value>
Setting SettingAt(Value& (*place)(Workspace&)) {
  return {[place](const Workspace& workspace) {
            return static_cast<double>(place(const_cast<Workspace&>(workspace)));
          },
          [place](Workspace& workspace, double value) {
            place(workspace) = static_cast<Value>(value);
          }};
}

/// `ONDREL_SETTING(Levels.BaseLevel)`: that one of the workspace.
#define ONDREL_SETTING(place) \
  SettingAt(+[](Workspace& workspace) -> decltype((workspace.place)) { return workspace.place; })

/// Texts that a field just takes, and texts that it just refuses.
struct Edges {
  std::vector<std::string> Taken;
  std::vector<std::string> Refused;
};

inline Edges WholeNumbers(const std::string& low, const std::string& below) {
  return {{low, "2147483647"}, {below, "2147483648", "", "-", "1.5", "x", "3 "}};
}
inline Edges FromOne() {
  return WholeNumbers("1", "0");
}
inline Edges FromTwo() {
  return WholeNumbers("2", "1");
}
inline Edges AnyWhole() {
  return WholeNumbers("-2147483648", "-2147483649");
}
inline Edges AnyNumber() {
  return {{"0", "-1.7976931348623157e308", "1.7976931348623157e308", ".5"},
          {"-1.8e308", "1.8e308", "", "-", "1e", "nan", "inf", "0x10", "2 "}};
}
inline Edges AboveZero() {
  return {{"1e-290", "1.7976931348623157e308"}, {"0", "-0.0", "-1e-290", "1.8e308", "", "-"}};
}
inline Edges ZeroAndUp() {
  return {{"0", "1.7976931348623157e308"}, {"-1e-290", "-1", "1.8e308", "", "-"}};
}

struct EditRow {
  int Control;
  Setting Field;
  double Before;        // has more digits than are shown
  std::string Shown;    // of that
  std::string Entered;  // instead
  double After;
  Edges Rule;
};
struct ListRow {
  int Control;
  Setting Field;
  std::vector<std::string> Texts;
};
struct CheckRow {
  int Control;
  Setting Field;
};
struct RadioRow {
  int First;
  int Last;
  Setting Field;
};

struct DialogRows {
  std::string Name;
  CommandId Command;
  int Resource;
  std::vector<EditRow> Edits{};
  std::vector<ListRow> Lists{};
  std::vector<CheckRow> Checks{};
  std::vector<RadioRow> Radios{};
  std::vector<ViewKind> Repainted{};  // once something else was entered, in their order
  bool ActsUnchanged = true;          // the same although nothing was

  friend std::ostream& operator<<(std::ostream& stream, const DialogRows& rows) {
    return stream << rows.Name;
  }
};

inline std::string NameOf(const ::testing::TestParamInfo<DialogRows>& info) {
  return info.param.Name;
}

constexpr int kOk = 1;
constexpr int kCancel = 2;

/// One test of each kind for each dialog of a family. Dialogs of a family must not touch each
/// other's settings.
class DialogRowsTest : public AllViewsTest, public ::testing::WithParamInterface<DialogRows> {
 protected:
  using Script = std::function<void(scripted::OpenDialog&)>;

  explicit DialogRowsTest(std::vector<DialogRows> family) : family_(std::move(family)) {}

  const DialogRows& Rows() const { return GetParam(); }

  /// Runs the dialog in the whole program, all views open, and `afterwards` behind it.
  void RunDialog(
      const Script& script, const std::function<void()>& afterwards = [] {}) {
    RunWithAllViews([&] {
      FillSettings();
      before_ = AllSettings();
      Forget();
      shell().Dialogs.clear();
      shell().DialogScripts.push_back(script);
      Choose(Rows().Command);
      EXPECT_THAT(shell().Dialogs, ::testing::ElementsAre(Rows().Resource));
      EXPECT_TRUE(shell().DialogScripts.empty());
      afterwards();
    });
  }

  void ExpectShown() {
    RunDialog([&](scripted::OpenDialog& dialog) {
      for (const EditRow& row : Rows().Edits) {
        EXPECT_EQ(dialog.At(row.Control).Text, row.Shown) << row.Control;
      }
      for (const ListRow& row : Rows().Lists) {
        EXPECT_EQ(dialog.At(row.Control).Texts, row.Texts) << row.Control;
        EXPECT_EQ(dialog.At(row.Control).Shown, LastOf(row)) << row.Control;
      }
      for (const CheckRow& row : Rows().Checks) EXPECT_TRUE(dialog.At(row.Control).Checked);
      for (const RadioRow& row : Rows().Radios) {
        EXPECT_FALSE(dialog.At(row.First).Checked);
        EXPECT_TRUE(dialog.At(row.Last).Checked);
      }
      EXPECT_TRUE(dialog.At(kOk).Enabled);
    });
  }

  /// Each field alone, for a field must not store another's value.
  void ExpectEachStored() {
    for (const EditRow& row : Rows().Edits) {
      ExpectStored(row.Field, row.After,
                   [&](scripted::OpenDialog& dialog) { dialog.Type(row.Control, row.Entered); });
    }
    for (const ListRow& row : Rows().Lists) {
      for (int place = 0; place <= LastOf(row); ++place) {
        ExpectStored(row.Field, place,
                     [&](scripted::OpenDialog& dialog) { dialog.Choose(row.Control, place); });
      }
    }
    for (const CheckRow& row : Rows().Checks) {
      ExpectStored(row.Field, 0, [&](scripted::OpenDialog& dialog) {
        dialog.Press(row.Control);
        EXPECT_FALSE(dialog.At(row.Control).Checked);
      });
    }
    for (const RadioRow& row : Rows().Radios) {
      ExpectStored(row.Field, 0, [&](scripted::OpenDialog& dialog) {
        dialog.Press(row.First);
        EXPECT_TRUE(dialog.At(row.First).Checked);
        EXPECT_FALSE(dialog.At(row.Last).Checked);
      });
    }
  }

  void ExpectEdgesJudged() {
    RunDialog([&](scripted::OpenDialog& dialog) {
      for (const EditRow& row : Rows().Edits) {
        for (const std::string& text : row.Rule.Refused) {
          dialog.Type(row.Control, text);
          EXPECT_FALSE(dialog.At(kOk).Enabled) << row.Control << " '" << text << "'";
          EXPECT_TRUE(dialog.At(kCancel).Enabled);
        }
        for (const std::string& text : row.Rule.Taken) {
          dialog.Type(row.Control, text);
          EXPECT_TRUE(dialog.At(kOk).Enabled) << row.Control << " '" << text << "'";
        }
      }
    });
  }

  void ExpectCancelChangesNothing() {
    for (const bool byKey : {false, true}) {
      RunDialog(
          [&](scripted::OpenDialog& dialog) {
            EnterAll(dialog);
            byKey ? dialog.Escape() : dialog.Press(kCancel);
            EXPECT_EQ(dialog.Result(), kCancel);
          },
          [&] {
            EXPECT_EQ(AllSettings(), before_);
            EXPECT_THAT(Repainted(), ::testing::IsEmpty());
          });
    }
  }

  void ExpectRepainted() {
    RunDialog(
        [&](scripted::OpenDialog& dialog) {
          EnterAll(dialog);
          dialog.Press(kOk);
        },
        [&] { EXPECT_EQ(Repainted(), TitlesOf(Rows().Repainted)); });
  }

  void ExpectUnchangedKeepsAllDigits() {
    RunDialog([](scripted::OpenDialog& dialog) { dialog.Press(kOk); },
              [&] {
                EXPECT_EQ(AllSettings(), before_);
                const Titles expected = TitlesOf(Rows().Repainted);
                EXPECT_EQ(Repainted(), Rows().ActsUnchanged ? expected : Titles{});
              });
  }

 private:
  static int LastOf(const ListRow& row) { return static_cast<int>(row.Texts.size()) - 1; }

  /// Lists show their last text, boxes are checked, and of radio buttons the last is.
  void FillSettings() {
    for (const EditRow& row : Rows().Edits) row.Field.Write(workspace(), row.Before);
    for (const ListRow& row : Rows().Lists) row.Field.Write(workspace(), LastOf(row));
    for (const CheckRow& row : Rows().Checks) row.Field.Write(workspace(), 1);
    for (const RadioRow& row : Rows().Radios) row.Field.Write(workspace(), row.Last - row.First);
  }

  std::vector<double> AllSettings() { return SettingsExcept(nullptr, nullptr); }

  /// The settings of the whole family in an order of their own. The present dialog's `changed` one
  /// goes to `value` instead.
  std::vector<double> SettingsExcept(const Setting* changed, double* value) {
    std::vector<double> values;
    const auto take = [&](const Setting& setting) {
      const double read = setting.Read(workspace());
      if (&setting == changed) {
        *value = read;
      } else {
        values.push_back(read);
      }
    };
    const auto takeAll = [&](const DialogRows& rows) {
      for (const EditRow& row : rows.Edits) take(row.Field);
      for (const ListRow& row : rows.Lists) take(row.Field);
      for (const CheckRow& row : rows.Checks) take(row.Field);
      for (const RadioRow& row : rows.Radios) take(row.Field);
    };
    takeAll(Rows());
    for (const DialogRows& rows : family_) {
      if (rows.Name != Rows().Name) takeAll(rows);
    }
    return values;
  }

  void ExpectStored(const Setting& field, double after, const Script& enter) {
    std::vector<double> others;
    double value = 0.0;
    RunDialog(
        [&](scripted::OpenDialog& dialog) {
          others = SettingsExcept(&field, &value);
          enter(dialog);
          EXPECT_EQ(AllSettings(), before_) << "stored before OK";
          dialog.Press(kOk);
          EXPECT_EQ(dialog.Result(), kOk);
        },
        [&] {
          EXPECT_EQ(SettingsExcept(&field, &value), others) << "a setting of another field";
          EXPECT_EQ(value, after);
        });
  }

  void EnterAll(scripted::OpenDialog& dialog) {
    for (const EditRow& row : Rows().Edits) dialog.Type(row.Control, row.Entered);
    for (const ListRow& row : Rows().Lists) dialog.Choose(row.Control, 0);
    for (const CheckRow& row : Rows().Checks) dialog.Press(row.Control);
    for (const RadioRow& row : Rows().Radios) dialog.Press(row.First);
  }

  std::vector<DialogRows> family_;
  std::vector<double> before_;
};

}  // namespace ondrel
