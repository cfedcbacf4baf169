// The fields of the settings dialogs as rows. A dialog works on a private copy of its settings and
// on one mask with a bit for each field that now holds a bad value. Bad input has no words: while
// the mask is not 0 the buttons that store are disabled.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "shell/toolkit.h"

namespace ondrel {

enum class FieldKind : std::uint8_t {
  Integer,   // a decimal integer from Low to High
  Positive,  // a real above 0, shown with two decimals
  Check,     // a check box
};

struct DialogField {
  int Control;
  FieldKind Kind;
  std::size_t Offset;  // of the value in the private copy: int32, double or bool by Kind
  std::int32_t Low = 0;
  std::int32_t High = 0;
};

/// What a dialog is made of. Controls that store the values are disabled while a field is bad.
struct DialogTable {
  int Resource;
  std::span<const DialogField> Fields;
  std::span<const int> StoringButtons;
  int CancelButton;
};

/// Runs the dialog on `values`, the private copy that the fields' offsets refer to. Returns the
/// button that ended it, or -1 when it could not be shown. `values` is what the user entered, and
/// is of no use after a cancel.
int RunFieldDialog(FrameWindow* frame, const DialogTable& table, void* values);

}  // namespace ondrel
