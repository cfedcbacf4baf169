// The colour entries of the view menus.
#pragma once

#include "shell/commands.h"

namespace ondrel {

/// Asks for the colour that `command` names, stores it, and repaints its view alone. Nothing
/// happens when the command is no colour entry.
void ChooseViewColor(FrameWindow* frame, CommandId command);

/// Whether the command is a colour entry of a view.
bool IsColorCommand(CommandId command);

}  // namespace ondrel
