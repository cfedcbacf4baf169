// Rows of the table of preference lines: how a setting is reached in the workspace, and how it
// stands in the file. A row is a number, or a colour or a rectangle of several lines.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "views/view_state.h"
#include "workspace/number_text.h"
#include "workspace/workspace.h"

namespace ondrel {

struct PreferenceRow {
  int Lines;
  double Scale;  // of a real: what one unit of the file is in memory
  /// Both take the place of a line among the row's own, from 0.
  void (*Write)(const Workspace& workspace, int place, double scale, char* text);
  bool (*Read)(Workspace& workspace, int place, double scale, const char* text);
};

// --- How values stand in the file ----------------------------------------------------------------

inline constexpr int kPreferenceDigits = 3;  // behind the point

/// Settings of one byte, lists and flags, take the low byte of the number.
constexpr std::uint8_t LowByte(std::int32_t number) {
  return static_cast<std::uint8_t>(static_cast<std::uint32_t>(number) & 0xFF);
}

constexpr std::int32_t LowWord(std::int32_t number) {
  return static_cast<std::int16_t>(static_cast<std::uint32_t>(number) & 0xFFFF);
}

/// What is written must be read again, or the next start would lose every setting: with four digits
/// the largest reals would be rounded up to numbers that are none.
inline double Writable(double value) {
  constexpr double kLargest = 1.797e308;
  return std::isnan(value) ? 0.0 : std::clamp(value, -kLargest, kLargest);
}

template <typename Value>
void WriteValue(const Value& value, double scale, char* text) {
  if constexpr (std::is_same_v<Value, double>) {
    RealText(Writable(value / scale), kPreferenceDigits, 'E', text);
  } else {
    IntegerText(static_cast<std::int32_t>(value), text);
  }
}

inline bool ReadValue(double& value, double scale, const char* text) {
  const bool read = ParseReal(&value, text) == 0;
  value *= scale;
  return read;
}

/// A flag is true for 1 alone.
inline bool ReadValue(bool& value, double, const char* text) {
  std::int32_t number;
  const bool read = ParseInteger(&number, text) == 0;
  value = number == 1;
  return read;
}

template <typename Value>
bool ReadValue(Value& value, double, const char* text) {
  std::int32_t number;
  const bool read = ParseInteger(&number, text) == 0;
  if constexpr (sizeof(Value) == 1) {
    value = static_cast<Value>(LowByte(number));
  } else {
    value = static_cast<Value>(number);
  }
  return read;
}

// --- Settings of one line ------------------------------------------------------------------------

/// The field that is reached by going from member to member.
template <typename Record>
constexpr Record& FieldOf(Record& record) {
  return record;
}
template <typename Record, typename Member, typename... Further>
constexpr auto& FieldOf(Record& record, Member member, Further... further) {
  return FieldOf(record.*member, further...);
}

/// The form in the file follows from the field's type: real, flag, or whole number.
template <auto... kMembers>
constexpr PreferenceRow Setting(double scale = 1.0) {
  return {.Lines = 1,
          .Scale = scale,
          .Write = [](const Workspace& workspace, int, double factor,
                      char* text) { WriteValue(FieldOf(workspace, kMembers...), factor, text); },
          .Read =
              [](Workspace& workspace, int, double factor, const char* text) {
                return ReadValue(FieldOf(workspace, kMembers...), factor, text);
              }};
}

/// A choice of two that is held as a flag but stands in the file as its place in a list.
template <auto... kMembers>
constexpr PreferenceRow ChoiceOfTwo() {
  PreferenceRow row = Setting<kMembers...>();
  row.Read = [](Workspace& workspace, int, double, const char* text) {
    std::int32_t number;
    const bool read = ParseInteger(&number, text) == 0;
    FieldOf(workspace, kMembers...) = LowByte(number) != 0;
    return read;
  };
  return row;
}

// --- Colours and rectangles ----------------------------------------------------------------------

template <typename Rect>
auto& SideOf(Rect& rect, int place) {
  switch (place) {
    case 0:
      return rect.Top;
    case 1:
      return rect.Left;
    case 2:
      return rect.Bottom;
    default:
      return rect.Right;
  }
}

template <typename Color>
auto& ChannelOf(Color& color, int place) {
  switch (place) {
    case 0:
      return color.Red;
    case 1:
      return color.Green;
    default:
      return color.Blue;
  }
}

struct FramePlace {
  template <typename Owner>
  static auto& In(Owner& workspace) {
    return (workspace.FrameRect);
  }
};

template <ViewKind kKind>
struct ViewPlace {
  template <typename Owner>
  static auto& In(Owner& workspace) {
    return (ViewOf(workspace, kKind).ViewRect);
  }
};

/// A rectangle: top, left, bottom, right.
template <typename Place>
constexpr PreferenceRow RectLines() {
  return {.Lines = 4,
          .Scale = 1.0,
          .Write = [](const Workspace& workspace, int place, double scale,
                      char* text) { WriteValue(SideOf(Place::In(workspace), place), scale, text); },
          .Read =
              [](Workspace& workspace, int place, double scale, const char* text) {
                return ReadValue(SideOf(Place::In(workspace), place), scale, text);
              }};
}

/// The younger views read their places as words of 16 bits.
template <typename Place>
constexpr PreferenceRow ShortRectLines() {
  PreferenceRow row = RectLines<Place>();
  row.Read = [](Workspace& workspace, int place, double scale, const char* text) {
    std::int32_t& side = SideOf(Place::In(workspace), place);
    const bool read = ReadValue(side, scale, text);
    side = LowWord(side);
    return read;
  };
  return row;
}

/// A colour of a view: red, green, blue.
template <ViewKind kKind, auto kColor>
constexpr PreferenceRow ViewColor() {
  constexpr auto kPlace = static_cast<std::size_t>(kColor);
  return {.Lines = 3,
          .Scale = 1.0,
          .Write =
              [](const Workspace& workspace, int place, double scale, char* text) {
                WriteValue(ChannelOf(ViewOf(workspace, kKind).Colors[kPlace], place), scale, text);
              },
          .Read =
              [](Workspace& workspace, int place, double scale, const char* text) {
                return ReadValue(ChannelOf(ViewOf(workspace, kKind).Colors[kPlace], place), scale,
                                 text);
              }};
}

}  // namespace ondrel
