// Printers: the platform's dialogs on them, and the steps of a document.
#include "shell/win32/win32.h"

#include <commdlg.h>

#include "shell/toolkit.h"

namespace ondrel::toolkit {
namespace {

/// What stands behind the choices of a printer: what the dialogs hand from one to the next, and
/// what the abort procedure needs while a document is printed.
struct PrinterChoices {
  HGLOBAL Mode = nullptr;   // paper and the like
  HGLOBAL Names = nullptr;  // driver, printer and port
  const DialogRecord* Dialog = nullptr;
  const bool* Aborted = nullptr;
};

/// The one variable of the program that is global: GDI hands its abort procedure nothing of ours.
/// It points to the printer whose document is being printed, and is null at all other times.
const PrinterChoices* printing = nullptr;

PrinterChoices& ChoicesOf(const PrinterRecord& printer) {
  return *static_cast<PrinterChoices*>(printer.Choices);
}

PRINTDLGA DialogOn(FrameWindow* frame, const PrinterChoices& choices, DWORD flags) {
  PRINTDLGA dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = win32::OwnerHandle(frame);
  dialog.hDevMode = choices.Mode;
  dialog.hDevNames = choices.Names;
  dialog.Flags = flags;
  dialog.nCopies = 1;
  return dialog;
}

/// Runs the dialog, and takes over the device that comes back. False when none does.
bool RunPrinterDialog(PRINTDLGA& dialog, PrinterRecord& printer) {
  const bool accepted = PrintDlgA(&dialog) != FALSE;
  // The dialog may have replaced what it was given, also before a Cancel.
  ChoicesOf(printer).Mode = dialog.hDevMode;
  ChoicesOf(printer).Names = dialog.hDevNames;
  if (!accepted || dialog.hDC == nullptr) return false;
  if (printer.Device.Dc != nullptr) DeleteDC(win32::DcOf(printer.Device));
  printer.Device = {.Dc = dialog.hDC};
  return true;
}

DWORD FlagsOf(PrinterDialog dialog) {
  return dialog == PrinterDialog::Setup ? PD_PRINTSETUP | PD_RETURNDC : PD_RETURNDC;
}

/// Works on the messages that wait. Those that end the run are left for the program's own loop, and
/// so is what comes once the user has stopped the print: the frame takes input again by then.
void WorkOnMessages(const DialogRecord& dialog, const bool& aborted) {
  MSG message{};
  while (!aborted && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    HWND window = win32::HandleOf(dialog);
    if (window != nullptr && IsDialogMessageA(window, &message) != FALSE) continue;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

BOOL CALLBACK AbortProcedure(HDC, int) {
  if (printing == nullptr) return TRUE;
  const bool& aborted = *printing->Aborted;
  WorkOnMessages(*printing->Dialog, aborted);
  return aborted ? FALSE : TRUE;
}

/// Of a step of a document, whose `result` is above 0 when it was done. Some drivers fail without
/// leaving a code; the result has to serve then.
std::int32_t CodeOf(int result) {
  if (result > 0) return 0;
  const std::int32_t code = win32::LastError();
  return code != 0 ? code : SP_ERROR;
}

}  // namespace

bool FindDefaultPrinter(FrameWindow* frame, PrinterRecord* printer) {
  auto* choices = AllocateRecords<PrinterChoices>(1);
  if (choices == nullptr) return false;
  *printer = {.Device = {}, .Choices = choices};
  PRINTDLGA dialog = DialogOn(frame, *choices, PD_RETURNDEFAULT | PD_RETURNDC);
  if (RunPrinterDialog(dialog, *printer)) return true;
  FreePrinter(printer);
  return false;
}

bool AskPrinter(FrameWindow* frame, PrinterDialog kind, PrinterRecord* printer) {
  PRINTDLGA dialog = DialogOn(frame, ChoicesOf(*printer), FlagsOf(kind));
  return RunPrinterDialog(dialog, *printer);
}

void FreePrinter(PrinterRecord* printer) {
  if (printer->Choices == nullptr) return;
  printing = nullptr;
  if (printer->Device.Dc != nullptr) DeleteDC(win32::DcOf(printer->Device));
  PrinterChoices& choices = ChoicesOf(*printer);
  if (choices.Mode != nullptr) GlobalFree(choices.Mode);
  if (choices.Names != nullptr) GlobalFree(choices.Names);
  FreeMemory(&choices);
  *printer = {};
}

void InstallAbortProcedure(PrinterRecord& printer, DialogRecord& dialog, const bool& aborted) {
  PrinterChoices& choices = ChoicesOf(printer);
  choices.Dialog = &dialog;
  choices.Aborted = &aborted;
  printing = &choices;
  SetAbortProc(win32::DcOf(printer.Device), AbortProcedure);
}

std::int32_t StartDocument(PrinterRecord& printer, const char* name) {
  const DOCINFOA document = {.cbSize = sizeof(DOCINFOA),
                             .lpszDocName = name,
                             .lpszOutput = nullptr,
                             .lpszDatatype = nullptr,
                             .fwType = 0};
  SetLastError(0);
  return CodeOf(StartDocA(win32::DcOf(printer.Device), &document));
}

std::int32_t StartPage(PrinterRecord& printer) {
  SetLastError(0);
  return CodeOf(::StartPage(win32::DcOf(printer.Device)));
}

std::int32_t EndPage(PrinterRecord& printer) {
  SetLastError(0);
  return CodeOf(::EndPage(win32::DcOf(printer.Device)));
}

std::int32_t EndDocument(PrinterRecord& printer) {
  SetLastError(0);
  const std::int32_t code = CodeOf(EndDoc(win32::DcOf(printer.Device)));
  printing = nullptr;
  return code;
}

}  // namespace ondrel::toolkit
