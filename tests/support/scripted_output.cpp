// What leaves the program in the scripted shell: metafiles, the clipboard and printed pages.
#include <cstring>
#include <string>
#include <utility>

#include "support/scripted_device.h"

namespace ondrel::scripted {
namespace {

struct Metafile {
  std::vector<std::string> Lines;
};

/// What stands behind the choices of a printer that was found.
struct PrinterChoices {
  const bool* Aborted = nullptr;  // what the abort procedure looks at; null: there is none
};

Metafile& MetafileOf(toolkit::MetafileHandle metafile) {
  return *static_cast<Metafile*>(metafile.Handle);
}

void FreeMetafile(toolkit::MetafileHandle metafile) {
  if (metafile.Handle == nullptr) return;
  --TheShell().LiveMetafiles;
  delete &MetafileOf(metafile);
}

PrinterChoices& ChoicesOf(const toolkit::PrinterRecord& printer) {
  return *static_cast<PrinterChoices*>(printer.Choices);
}

/// The next device that the user chooses has the resolution that the script gives it.
double NextDpi() {
  Printer& printer = TheShell().Printer;
  if (printer.ChosenDpi.empty()) return printer.Dpi;
  const double dpi = printer.ChosenDpi.front();
  printer.ChosenDpi.erase(printer.ChosenDpi.begin());
  return dpi;
}

/// Asks the abort procedure, as the platform does in the middle of its work. False when the print
/// is to end.
bool MayGoOn(const toolkit::PrinterRecord& printer) {
  const PrinterChoices& choices = ChoicesOf(printer);
  if (choices.Aborted == nullptr) return true;
  if (TheShell().Printer.WhileBusy) TheShell().Printer.WhileBusy();
  return !*choices.Aborted || !TheShell().Printer.MindsAbort;
}

std::int32_t CodeOf(Fault& fault) {
  return fault.Strikes() ? TheShell().Printer.Error : 0;
}

/// The line of a drawing that is no call on a device.
void Mark(const std::string& line) {
  if (TheShell().KeepsDrawing) TheShell().Drawing.push_back(line);
}

}  // namespace

std::string MetafileBytes(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\n";
  return bytes;
}

}  // namespace ondrel::scripted

namespace ondrel::toolkit {

using namespace scripted;

// --- Metafiles -----------------------------------------------------------------------------------

DeviceRecord BeginMetafile() {
  if (TheShell().BeginMetafile.Strikes()) return {};
  Mark("metafile begins");
  return MakeDevice(DeviceKind::Metafile, 0.0);
}

MetafileHandle EndMetafile(DeviceRecord& device) {
  Mark("metafile ends");
  auto lines = std::move(DeviceOf(device).Picture);
  FreeDevice(device);
  if (TheShell().EndMetafile.Strikes()) return {};
  ++TheShell().LiveMetafiles;
  return {new Metafile{std::move(lines)}};
}

std::size_t MetafileSize(MetafileHandle metafile) {
  return TheShell().NoMetafileBytes ? 0 : MetafileBytes(MetafileOf(metafile).Lines).size();
}

bool CopyMetafile(MetafileHandle metafile, void* bytes, std::size_t size) {
  if (TheShell().CopyMetafile.Strikes() || size != MetafileSize(metafile)) return false;
  const std::string all = MetafileBytes(MetafileOf(metafile).Lines);
  if (size > 0) std::memcpy(bytes, all.data(), size);
  return true;
}

std::int32_t DeleteMetafile(MetafileHandle metafile) {
  FreeMetafile(metafile);
  return TheShell().DeleteMetafile.Strikes() ? TheShell().MetafileError : 0;
}

// --- Clipboard -----------------------------------------------------------------------------------

bool OpenClipboard(FrameWindow*) {
  if (TheShell().OpenClipboard.Strikes()) return false;
  Note("clipboard opened");
  TheShell().Clipboard.Open = true;
  return true;
}

bool EmptyClipboard() {
  if (!TheShell().Clipboard.Open || TheShell().EmptyClipboard.Strikes()) return false;
  Note("clipboard emptied");
  TheShell().Clipboard = {.Open = true, .Picture = {}};
  return true;
}

bool GiveToClipboard(MetafileHandle metafile, std::int32_t width, std::int32_t height) {
  if (!TheShell().Clipboard.Open || TheShell().GiveToClipboard.Strikes()) return false;
  Note("clipboard given a picture");
  TheShell().Clipboard = {.Open = true,
                          .HasPicture = true,
                          .Picture = MetafileOf(metafile).Lines,
                          .Width = width,
                          .Height = height};
  FreeMetafile(metafile);
  return true;
}

bool CloseClipboard() {
  Note("clipboard closed");
  const bool wasOpen = std::exchange(TheShell().Clipboard.Open, false);
  return wasOpen && !TheShell().CloseClipboard.Strikes();
}

// --- Printers ------------------------------------------------------------------------------------

bool FindDefaultPrinter(FrameWindow*, PrinterRecord* printer) {
  Note("default printer");
  if (!TheShell().Printer.Exists) return false;
  ++TheShell().Printer.Live;
  *printer = {.Device = MakeDevice(DeviceKind::Printer, TheShell().Printer.Dpi),
              .Choices = new PrinterChoices};
  return true;
}

bool AskPrinter(FrameWindow*, PrinterDialog dialog, PrinterRecord* printer) {
  Note(dialog == PrinterDialog::Setup ? "print setup dialog" : "print dialog");
  std::deque<bool>& answers = TheShell().Printer.Answers;
  if (answers.empty()) return false;
  const bool accepted = answers.front();
  answers.pop_front();
  if (!accepted) return false;
  FreeDevice(printer->Device);
  printer->Device = MakeDevice(DeviceKind::Printer, NextDpi());
  return true;
}

void FreePrinter(PrinterRecord* printer) {
  if (printer->Choices == nullptr) return;
  Note("printer freed");
  --TheShell().Printer.Live;
  FreeDevice(printer->Device);
  delete &ChoicesOf(*printer);
  printer->Choices = nullptr;
}

void InstallAbortProcedure(PrinterRecord& printer, DialogRecord&, const bool& aborted) {
  Note("abort procedure");
  ChoicesOf(printer).Aborted = &aborted;
}

std::int32_t StartDocument(PrinterRecord& printer, const char* name) {
  Note(std::string("start document ") + name);
  if (!MayGoOn(printer)) return kPrintCancelled;
  return CodeOf(TheShell().Printer.StartDocument);
}

std::int32_t StartPage(PrinterRecord&) {
  Note("start page");
  Mark("page begins");
  return CodeOf(TheShell().Printer.StartPage);
}

std::int32_t EndPage(PrinterRecord& printer) {
  Note("end page");
  Mark("page ends");
  if (!MayGoOn(printer)) return kPrintCancelled;
  return CodeOf(TheShell().Printer.EndPage);
}

std::int32_t EndDocument(PrinterRecord&) {
  Note("end document");
  return CodeOf(TheShell().Printer.EndDocument);
}

}  // namespace ondrel::toolkit
