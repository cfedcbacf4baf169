// The fields of the settings dialogs as rows. A dialog works on a private copy of its settings and
// on one mask with a bit for each field that now holds a bad value. Bad input has no words: while
// the mask is not 0 the buttons that store are disabled.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

#include "shell/toolkit.h"
#include "workspace/units.h"

namespace ondrel {

enum class FieldKind : std::uint8_t {
  Integer,  // an edit field with a decimal integer
  Real,     // an edit field with a real
  Check,    // a check box
  Radio,    // a row of radio buttons with consecutive ids
  List,     // a drop-down list
};

/// Which numbers an edit field takes, as they stand there.
struct NumberRule {
  double Low = std::numeric_limits<double>::lowest();
  double High = std::numeric_limits<double>::max();
  bool AboveLow = false;  // Low itself is not taken
};
inline constexpr NumberRule kAnyReal{};
inline constexpr NumberRule kPositive{.Low = 0.0, .AboveLow = true};
inline constexpr NumberRule kNotNegative{.Low = 0.0};

/// How a real is shown: the setting over `Unit`, with so many decimals.
struct RealForm {
  double Unit = 1.0;
  int Decimals = 2;
  char Notation = 'f';  // or 'E'
};

inline constexpr RealForm kPicoamperes{.Unit = kPicoampere};  // a setting in A

struct DialogField {
  int Control;
  FieldKind Kind;
  std::size_t Offset;  // of the setting in its record: int32, double, bool, or a byte that counts
                       // radio buttons or texts from 0
  NumberRule Rule{};
  RealForm Form{};
  int LastControl = 0;  // of radio buttons
  std::span<const char* const> Texts{};
};

/// An integer from `low` to `high`.
constexpr DialogField IntegerField(int control, std::size_t offset,
                                   std::int32_t low = std::numeric_limits<std::int32_t>::min(),
                                   std::int32_t high = std::numeric_limits<std::int32_t>::max()) {
  return {control,
          FieldKind::Integer,
          offset,
          {.Low = static_cast<double>(low), .High = static_cast<double>(high)}};
}
constexpr DialogField RealField(int control, std::size_t offset, NumberRule rule,
                                RealForm form = {}) {
  return {control, FieldKind::Real, offset, rule, form};
}
constexpr DialogField CheckField(int control, std::size_t offset) {
  return {control, FieldKind::Check, offset};
}
constexpr DialogField RadioField(int first, int last, std::size_t offset) {
  return {.Control = first, .Kind = FieldKind::Radio, .Offset = offset, .LastControl = last};
}
constexpr DialogField ListField(int control, std::size_t offset,
                                std::span<const char* const> texts) {
  return {.Control = control, .Kind = FieldKind::List, .Offset = offset, .Texts = texts};
}

inline constexpr int kOkButton = 1;
inline constexpr int kCancelButton = 2;
inline constexpr int kOkButtons[] = {kOkButton};

/// At most so many fields: each has a bit of the mask.
inline constexpr std::size_t kMostFields = 32;

/// What a dialog is made of. Controls that store the values are disabled while a field is bad.
struct DialogTable {
  int Resource;
  std::span<const DialogField> Fields;
  std::span<const int> StoringButtons = kOkButtons;
  int CancelButton = kCancelButton;
};

/// Runs the dialog on `settings`, the record that the fields' offsets refer to. A button that
/// stores writes into it what the user entered; a field that still reads as it did keeps its
/// setting to the last digit. Returns the button that ended the dialog, or -1 when it could not be
/// shown.
int RunFieldDialog(FrameWindow* frame, const DialogTable& table, void* settings);

/// The same for dialogs with one button that stores. True when it was pressed.
template <typename Settings>
bool EditSettings(FrameWindow* frame, const DialogTable& table, Settings& settings) {
  return RunFieldDialog(frame, table, &settings) == kOkButton;
}

}  // namespace ondrel
