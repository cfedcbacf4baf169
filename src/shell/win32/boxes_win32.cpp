// Message boxes and the platform's own dialogs for files and colours.
#include "shell/win32/win32.h"

#include <commdlg.h>

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "shell/toolkit.h"
#include "workspace/records.h"

namespace ondrel::toolkit {
namespace {

UINT FlagOf(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::OkCancel:
      return MB_OKCANCEL;
    case BoxButtons::YesNo:
      return MB_YESNO;
    case BoxButtons::YesNoCancel:
      return MB_YESNOCANCEL;
    case BoxButtons::Ok:
      break;
  }
  return MB_OK;
}

UINT FlagOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Exclamation:
      return MB_ICONEXCLAMATION;
    case BoxIcon::Information:
      return MB_ICONINFORMATION;
    case BoxIcon::Question:
      return MB_ICONQUESTION;
    case BoxIcon::Stop:
      break;
  }
  return MB_ICONSTOP;
}

UINT DefaultButtonFlag(int button) {
  if (button == 2) return MB_DEFBUTTON2;
  if (button == 3) return MB_DEFBUTTON3;
  return MB_DEFBUTTON1;
}

/// The colour dialog has no field for a title, so that a hook sets it.
UINT_PTR CALLBACK TitleColorDialog(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    const auto& choice = *reinterpret_cast<const CHOOSECOLORA*>(lParam);
    SetWindowTextA(dialog, reinterpret_cast<const char*>(choice.lCustData));
  }
  return 0;
}

}  // namespace

BoxAnswer ShowBox(FrameWindow* frame, const char* text, BoxButtons buttons, BoxIcon icon,
                  int defaultButton) {
  switch (MessageBoxA(win32::OwnerHandle(frame), text, "",
                      FlagOf(buttons) | FlagOf(icon) | DefaultButtonFlag(defaultButton))) {
    case IDOK:
    case IDYES:
      return BoxAnswer::Yes;
    case IDNO:
      return BoxAnswer::No;
    default:
      // Some versions of the platform call Escape a Cancel in a box that has nothing but OK.
      return buttons == BoxButtons::Ok ? kAnswerOk : BoxAnswer::Cancel;
  }
}

bool AskFile(FrameWindow* frame, FileDialogMode mode, const char* title, const char* defaultName,
             char* path) {
  std::snprintf(path, kPathSize, "%s", defaultName);
  OPENFILENAMEA dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = win32::OwnerHandle(frame);
  dialog.lpstrFilter = "All Files (*.*)\0*.*\0";
  dialog.nFilterIndex = 1;
  dialog.lpstrFile = path;
  dialog.nMaxFile = kPathSize;
  dialog.lpstrTitle = title;
  // The folder of the last file must not stay in use as the process's own: a stick with recordings
  // could then not be taken out.
  dialog.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;
  if (mode == FileDialogMode::Open) {
    dialog.Flags |= OFN_FILEMUSTEXIST;
    return GetOpenFileNameA(&dialog) != FALSE;
  }
  dialog.Flags |= OFN_OVERWRITEPROMPT;
  return GetSaveFileNameA(&dialog) != FALSE;
}

bool AskColor(FrameWindow* frame, const char* label, RgbColor* color) {
  COLORREF customColors[16];
  std::fill(std::begin(customColors), std::end(customColors), RGB(255, 255, 255));
  CHOOSECOLORA dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = win32::OwnerHandle(frame);
  dialog.rgbResult = win32::ToColor(*color);
  dialog.lpCustColors = customColors;
  dialog.Flags = CC_RGBINIT | CC_ENABLEHOOK;
  dialog.lCustData = reinterpret_cast<LPARAM>(label);
  dialog.lpfnHook = TitleColorDialog;
  if (ChooseColorA(&dialog) == FALSE) return false;
  *color = win32::FromColor(dialog.rgbResult);
  return true;
}

}  // namespace ondrel::toolkit
