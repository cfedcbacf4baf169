#include "shell/dialog_fields.h"

#include <algorithm>
#include <cstring>

#include "workspace/number_text.h"

namespace ondrel {
namespace {

constexpr int kRealDecimals = 2;
/// Longer input is no number that a setting can hold.
constexpr std::size_t kFieldTextSize = kNumberTextSize;

/// A dialog while it is open.
struct DialogRun {
  const DialogTable& Table;
  std::byte* Values;
  std::uint32_t InvalidMask = 0;
};

template <typename Value>
Value ReadValue(const DialogRun& run, const DialogField& field) {
  Value value;
  std::memcpy(&value, run.Values + field.Offset, sizeof value);
  return value;
}

template <typename Value>
void WriteValue(DialogRun& run, const DialogField& field, Value value) {
  std::memcpy(run.Values + field.Offset, &value, sizeof value);
}

// --- Showing -------------------------------------------------------------------------------------

bool ShowInteger(toolkit::DialogRecord& dialog, int control, std::int32_t value) {
  char text[kNumberTextSize] = "";
  IntegerText(value, text);
  return toolkit::SetControlText(dialog, control, text);
}

bool ShowReal(toolkit::DialogRecord& dialog, int control, double value) {
  char text[kNumberTextSize] = "";
  RealText(value, kRealDecimals, 'f', text);
  return toolkit::SetControlText(dialog, control, text);
}

bool ShowField(toolkit::DialogRecord& dialog, const DialogRun& run, const DialogField& field) {
  switch (field.Kind) {
    case FieldKind::Integer:
      return ShowInteger(dialog, field.Control, ReadValue<std::int32_t>(run, field));
    case FieldKind::Positive:
      return ShowReal(dialog, field.Control, ReadValue<double>(run, field));
    case FieldKind::Check:
      return toolkit::SetChecked(dialog, field.Control, ReadValue<bool>(run, field));
  }
  return false;
}

// --- Judging -------------------------------------------------------------------------------------

void EnableStoring(toolkit::DialogRecord& dialog, const DialogRun& run, bool enabled) {
  for (const int button : run.Table.StoringButtons) {
    toolkit::EnableControl(dialog, button, enabled);
  }
}

void MarkField(toolkit::DialogRecord& dialog, DialogRun& run, std::uint32_t bit, bool valid) {
  const std::uint32_t before = run.InvalidMask;
  run.InvalidMask = valid ? before & ~bit : before | bit;
  if (before == 0 && run.InvalidMask != 0) EnableStoring(dialog, run, false);
  if (before != 0 && run.InvalidMask == 0) EnableStoring(dialog, run, true);
}

/// An empty field is no number, though the number text of a table reads one as 0.
bool ReadInteger(const char* text, std::int32_t* value) {
  return text[0] != '\0' && ParseInteger(value, text) == 0;
}

bool ReadReal(const char* text, double* value) {
  return text[0] != '\0' && ParseReal(value, text) == 0;
}

bool CheckInteger(toolkit::DialogRecord& dialog, DialogRun& run, const DialogField& field) {
  char text[kFieldTextSize] = "";
  toolkit::GetControlText(dialog, field.Control, text, sizeof text);
  std::int32_t value = 0;
  if (!ReadInteger(text, &value) || value < field.Low || value > field.High) return false;
  WriteValue(run, field, value);
  return true;
}

bool CheckPositive(toolkit::DialogRecord& dialog, DialogRun& run, const DialogField& field) {
  char text[kFieldTextSize] = "";
  toolkit::GetControlText(dialog, field.Control, text, sizeof text);
  double value = 0.0;
  if (!ReadReal(text, &value) || !(value > 0.0)) return false;
  WriteValue(run, field, value);
  return true;
}

bool ToggleCheck(toolkit::DialogRecord& dialog, DialogRun& run, const DialogField& field) {
  const bool checked = !ReadValue<bool>(run, field);
  WriteValue(run, field, checked);
  return toolkit::SetChecked(dialog, field.Control, checked);
}

bool CheckField(toolkit::DialogRecord& dialog, DialogRun& run, const DialogField& field) {
  switch (field.Kind) {
    case FieldKind::Integer:
      return CheckInteger(dialog, run, field);
    case FieldKind::Positive:
      return CheckPositive(dialog, run, field);
    case FieldKind::Check:
      return ToggleCheck(dialog, run, field);
  }
  return false;
}

// --- The dialog's two functions ------------------------------------------------------------------

int Initialize(toolkit::DialogRecord& dialog, void* user) {
  constexpr int kControlFailed = -1;
  const DialogRun& run = *static_cast<DialogRun*>(user);
  for (const DialogField& field : run.Table.Fields) {
    if (!ShowField(dialog, run, field)) return kControlFailed;
  }
  return 0;
}

bool Stores(const DialogRun& run, int control) {
  return std::ranges::find(run.Table.StoringButtons, control) != run.Table.StoringButtons.end();
}

int Command(toolkit::DialogRecord& dialog, int control, void* user) {
  DialogRun& run = *static_cast<DialogRun*>(user);
  if (control == run.Table.CancelButton) return 1;
  if (Stores(run, control)) return run.InvalidMask == 0 ? 1 : 0;
  std::uint32_t bit = 1;
  for (const DialogField& field : run.Table.Fields) {
    if (field.Control == control) MarkField(dialog, run, bit, CheckField(dialog, run, field));
    bit <<= 1;
  }
  return 0;
}

}  // namespace

int RunFieldDialog(FrameWindow* frame, const DialogTable& table, void* values) {
  DialogRun run{table, static_cast<std::byte*>(values)};
  const toolkit::DialogOperations operations = {
      .Initialize = Initialize, .Command = Command, .CancelControl = table.CancelButton};
  return toolkit::RunDialog(frame, table.Resource, operations, &run);
}

}  // namespace ondrel
