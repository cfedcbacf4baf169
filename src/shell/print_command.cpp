#include "shell/print_command.h"

#include <cstdint>

#include "shell/export_sizes.h"
#include "shell/toolkit.h"
#include "views/all_views.h"
#include "views/view_destinations.h"
#include "views/view_window.h"
#include "workspace/report.h"
#include "workspace/truncate.h"
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

/// How large the window is on the screen decides how large it is on paper.
void LayOutPage(Workspace& workspace, ViewKind kind, double dpi) {
  workspace.ExportDpi = dpi;
  ScaleExportSizes(workspace, dpi);
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
  // Their bins have been laid out for the paper: the repaint pass at the end shows them anew.
  const bool isHistogram = run.View == ViewKind::Amplitude || run.View == ViewKind::Duration;
  if (isHistogram) ViewOf(workspace, run.View).NeedsRebuild = true;
}

/// The page and with it the document; a page that fails takes the document with it. False then.
bool FinishPrint(PrintRun& run) {
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

bool PrintPage(PrintRun& run) {
  DrawPage(run);
  return FinishPrint(run);
}

void Print(PrintRun& run) {
  Workspace& workspace = *run.Frame->Owner;
  workspace.ScreenDpi = DpiOfWindow(ViewOf(workspace, run.View).Window);
  // A box of the drawing can stand over the frame when the button of the dialog enables it.
  workspace.Printing = true;
  const bool finished = BeginDocument(run) && BeginPage(run) && PrintPage(run);
  workspace.Printing = false;
  if (finished) RefreshViews(workspace);
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
