// Modal dialogs: a resource, two functions of the program, and their controls by id.
#include <cstring>

#include "shell/toolkit.h"
#include "shell/win32/win32.h"

namespace ondrel::toolkit {
namespace {

/// A dialog while it is open; the dialog keeps it under the record property.
struct DialogRun {
  DialogRecord Record;
  const DialogOperations* Operations;
  void* User;
};

DialogRun* RunOf(HWND dialog) {
  return static_cast<DialogRun*>(GetPropA(dialog, win32::kRecordProperty));
}

HWND HandleOf(const DialogRecord& dialog) {
  return static_cast<HWND>(dialog.Handle);
}

void OnInitialize(HWND dialog, DialogRun& run) {
  SetPropA(dialog, win32::kRecordProperty, &run);
  run.Record.Handle = dialog;
  const int result = run.Operations->Initialize(run.Record, run.User);
  if (result != 0) EndDialog(dialog, result);
}

void OnCommand(DialogRun& run, int control) {
  if (run.Operations->Command(run.Record, control, run.User) != 0) {
    EndDialog(HandleOf(run.Record), control);
  }
}

INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    OnInitialize(dialog, *reinterpret_cast<DialogRun*>(lParam));
    // What Windows chose before the controls were filled may be a radio button that is not checked.
    SendMessageA(dialog, WM_NEXTDLGCTL,
                 reinterpret_cast<WPARAM>(GetNextDlgTabItem(dialog, nullptr, FALSE)), TRUE);
    return FALSE;
  }
  DialogRun* run = RunOf(dialog);
  if (run == nullptr) return FALSE;
  switch (message) {
    case WM_COMMAND:
      OnCommand(*run, LOWORD(wParam));
      return TRUE;
    case WM_CLOSE:
      // Left alone, the close box would press button 2, and not even that while it is greyed.
      OnCommand(*run, run->Operations->CancelControl);
      return TRUE;
    case WM_DESTROY:
      RemovePropA(dialog, win32::kRecordProperty);
      return FALSE;
    default:
      return FALSE;
  }
}

/// The run of the dialog that `window` belongs to, or null. Frame and children keep records of
/// another kind under the same property.
DialogRun* RunAround(HWND window) {
  HWND root = GetAncestor(window, GA_ROOT);
  char className[16] = "";
  GetClassNameA(root, className, sizeof(className));
  return std::strcmp(className, "#32770") == 0 ? RunOf(root) : nullptr;
}

/// Sees the messages of dialogs before Windows makes commands of them. Windows turns Escape into
/// the command 2, which by its convention is a Cancel button; when the dialog has another button
/// there, it looks exactly like a press of that one, the handle of the control included. So the key
/// has to be taken before.
LRESULT CALLBACK CatchEscape(int code, WPARAM wParam, LPARAM lParam) {
  const MSG& message = *reinterpret_cast<const MSG*>(lParam);
  if (code == MSGF_DIALOGBOX && message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) {
    DialogRun* run = RunAround(message.hwnd);
    if (run != nullptr && run->Operations->CancelControl != IDCANCEL) {
      OnCommand(*run, run->Operations->CancelControl);
      return TRUE;
    }
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

int RunDialog(FrameWindow* frame, int resource, const DialogOperations& operations, void* user) {
  DialogRun run{{}, &operations, user};
  HHOOK hook = SetWindowsHookExA(WH_MSGFILTER, CatchEscape, nullptr, GetCurrentThreadId());
  const INT_PTR result =
      DialogBoxParamA(win32::Module(), MAKEINTRESOURCEA(resource), win32::OwnerHandle(frame),
                      DialogProcedure, reinterpret_cast<LPARAM>(&run));
  if (hook != nullptr) UnhookWindowsHookEx(hook);
  return static_cast<int>(result);
}

namespace {

/// The Tab key and the first focus go to the radio button that is checked: one that is not would
/// take the focus for a press.
void KeepTabOnChecked(HWND button, bool checked) {
  const LONG_PTR style = GetWindowLongPtrA(button, GWL_STYLE);
  if ((style & BS_TYPEMASK) != BS_AUTORADIOBUTTON) return;
  const LONG_PTR tabStop = WS_TABSTOP;
  SetWindowLongPtrA(button, GWL_STYLE, checked ? style | tabStop : style & ~tabStop);
}

}  // namespace

bool SetControlText(DialogRecord& dialog, int control, const char* text) {
  return SetDlgItemTextA(HandleOf(dialog), control, text) != FALSE;
}

void GetControlText(DialogRecord& dialog, int control, char* text, std::size_t size) {
  if (size == 0) return;
  text[0] = '\0';
  GetDlgItemTextA(HandleOf(dialog), control, text, static_cast<int>(size));
}

bool SetChecked(DialogRecord& dialog, int control, bool checked) {
  KeepTabOnChecked(GetDlgItem(HandleOf(dialog), control), checked);
  return CheckDlgButton(HandleOf(dialog), control,
                        static_cast<UINT>(checked ? BST_CHECKED : BST_UNCHECKED)) != FALSE;
}

bool FillList(DialogRecord& dialog, int control, std::span<const char* const> texts, int shown) {
  HWND list = GetDlgItem(HandleOf(dialog), control);
  for (const char* text : texts) {
    if (SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)) < 0) return false;
  }
  return SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(shown), 0) != CB_ERR;
}

int ReadList(DialogRecord& dialog, int control) {
  return static_cast<int>(SendDlgItemMessageA(HandleOf(dialog), control, CB_GETCURSEL, 0, 0));
}

void EnableControl(DialogRecord& dialog, int control, bool enabled) {
  EnableWindow(GetDlgItem(HandleOf(dialog), control), enabled ? TRUE : FALSE);
}

}  // namespace ondrel::toolkit
