// The fields of the settings dialogs as rows. A dialog works on a private copy of its settings and
// on one mask with a bit for each field that now holds a bad value. Bad input has no words: while
// the mask is not 0 the buttons that store are disabled.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <type_traits>

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
  void* (*Find)(void* settings);  // the setting in its record: an int32, a double, a bool, or a
                                  // byte that counts radio buttons or texts from 0
  NumberRule Rule{};
  RealForm Form{};
  int LastControl = 0;  // of radio buttons
  std::span<const char* const> Texts{};
};

// Rows of a dialog. `kMember` is the setting as a member of the record that the dialog edits.

template <typename Member>
struct MemberParts;
template <typename RecordType, typename ValueType>
struct MemberParts<ValueType RecordType::*> {
  using Record = RecordType;
  using Value = ValueType;
};
template <auto kMember>
using RecordOf = typename MemberParts<decltype(kMember)>::Record;
template <auto kMember>
using ValueOf = typename MemberParts<decltype(kMember)>::Value;

template <auto kMember>
void* FindMember(void* settings) {
  return &(static_cast<RecordOf<kMember>*>(settings)->*kMember);
}

/// An integer from `low` to `high`.
template <auto kMember>
constexpr DialogField IntegerField(int control,
                                   std::int32_t low = std::numeric_limits<std::int32_t>::min(),
                                   std::int32_t high = std::numeric_limits<std::int32_t>::max()) {
  static_assert(std::is_same_v<ValueOf<kMember>, std::int32_t>);
  return {control,
          FieldKind::Integer,
          FindMember<kMember>,
          {.Low = static_cast<double>(low), .High = static_cast<double>(high)}};
}

template <auto kMember>
constexpr DialogField RealField(int control, NumberRule rule, RealForm form = {}) {
  static_assert(std::is_same_v<ValueOf<kMember>, double>);
  return {control, FieldKind::Real, FindMember<kMember>, rule, form};
}

template <auto kMember>
constexpr DialogField CheckField(int control) {
  static_assert(std::is_same_v<ValueOf<kMember>, bool>);
  return {control, FieldKind::Check, FindMember<kMember>};
}

template <auto kMember>
constexpr DialogField RadioField(int first, int last) {
  static_assert(sizeof(ValueOf<kMember>) == 1);
  return {
      .Control = first, .Kind = FieldKind::Radio, .Find = FindMember<kMember>, .LastControl = last};
}

template <auto kMember>
constexpr DialogField ListField(int control, std::span<const char* const> texts) {
  static_assert(sizeof(ValueOf<kMember>) == 1);
  return {.Control = control, .Kind = FieldKind::List, .Find = FindMember<kMember>, .Texts = texts};
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

/// Runs the dialog on `settings`, the record whose members the fields are. A button that
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
