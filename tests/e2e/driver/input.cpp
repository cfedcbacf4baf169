// Keys and mouse through SendInput.
#include "input.h"

#include <algorithm>
#include <vector>

#include "wait.h"

namespace ondrel::e2e {
namespace {

bool IsExtendedKey(int key) {
  static constexpr int kExtended[] = {VK_PRIOR, VK_NEXT,  VK_END,  VK_HOME,   VK_LEFT,
                                      VK_UP,    VK_RIGHT, VK_DOWN, VK_INSERT, VK_DELETE};
  return std::find(std::begin(kExtended), std::end(kExtended), key) != std::end(kExtended);
}

INPUT KeyInput(int key, bool release) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = static_cast<WORD>(key);
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyA(static_cast<UINT>(key), MAPVK_VK_TO_VSC));
  input.ki.dwFlags =
      (release ? KEYEVENTF_KEYUP : 0U) | (IsExtendedKey(key) ? KEYEVENTF_EXTENDEDKEY : 0U);
  return input;
}

void SendAll(std::vector<INPUT> inputs) {
  const UINT count = static_cast<UINT>(inputs.size());
  if (SendInput(count, inputs.data(), sizeof(INPUT)) != count) Fail("the input was not taken");
}

void Button(DWORD flag) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flag;
  SendAll({input});
}

}  // namespace

void PressKey(int key, std::initializer_list<int> modifiers) {
  std::vector<INPUT> inputs;
  for (const int modifier : modifiers) inputs.push_back(KeyInput(modifier, false));
  inputs.push_back(KeyInput(key, false));
  inputs.push_back(KeyInput(key, true));
  for (const int modifier : modifiers) inputs.push_back(KeyInput(modifier, true));
  SendAll(inputs);
}

bool PointerIsAt(Point place) {
  POINT now{};
  GetCursorPos(&now);
  return now.x == place.X && now.y == place.Y;
}

void MovePointer(Point place) {
  WaitFor("the pointer to move", [place] {
    SetCursorPos(place.X, place.Y);
    return PointerIsAt(place);
  });
}

void Click(Point place) {
  MovePointer(place);
  HoldButton();
  ReleaseButton();
}

void DoubleClick(Point place) {
  Click(place);
  HoldButton();
  ReleaseButton();
}

void HoldButton() {
  Button(MOUSEEVENTF_LEFTDOWN);
}

void ReleaseButton() {
  Button(MOUSEEVENTF_LEFTUP);
}

}  // namespace ondrel::e2e
