#include "shell/dialog_fields.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "workspace/number_text.h"
#include "workspace/truncate.h"

namespace ondrel {
namespace {

/// A setting on its way through the dialog: reals in `Real`, all others in `Integer`.
struct FieldValue {
  std::int32_t Integer = 0;
  double Real = 0.0;
};

/// A dialog while it is open.
struct DialogRun {
  const DialogTable& Table;
  std::array<FieldValue, kMostFields> Stored;  // as the dialog found them
  std::array<FieldValue, kMostFields> Values;  // the private copy
  std::uint32_t InvalidMask = 0;
};

// --- The record ----------------------------------------------------------------------------------

template <typename Value>
Value Load(const void* place) {
  Value value;
  std::memcpy(&value, place, sizeof value);
  return value;
}

FieldValue LoadField(const DialogField& field, void* settings) {
  const void* place = field.Find(settings);
  switch (field.Kind) {
    case FieldKind::Integer:
      return {.Integer = Load<std::int32_t>(place)};
    case FieldKind::Real:
      return {.Real = Load<double>(place)};
    case FieldKind::Check:
      return {.Integer = Load<bool>(place) ? 1 : 0};
    case FieldKind::Radio:
    case FieldKind::List:
      return {.Integer = Load<std::uint8_t>(place)};
  }
  return {};
}

void StoreField(const DialogField& field, const FieldValue& value, void* settings) {
  void* place = field.Find(settings);
  const auto byte = static_cast<std::uint8_t>(value.Integer);  // also what a flag is
  switch (field.Kind) {
    case FieldKind::Integer:
      std::memcpy(place, &value.Integer, sizeof value.Integer);
      return;
    case FieldKind::Real:
      std::memcpy(place, &value.Real, sizeof value.Real);
      return;
    case FieldKind::Check:
    case FieldKind::Radio:
    case FieldKind::List:
      std::memcpy(place, &byte, sizeof byte);
      return;
  }
}

// --- Showing -------------------------------------------------------------------------------------

void NumberText(const DialogField& field, const FieldValue& value, char* text) {
  if (field.Kind == FieldKind::Integer) {
    IntegerText(value.Integer, text);
  } else {
    RealText(value.Real / field.Form.Unit, field.Form.Decimals, field.Form.Notation, text);
  }
}

bool ShowNumber(toolkit::DialogRecord& dialog, const DialogField& field, const FieldValue& value) {
  char text[kNumberTextSize] = "";
  NumberText(field, value, text);
  return toolkit::SetControlText(dialog, field.Control, text);
}

bool ShowRadio(toolkit::DialogRecord& dialog, const DialogField& field, const FieldValue& value) {
  bool shown = true;
  for (int control = field.Control; control <= field.LastControl; ++control) {
    const bool checked = control - field.Control == value.Integer;
    shown = toolkit::SetChecked(dialog, control, checked) && shown;
  }
  return shown;
}

bool ShowField(toolkit::DialogRecord& dialog, const DialogField& field, const FieldValue& value) {
  switch (field.Kind) {
    case FieldKind::Integer:
    case FieldKind::Real:
      return ShowNumber(dialog, field, value);
    case FieldKind::Check:
      return toolkit::SetChecked(dialog, field.Control, value.Integer != 0);
    case FieldKind::Radio:
      return ShowRadio(dialog, field, value);
    case FieldKind::List:
      return toolkit::FillList(dialog, field.Control, field.Texts, value.Integer);
  }
  return false;
}

/// Choices beyond those of the dialog count as its last one.
void LimitChoice(const DialogField& field, FieldValue& value) {
  if (field.Kind == FieldKind::Radio) {
    value.Integer = std::min(value.Integer, field.LastControl - field.Control);
  } else if (field.Kind == FieldKind::List) {
    value.Integer = std::min(value.Integer, static_cast<std::int32_t>(field.Texts.size()) - 1);
  }
}

// --- Judging -------------------------------------------------------------------------------------

void EnableStoring(toolkit::DialogRecord& dialog, const DialogRun& run, bool enabled) {
  for (const int button : run.Table.StoringButtons) {
    toolkit::EnableControl(dialog, button, enabled);
  }
}

void MarkField(toolkit::DialogRecord& dialog, DialogRun& run, std::size_t index, bool valid) {
  const std::uint32_t bit = std::uint32_t{1} << index;
  const std::uint32_t before = run.InvalidMask;
  run.InvalidMask = valid ? before & ~bit : before | bit;
  if (before == 0 && run.InvalidMask != 0) EnableStoring(dialog, run, false);
  if (before != 0 && run.InvalidMask == 0) EnableStoring(dialog, run, true);
}

bool Takes(const NumberRule& rule, double number) {
  return number >= rule.Low && number <= rule.High && !(rule.AboveLow && number == rule.Low);
}

/// Whether the dialog takes the setting as it is stored.
bool TakesStored(const DialogField& field, const FieldValue& value) {
  if (field.Kind == FieldKind::Integer) return Takes(field.Rule, value.Integer);
  return Takes(field.Rule, value.Real / field.Form.Unit);
}

/// An empty field is no number, though the number text of a table reads one as 0.
bool ReadNumber(const DialogField& field, const char* text, FieldValue& value) {
  if (text[0] == '\0') return false;
  if (field.Kind == FieldKind::Integer) {
    return ParseInteger(&value.Integer, text) == 0 && Takes(field.Rule, value.Integer);
  }
  double number = 0.0;
  if (ParseReal(&number, text) != 0 || !Takes(field.Rule, number)) return false;
  value.Real = number * field.Form.Unit;
  return !field.Rule.AboveLow || value.Real > field.Rule.Low;  // the unit can make it vanish
}

/// A field shows fewer digits than its setting has: as long as its text is still the same, so is
/// the setting, and it is the setting that is judged.
bool CheckNumber(toolkit::DialogRecord& dialog, DialogRun& run, std::size_t index) {
  const DialogField& field = run.Table.Fields[index];
  const FieldValue& stored = run.Stored[index];
  char text[kNumberTextSize + 1] = "";
  char former[kNumberTextSize] = "";
  toolkit::GetControlText(dialog, field.Control, text, sizeof text);
  NumberText(field, stored, former);
  if (std::strcmp(text, former) == 0) {
    run.Values[index] = stored;
    return TakesStored(field, stored);
  }
  FieldValue value;
  const bool isCut = std::strlen(text) >= kNumberTextSize;  // there may be more behind it
  if (isCut || !ReadNumber(field, text, value)) return false;
  run.Values[index] = value;
  return true;
}

bool SelectRadio(toolkit::DialogRecord& dialog, DialogRun& run, std::size_t index, int control) {
  const DialogField& field = run.Table.Fields[index];
  run.Values[index].Integer = control - field.Control;
  (void)ShowRadio(dialog, field, run.Values[index]);
  return true;
}

bool ToggleCheck(toolkit::DialogRecord& dialog, DialogRun& run, std::size_t index) {
  FieldValue& value = run.Values[index];
  value.Integer = value.Integer != 0 ? 0 : 1;
  (void)toolkit::SetChecked(dialog, run.Table.Fields[index].Control, value.Integer != 0);
  return true;
}

bool ChooseText(toolkit::DialogRecord& dialog, DialogRun& run, std::size_t index) {
  const DialogField& field = run.Table.Fields[index];
  const int place = toolkit::ReadList(dialog, field.Control);
  if (place < 0) return false;
  run.Values[index].Integer = place;
  return true;
}

bool TakeInput(toolkit::DialogRecord& dialog, DialogRun& run, std::size_t index, int control) {
  switch (run.Table.Fields[index].Kind) {
    case FieldKind::Integer:
    case FieldKind::Real:
      return CheckNumber(dialog, run, index);
    case FieldKind::Check:
      return ToggleCheck(dialog, run, index);
    case FieldKind::Radio:
      return SelectRadio(dialog, run, index, control);
    case FieldKind::List:
      return ChooseText(dialog, run, index);
  }
  return false;
}

// --- The dialog's two functions ------------------------------------------------------------------

int Initialize(toolkit::DialogRecord& dialog, void* user) {
  constexpr int kControlFailed = -1;
  DialogRun& run = *static_cast<DialogRun*>(user);
  for (std::size_t i = 0; i < run.Table.Fields.size(); ++i) {
    const DialogField& field = run.Table.Fields[i];
    if (!ShowField(dialog, field, run.Values[i])) return kControlFailed;
    const bool isNumber = field.Kind == FieldKind::Integer || field.Kind == FieldKind::Real;
    if (isNumber) MarkField(dialog, run, i, CheckNumber(dialog, run, i));
  }
  return 0;
}

bool Stores(const DialogTable& table, int control) {
  return std::ranges::find(table.StoringButtons, control) != table.StoringButtons.end();
}

bool BelongsTo(const DialogField& field, int control) {
  if (field.Kind != FieldKind::Radio) return field.Control == control;
  return control >= field.Control && control <= field.LastControl;
}

int Command(toolkit::DialogRecord& dialog, int control, void* user) {
  DialogRun& run = *static_cast<DialogRun*>(user);
  if (control == run.Table.CancelButton) return 1;
  if (Stores(run.Table, control)) return run.InvalidMask == 0 ? 1 : 0;
  for (std::size_t i = 0; i < run.Table.Fields.size(); ++i) {
    if (!BelongsTo(run.Table.Fields[i], control)) continue;
    MarkField(dialog, run, i, TakeInput(dialog, run, i, control));
  }
  return 0;
}

}  // namespace

int RunFieldDialog(FrameWindow* frame, const DialogTable& table, void* settings) {
  DialogRun run{.Table = table, .Stored = {}, .Values = {}};
  for (std::size_t i = 0; i < table.Fields.size(); ++i) {
    run.Stored[i] = LoadField(table.Fields[i], settings);
    run.Values[i] = run.Stored[i];
    LimitChoice(table.Fields[i], run.Values[i]);
  }
  const toolkit::DialogOperations operations = {
      .Initialize = Initialize, .Command = Command, .CancelControl = table.CancelButton};
  const int button = toolkit::RunDialog(frame, table.Resource, operations, &run);
  if (!Stores(table, button)) return button;
  for (std::size_t i = 0; i < table.Fields.size(); ++i) {
    StoreField(table.Fields[i], run.Values[i], settings);
  }
  return button;
}

}  // namespace ondrel
