// Dialogs: a resource, two functions of the program, and their controls by id.
#include <cstring>

#include "shell/toolkit.h"
#include "shell/win32/win32.h"

namespace ondrel::toolkit {
namespace {

/// A dialog while it is open; the dialog keeps it under the record property and frees it.
struct DialogRun {
  DialogRecord* Record;
  const DialogOperations* Operations;
  void* User;
  bool IsModal;
  HHOOK EscapeHook;
};

DialogRun* RunOf(HWND dialog) {
  return static_cast<DialogRun*>(GetPropA(dialog, win32::kRecordProperty));
}

HWND HandleOf(const DialogRecord& dialog) {
  return win32::HandleOf(dialog);
}

/// A dialog that stands beside the program is gone afterwards.
void End(HWND dialog, bool isModal, int result) {
  if (isModal) {
    EndDialog(dialog, result);
  } else {
    ::DestroyWindow(dialog);
  }
}

void OnCommand(DialogRun& run, int control) {
  if (run.Operations->Command(*run.Record, control, run.User) == 0) return;
  End(HandleOf(*run.Record), run.IsModal, control);
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

void OnInitialize(HWND dialog, const DialogRun& asked) {
  constexpr int kNoMemory = -1;
  auto* run = AllocateRecords<DialogRun>(1);
  if (run == nullptr) {
    End(dialog, asked.IsModal, kNoMemory);
    return;
  }
  *run = asked;
  if (SetPropA(dialog, win32::kRecordProperty, run) == FALSE) {
    FreeMemory(run);
    End(dialog, asked.IsModal, kNoMemory);
    return;
  }
  run->EscapeHook = SetWindowsHookExA(WH_MSGFILTER, CatchEscape, nullptr, GetCurrentThreadId());
  run->Record->Handle = dialog;
  const int result = run->Operations->Initialize(*run->Record, run->User);
  if (result != 0) End(dialog, asked.IsModal, result);
}

void OnDialogDestroy(HWND dialog, DialogRun& run) {
  RemovePropA(dialog, win32::kRecordProperty);
  run.Record->Handle = nullptr;
  if (run.EscapeHook != nullptr) UnhookWindowsHookEx(run.EscapeHook);
  FreeMemory(&run);
}

INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    OnInitialize(dialog, *reinterpret_cast<const DialogRun*>(lParam));
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
      OnDialogDestroy(dialog, *run);
      return FALSE;
    default:
      return FALSE;
  }
}

}  // namespace

int RunDialog(FrameWindow* frame, int resource, const DialogOperations& operations, void* user) {
  DialogRecord dialog;
  const DialogRun run{&dialog, &operations, user, true, nullptr};
  return static_cast<int>(DialogBoxParamA(win32::Module(), MAKEINTRESOURCEA(resource),
                                          win32::OwnerHandle(frame), DialogProcedure,
                                          reinterpret_cast<LPARAM>(&run)));
}

bool OpenDialog(FrameWindow* frame, int resource, const DialogOperations& operations, void* user,
                DialogRecord& dialog) {
  dialog.Handle = nullptr;
  const DialogRun run{&dialog, &operations, user, false, nullptr};
  CreateDialogParamA(win32::Module(), MAKEINTRESOURCEA(resource), win32::OwnerHandle(frame),
                     DialogProcedure, reinterpret_cast<LPARAM>(&run));
  if (dialog.Handle == nullptr) return false;
  ::ShowWindow(HandleOf(dialog), SW_SHOW);
  // The program may work on without looking at messages for a while.
  RedrawWindow(HandleOf(dialog), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  return true;
}

void DestroyDialog(DialogRecord& dialog) {
  if (dialog.Handle != nullptr) ::DestroyWindow(HandleOf(dialog));
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
  ::EnableWindow(GetDlgItem(HandleOf(dialog), control), enabled ? TRUE : FALSE);
}

}  // namespace ondrel::toolkit
