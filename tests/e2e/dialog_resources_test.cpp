// The dialogs that no menu leads to yet, since what they ask for cannot be written yet: shown from
// the program's resources, filled as the program will, looked at, and kept as pictures when
// ONDREL_PICTURES names a folder.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "fixtures.h"

namespace ondrel::e2e {
namespace {

using ::testing::ElementsAre;

INT_PTR CALLBACK LeaveToWindows(HWND, UINT, WPARAM, LPARAM) {
  return FALSE;
}

/// A dialog of the program in this process, without anything behind it.
class BareDialog {
 public:
  explicit BareDialog(int resource)
      : program_(LoadLibraryExA(ExecutablePath().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE)),
        handle_(
            CreateDialogParamA(program_, MAKEINTRESOURCEA(resource), nullptr, LeaveToWindows, 0)) {
    if (handle_ == nullptr) Fail("there is no dialog " + std::to_string(resource));
  }
  ~BareDialog() {
    DestroyWindow(handle_);
    FreeLibrary(program_);
  }
  BareDialog(const BareDialog&) = delete;
  BareDialog& operator=(const BareDialog&) = delete;

  void Fill(int list, const std::vector<const char*>& texts) const {
    for (const char* text : texts) {
      SendDlgItemMessageA(handle_, list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    }
    SendDlgItemMessageA(handle_, list, CB_SETCURSEL, 0, 0);
  }
  void Write(int field, const char* text) const { SetDlgItemTextA(handle_, field, text); }

  [[nodiscard]] std::vector<std::string> Lines() const { return Dialog(Window(handle_)).Lines(); }
  [[nodiscard]] std::string Title() const { return Window(handle_).Title(); }

  void Keep(const std::string& name) const {
    const std::string folder = Environment("ONDREL_PICTURES");
    if (folder.empty()) return;
    ShowWindow(handle_, SW_SHOW);
    SetForegroundWindow(handle_);
    constexpr DWORD kSettled = 500;  // ms, for the window manager
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < kSettled) {
      MSG message;
      while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageA(&message);
      Sleep(10);
    }
    SavePng(TakeScreen(Window(handle_).Place()), NativePath(folder) + "\\dialog_" + name + ".png");
  }

 private:
  HMODULE program_;
  HWND handle_;
};

TEST(DialogResources, ExportGraphAsksForSizeFormAndResolution) {
  const BareDialog dialog(131);
  dialog.Write(5, "10.00");
  dialog.Write(7, "20.00");
  dialog.Fill(8, {"Adobe Illustrator", "Clipboard", "EPS", "Metafile"});
  dialog.Write(11, "96.00");
  EXPECT_EQ(dialog.Title(), "Export Graph");
  EXPECT_THAT(dialog.Lines(),
              ElementsAre("Window:", "Height (cm):", "5 \"10.00\"", "Width (cm):", "7 \"20.00\"",
                          "File type:", "8 [Adobe Illustrator], Clipboard, EPS, Metafile",
                          "Metafile:", "Resolution (dpi):", "11 \"96.00\"", "1 &OK", "2 &Cancel"));
  dialog.Keep("export_graph");
}

TEST(DialogResources, ExportTextAsksForFormAndLimit) {
  const BareDialog dialog(129);
  dialog.Fill(3, {"Excel", "Igor"});
  EXPECT_EQ(dialog.Title(), "Export Text");
  EXPECT_THAT(dialog.Lines(), ElementsAre("File type:", "3 [Excel], Igor", "4 [ ] Limit to window",
                                          "1 &OK", "2 &Cancel"));
  dialog.Keep("export_text");
}

TEST(DialogResources, SaveLevelsAsksForTheForm) {
  const BareDialog dialog(144);
  dialog.Fill(3, {"QUB", "Ond"});
  EXPECT_EQ(dialog.Title(), "Save Levels");
  EXPECT_THAT(dialog.Lines(), ElementsAre("File type:", "3 [QUB], Ond", "1 &OK", "2 &Cancel"));
  dialog.Keep("save_levels");
}

}  // namespace
}  // namespace ondrel::e2e
