#include "shell/print_command.h"

#include <cstdint>

#include "shell/toolkit.h"
#include "views/all_views.h"
#include "views/view_destinations.h"
#include "views/view_window.h"
#include "workspace/report.h"
#include "workspace/truncate.h"
#include "workspace/units.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

constexpr int kPrintingDialog = 101;
constexpr int kStopButton = 2;
constexpr char kDocumentName[] = "Ond Window";

// Codes of the program's own, beside those of the platform.
constexpr std::int32_t kNoPrinter = -1;
constexpr std::int32_t kNotStarted = -11;

/// One print, from the choice of the printer to the end of the job.
struct PrintRun {
  FrameWindow* Frame;
  ViewKind View;
  toolkit::PrinterRecord Printer;
  toolkit::DialogRecord Dialog;
  bool Aborted = false;  // by the button of the dialog
};

void Report(FrameWindow* frame, std::int32_t code) {
  ReportFailure(frame, {TextId::ErrorInPrinting, code, "."});
}

// --- The dialog ----------------------------------------------------------------------------------

int FillNothing(toolkit::DialogRecord&, void*) {
  return 0;
}

/// The frame is enabled before the dialog goes: another program's window would come to the front
/// otherwise.
int StopPrinting(toolkit::DialogRecord&, int control, void* user) {
  if (control != kStopButton) return 0;
  PrintRun& run = *static_cast<PrintRun*>(user);
  run.Aborted = true;
  toolkit::EnableWindow(run.Frame, true);
  return 1;
}

constexpr toolkit::DialogOperations kStopDialog = {
    .Initialize = FillNothing, .Command = StopPrinting, .CancelControl = kStopButton};

/// Undoes what OpenStopDialog did.
void LeaveStopDialog(PrintRun& run) {
  toolkit::EnableWindow(run.Frame, true);
  toolkit::DestroyDialog(run.Dialog);
}

/// False, with the frame disabled, when the dialog could not be made.
bool OpenStopDialog(PrintRun& run) {
  toolkit::EnableWindow(run.Frame, false);
  return toolkit::OpenDialog(run.Frame, kPrintingDialog, kStopDialog, &run, run.Dialog);
}

// --- The steps of a print ------------------------------------------------------------------------

/// How large the window is on the screen decides how large it is on paper.
void MeasureScreen(Workspace& workspace, ViewKind kind) {
  ChildWindow* window = ViewOf(workspace, kind).Window;
  DeviceRecord device = toolkit::AcquireDevice(window);
  workspace.ScreenDpi = toolkit::DeviceDpi(device);
  toolkit::ReleaseDevice(window, device);
}

bool BeginDocument(PrintRun& run) {
  if (!OpenStopDialog(run)) {
    // The frame stays disabled: what could not make so small a window is in no state to go on.
    Report(run.Frame, kNotStarted);
    return false;
  }
  toolkit::InstallAbortProcedure(run.Printer, run.Dialog, run.Aborted);
  if (toolkit::StartDocument(run.Printer, kDocumentName) == 0) return true;
  LeaveStopDialog(run);
  Report(run.Frame, kNotStarted);
  return false;
}

bool BeginPage(PrintRun& run) {
  const bool begun = toolkit::StartPage(run.Printer) == 0;
  if (begun && !run.Aborted) return true;
  // A document without an end would hang in the printer's queue.
  toolkit::EndDocument(run.Printer);
  if (run.Aborted) return false;
  LeaveStopDialog(run);
  Report(run.Frame, kNotStarted);
  return false;
}

void LayOutPage(Workspace& workspace, ViewKind kind, double dpi) {
  workspace.DeviceFontSize = TruncateToInteger(workspace.FontSize * dpi / kPointsPerInch);
  workspace.DevicePenSize = workspace.PenSize * dpi / kPointsPerInch;
  workspace.ExportDpi = dpi;
  const IntRect client = toolkit::ClientRect(ViewOf(workspace, kind).Window);
  const double scale = workspace.ScreenDpi;
  workspace.ExportRect = client;
  workspace.ExportRect.Right = client.Left + TruncateToInteger(Width(client) * dpi / scale);
  workspace.ExportRect.Bottom = client.Top + TruncateToInteger(Height(client) * dpi / scale);
}

void DrawPage(PrintRun& run) {
  Workspace& workspace = *run.Frame->Owner;
  LayOutPage(workspace, run.View, toolkit::DeviceDpi(run.Printer.Device));
  DrawViewToPrinter(workspace, run.View, run.Printer.Device);
  // Their bins are laid out for the paper now.
  const bool isHistogram = run.View == ViewKind::Amplitude || run.View == ViewKind::Duration;
  if (isHistogram) ViewOf(workspace, run.View).NeedsRebuild = true;
}

bool EndDocument(PrintRun& run) {
  const std::int32_t code = toolkit::EndPage(run.Printer);
  if (code != 0 && !run.Aborted) {
    LeaveStopDialog(run);
    Report(run.Frame, code);
    return false;
  }
  toolkit::EndDocument(run.Printer);
  if (!run.Aborted) LeaveStopDialog(run);
  return true;
}

void Print(PrintRun& run) {
  Workspace& workspace = *run.Frame->Owner;
  MeasureScreen(workspace, run.View);
  if (!BeginDocument(run) || !BeginPage(run)) return;
  DrawPage(run);
  if (EndDocument(run)) RefreshViews(workspace);
}

}  // namespace

void PrintCommand(FrameWindow* frame) {
  PrintRun run{.Frame = frame, .View = {}, .Printer = {}, .Dialog = {}};
  if (!FindActiveView(*frame->Owner, &run.View)) return;
  if (!toolkit::FindDefaultPrinter(frame, &run.Printer)) {
    Report(frame, kNoPrinter);
    return;
  }
  if (toolkit::AskPrinter(frame, toolkit::PrinterDialog::Setup, &run.Printer) &&
      toolkit::AskPrinter(frame, toolkit::PrinterDialog::Print, &run.Printer)) {
    Print(run);
  }
  toolkit::FreePrinter(&run.Printer);
}

}  // namespace ondrel
