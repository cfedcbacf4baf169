// Keys and mouse as a user gives them: through the platform's input queue, to whatever window has
// the focus or lies under the pointer.
#pragma once

#include <initializer_list>

#include "window.h"

namespace ondrel::e2e {

/// Presses and releases a key by its virtual code while `modifiers` are held.
void PressKey(int key, std::initializer_list<int> modifiers = {});

/// Places are on the screen. Buttons are the left one.
void MovePointer(Point place);
bool PointerIsAt(Point place);
void Click(Point place);
void DoubleClick(Point place);
void HoldButton();
void ReleaseButton();

}  // namespace ondrel::e2e
