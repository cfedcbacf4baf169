// The command layer: what each number of a menu entry or an accelerator does.
#pragma once

#include <cstdint>

#include "shell/window_record.h"

namespace ondrel {

/// A command's number: the menu in the high byte, the entry's place in the low byte. Places count
/// from 1, separators included.
using CommandId = std::uint16_t;

/// Runs a command. Numbers that name none do nothing, nor do commands that the menu greys now.
void DispatchCommand(FrameWindow* frame, int high, int low);

/// Whether a command exists; the menu greys the entries of those that do not.
bool HasHandler(CommandId command);

}  // namespace ondrel
