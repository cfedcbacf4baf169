// Room for the texts of all dialogs, on the screen as it is and on one with twice the dots of an
// inch. Pictures are kept when ONDREL_PICTURES names a folder.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "bare_dialog.h"
#include "picture.h"

namespace ondrel::e2e {
namespace {

constexpr int kUsualDots = 96;  // of an inch
constexpr int kFineDots = 192;
constexpr const char* kExpectedDots = "ONDREL_E2E_DOTS";

int ScreenDots() {
  const HDC screen = GetDC(nullptr);
  const int dots = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dots;
}

/// What processes to come find as dots of an inch.
class DotsOfProfile {
 public:
  explicit DotsOfProfile(DWORD dots) {
    RegCreateKeyExA(HKEY_CURRENT_USER, "Control Panel\\Desktop", 0, nullptr, 0, KEY_ALL_ACCESS,
                    nullptr, &key_, nullptr);
    Set(dots);
  }
  ~DotsOfProfile() {
    Set(kUsualDots);
    RegCloseKey(key_);
  }
  DotsOfProfile(const DotsOfProfile&) = delete;
  DotsOfProfile& operator=(const DotsOfProfile&) = delete;

 private:
  void Set(DWORD dots) const {
    RegSetValueExA(key_, "LogPixels", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&dots),
                   sizeof dots);
  }

  HKEY key_ = nullptr;
};

/// Runs tests of this program in a process of their own, and returns its exit code.
DWORD RunOwnTests(const std::string& filter) {
  std::array<char, MAX_PATH> self{};
  GetModuleFileNameA(nullptr, self.data(), static_cast<DWORD>(self.size()));
  std::string command = std::string("\"") + self.data() + "\" --gtest_filter=" + filter;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                     &startup, &process) == 0) {
    Fail("the tests do not start once more");
  }
  WaitForSingleObject(process.hProcess, kPatience);
  DWORD code = 0;
  GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return code;
}

/// What a text takes in the font of its control, pixels.
SIZE SizeOfText(const Window& control, const std::string& text) {
  const HDC dc = GetDC(control.Handle());
  const HGDIOBJ before =
      SelectObject(dc, reinterpret_cast<HFONT>(control.Send(WM_GETFONT)));  // the dialog's
  RECT room{};
  DrawTextA(dc, text.c_str(), -1, &room, DT_CALCRECT | DT_SINGLELINE);
  SelectObject(dc, before);
  ReleaseDC(control.Handle(), dc);
  return {room.right, room.bottom};
}

/// The width that a control leaves for its text, pixels.
int RoomFor(const Window& control) {
  constexpr int kFrame = 6;  // of a button, pixels at 96 dpi
  const int width = control.ClientArea().Width();
  if (control.ClassName() == "Static") return width;
  const auto style = GetWindowLongA(control.Handle(), GWL_STYLE) & BS_TYPEMASK;
  const bool hasMark = style == BS_CHECKBOX || style == BS_AUTORADIOBUTTON;
  return width - (hasMark ? 3 : 1) * kFrame * ScreenDots() / kUsualDots;
}

void Keep(const BareDialog& dialog, int number) {
  const std::string folder = Environment("ONDREL_PICTURES");
  if (folder.empty()) return;
  ShowWindow(dialog.Frame().Handle(), SW_SHOW);
  constexpr DWORD kSettled = 150;  // ms, for the window manager
  const DWORD start = GetTickCount();
  while (GetTickCount() - start < kSettled) {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageA(&message);
    Sleep(10);
  }
  SavePng(TakeScreen(dialog.Frame().Place()), NativePath(folder) + "\\dialog_" +
                                                  std::to_string(number) + "_at_" +
                                                  std::to_string(ScreenDots()) + "dpi.png");
}

TEST(DialogRoom, IsEnoughForEveryText) {
  const std::string expected = Environment(kExpectedDots);
  if (!expected.empty()) {
    ASSERT_EQ(std::to_string(ScreenDots()), expected);
  }
  const Resources resources;
  for (const int number : resources.Numbers(RT_DIALOG)) {
    const BareDialog dialog(resources, number);
    for (const Window& control : dialog.Frame().Children()) {
      const std::string kind = control.ClassName();
      const std::string text = control.Title();
      if (text.empty() || (kind != "Static" && kind != "Button")) continue;
      const SIZE size = SizeOfText(control, text);
      EXPECT_LE(size.cx, RoomFor(control)) << "'" << text << "' in " << dialog.Title();
      EXPECT_LE(size.cy, control.ClientArea().Height()) << "'" << text << "'";
    }
    if (ScreenDots() != kUsualDots) Keep(dialog, number);
  }
}

TEST(DialogRoom, IsEnoughAtTwiceTheDotsOfAnInch) {
  const DotsOfProfile fine(kFineDots);
  SetEnvironmentVariableA(kExpectedDots, std::to_string(kFineDots).c_str());
  EXPECT_EQ(RunOwnTests("DialogRoom.IsEnoughForEveryText"), 0U);
  SetEnvironmentVariableA(kExpectedDots, nullptr);
}

}  // namespace
}  // namespace ondrel::e2e
