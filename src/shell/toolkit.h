// The only door to the platform. Two implementations keep these promises and one is chosen when
// linking: shell/win32/ in the program, tests/support/ in native tests. Nothing else includes a
// header of the platform.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

#include "shell/window_record.h"
#include "workspace/geometry.h"

namespace ondrel::toolkit {

// --- Memory ---------------------------------------------------------------------------------

/// Zero-filled room for `count` records of `size` bytes, or null, also when the product does not
/// fit an address. What is freed goes back to the system when it is large.
[[nodiscard]] void* AllocateZeroed(std::size_t count, std::size_t size);
/// Harmless on null.
void FreeMemory(void* memory);

template <typename Record>
[[nodiscard]] Record* AllocateRecords(std::int64_t count) {
  if (!std::in_range<std::size_t>(count)) return nullptr;
  return static_cast<Record*>(AllocateZeroed(static_cast<std::size_t>(count), sizeof(Record)));
}

// --- Texts ----------------------------------------------------------------------------------

/// Copies text `id` of the string table into `buffer`, cut to `size` - 1 bytes and NUL-ended; empty
/// when there is no such text.
void LoadText(int id, char* buffer, std::size_t size);

// --- Files ----------------------------------------------------------------------------------

struct FileHandle {
  void* Handle = nullptr;
};

/// Each returns 0, or the platform's error code.
[[nodiscard]] std::int32_t OpenFileForReading(const char* path, FileHandle* file);
[[nodiscard]] std::int32_t FileSize(FileHandle file, std::uint64_t* bytes);
[[nodiscard]] std::int32_t SeekToStart(FileHandle file);
/// Fewer bytes than asked for is a failure.
[[nodiscard]] std::int32_t ReadBytes(FileHandle file, void* buffer, std::size_t bytes);
std::int32_t CloseFile(FileHandle file);

/// Makes an empty file, in place of the one that stands there.
[[nodiscard]] std::int32_t CreateEmptyFile(const char* path);
/// A file that is there, from its start on. What it holds stays but for what is written over.
[[nodiscard]] std::int32_t OpenFileForWriting(const char* path, FileHandle* file);
/// Fewer bytes than asked for is a failure.
[[nodiscard]] std::int32_t WriteBytes(FileHandle file, const void* bytes, std::size_t count);
std::int32_t RemoveFile(const char* path);
/// The path of the file `name` in `folder` of the user's place for the data of programs, into
/// `path` of kPathSize bytes. The folder is made when it is missing; the file need not be there.
[[nodiscard]] std::int32_t FindUserFile(const char* folder, const char* name, char* path);

// --- Boxes and dialogs ------------------------------------------------------------------------

enum class BoxButtons : std::int32_t { Ok = 0, OkCancel = 1, YesNo = 2, YesNoCancel = 3 };
enum class BoxIcon : std::int32_t { Stop = 1, Exclamation = 2, Information = 3, Question = 4 };
enum class BoxAnswer : std::int32_t { Yes = 1, Cancel = 2, No = 3 };
inline constexpr BoxAnswer kAnswerOk = BoxAnswer::Yes;

/// A modal box with an empty caption. `defaultButton` is 1, 2 or 3.
BoxAnswer ShowBox(FrameWindow* frame, const char* text, BoxButtons buttons, BoxIcon icon,
                  int defaultButton);

enum class FileDialogMode : std::int32_t {
  Save = 1,  // asks before overwriting; the path must exist
  Open = 2,  // the file must exist
};

/// The platform's file dialog with the one filter "All Files (*.*)". `path` has kPathSize bytes and
/// receives the choice. False when the user cancelled.
bool AskFile(FrameWindow* frame, FileDialogMode mode, const char* title, const char* defaultName,
             char* path);

/// The platform's colour dialog, not fully open, with custom colours preset to white and `label`
/// as its title. False when the user cancelled; `color` then stays as it was.
bool AskColor(FrameWindow* frame, const char* label, RgbColor* color);

struct DialogRecord {
  void* Handle = nullptr;
};

/// A modal dialog is a resource and two functions. `Initialize` fills the controls; a nonzero
/// result ends the dialog with it. `Command` gets the id of a control that the user changed or
/// pressed; a nonzero result ends the dialog with that id. It hears of an edit field more often:
/// when the field is filled, also by `Initialize`, and when the focus comes or goes, also while the
/// dialog closes. `user` is handed through.
/// `CancelControl` is the button that Escape and the close box stand for, pressable or not.
struct DialogOperations {
  int (*Initialize)(DialogRecord& dialog, void* user);
  int (*Command)(DialogRecord& dialog, int control, void* user);
  int CancelControl = 2;
};

/// Returns what ended the dialog; -1 when it could not be opened.
int RunDialog(FrameWindow* frame, int resource, const DialogOperations& operations, void* user);

/// Controls by id. `SetControlText` and `SetChecked` return false when the control fails.
bool SetControlText(DialogRecord& dialog, int control, const char* text);
void GetControlText(DialogRecord& dialog, int control, char* text, std::size_t size);
bool SetChecked(DialogRecord& dialog, int control, bool checked);
/// Fills a drop-down list and shows the text at place `shown`, from 0. False when the control
/// fails.
bool FillList(DialogRecord& dialog, int control, std::span<const char* const> texts, int shown);
/// The place, from 0, of the text that the list shows.
[[nodiscard]] int ReadList(DialogRecord& dialog, int control);
void EnableControl(DialogRecord& dialog, int control, bool enabled);

/// Opens a dialog that stands beside the program while it goes on. It is there until DestroyDialog,
/// or until a command returns nonzero; `dialog.Handle` is null from then on. `operations`, `user`
/// and `dialog` must outlive it. False when it could not be made.
bool OpenDialog(FrameWindow* frame, int resource, const DialogOperations& operations, void* user,
                DialogRecord& dialog);
/// Harmless on a dialog that is gone.
void DestroyDialog(DialogRecord& dialog);

// --- Windows --------------------------------------------------------------------------------

/// The top-level window, hidden. A degenerate `place` leaves place and size to the platform. Null
/// when it could not be made. `callbacks` must outlive the window.
[[nodiscard]] FrameWindow* CreateFrame(void* instance, const char* title, const IntRect& place,
                                       Workspace* owner, const FrameCallbacks* callbacks);
/// A window inside the frame, shown and in front. Null when it could not be made.
[[nodiscard]] ChildWindow* CreateChild(FrameWindow* frame, const char* title, const IntRect& place,
                                       bool horizontalBar, bool verticalBar, Workspace* owner,
                                       const ChildCallbacks* callbacks);
/// For a child: brings the next child forward, then destroys it. Frees the record.
void DestroyWindow(WindowRecord* window);

void ShowWindow(WindowRecord* window);
/// A window that is not enabled, and what it contains, takes no input of the user.
void EnableWindow(WindowRecord* window, bool enabled);
void MaximizeWindow(WindowRecord* window);
void MoveWindow(WindowRecord* window, std::int32_t left, std::int32_t top);
void SizeWindow(WindowRecord* window, std::int32_t width, std::int32_t height);

/// The frame's top child, or null.
[[nodiscard]] ChildWindow* ActiveChild(FrameWindow* frame);
void BringForward(ChildWindow* child);
/// Brings the lowest other child forward, if there is one.
void NextChild(ChildWindow* child);

/// The inside of the window; left and top are 0.
[[nodiscard]] IntRect ClientRect(WindowRecord* window);
/// The whole window: a child's in the frame's client coordinates, the frame's on the screen.
[[nodiscard]] IntRect WindowRect(WindowRecord* window);

/// The bar's range is 0 to `maximum`.
void SetScrollRange(ChildWindow* window, Axis axis, std::int32_t maximum);
void SetScrollPosition(ChildWindow* window, Axis axis, std::int32_t position);
/// The same without redrawing the bar: it shows the position already, as after the user's drag.
void SetScrollPositionQuietly(ChildWindow* window, Axis axis, std::int32_t position);
[[nodiscard]] std::int32_t ReadScrollPosition(ChildWindow* window, Axis axis);

/// Marks `rect` of the client area to be painted, without erasing it.
void Invalidate(ChildWindow* window, const IntRect& rect);

/// Takes one key-down message of the window out of the queue, without dispatching anything. False
/// when none waits.
bool TakeKeyDown(ChildWindow* window, int* key);

/// Runs until the quit message. Accelerators go to the frame's Command, all else first to its
/// FilterMessage.
void RunMessageLoop(FrameWindow* frame);

void SetWaitCursor(bool waiting);
[[nodiscard]] std::uint32_t TickCount();        // ms
[[nodiscard]] std::uint32_t DoubleClickTime();  // ms between the presses of a double click, at most

/// The smallest height to which a window can be dragged, by which new views cascade.
[[nodiscard]] std::int32_t MinimumWindowHeight();
[[nodiscard]] double ScreenDpi();

// --- Menus ----------------------------------------------------------------------------------

/// Replaces the frame's menu bar by a menu of the resources; the old one is destroyed.
void ReplaceMenu(FrameWindow* frame, int resource);
/// Inserts the one popup of another menu of the resources at `place` of the bar. Places count
/// from 1, separators included.
void InsertPopup(FrameWindow* frame, int resource, int place);
void EnablePopup(FrameWindow* frame, int popup, bool enabled);
void EnableEntry(FrameWindow* frame, int popup, int entry, bool enabled);
/// An entry of the popup that is itself entry `entry` of `popup`.
void EnableSubEntry(FrameWindow* frame, int popup, int entry, int subEntry, bool enabled);
/// Shows what the calls above changed.
void RedrawMenuBar(FrameWindow* frame);

// --- Devices --------------------------------------------------------------------------------

struct FontMetrics {
  std::int32_t Ascent = 0;
  std::int32_t Descent = 0;
  std::int32_t ExternalLeading = 0;
};

/// A window's device outside of Paint, to be given back.
[[nodiscard]] DeviceRecord AcquireDevice(ChildWindow* window);
void ReleaseDevice(ChildWindow* window, DeviceRecord& device);

/// A picture in memory on which a window's content is drawn out of sight, so that it changes
/// without flicker.
struct BufferRecord {
  DeviceRecord Device;  // what is drawn goes here, in the window's coordinates
  void* Bitmap = nullptr;
};

/// A buffer for `rect` of `device`, whose left and top are 0. Without room for it what is drawn
/// goes to `device` at once.
[[nodiscard]] BufferRecord BeginBuffer(const DeviceRecord& device, const IntRect& rect);
/// Shows the buffer and frees it. Nothing may be selected into its device any more.
void EndBuffer(const DeviceRecord& device, BufferRecord& buffer, const IntRect& rect);

/// A device of the screen's kind on which nothing is ever seen: what is drawn into files is
/// measured with it, and pictures that no file can hold go there. To be given back.
[[nodiscard]] DeviceRecord AcquireMeasuringDevice();
void ReleaseMeasuringDevice(DeviceRecord& device);

/// Font "Arial" of height 10, baseline text with update of the position, transparent background.
void SetUpDevice(DeviceRecord& device);
/// Selects stock objects and deletes what the record owns.
void CleanUpDevice(DeviceRecord& device);

[[nodiscard]] double DeviceDpi(const DeviceRecord& device);
void SetPenWidth(DeviceRecord& device, std::int32_t width);
/// `height` is a character height in device units.
void SetFontHeight(DeviceRecord& device, std::int32_t height);
[[nodiscard]] FontMetrics MeasureFont(const DeviceRecord& device);
[[nodiscard]] std::int32_t TextWidth(const DeviceRecord& device, const char* text);

void SetBackground(DeviceRecord& device, const RgbColor& color);
/// Fills with a temporary brush; what is selected stays.
void FillArea(DeviceRecord& device, const IntRect& rect, const RgbColor& color);
/// Pen (keeping its width), brush and text take the colour.
void SetDrawingColor(DeviceRecord& device, const RgbColor& color);

void MoveTo(DeviceRecord& device, std::int32_t x, std::int32_t y);
void LineTo(DeviceRecord& device, std::int32_t x, std::int32_t y);
/// A point as thick as the pen, at least a pixel: a line of no length is nothing to a thin pen.
void DrawPoint(DeviceRecord& device, std::int32_t x, std::int32_t y);
/// The platform's rectangle with pen and brush.
void FilledRect(DeviceRecord& device, const IntRect& rect);
/// The same with nothing inside.
void HollowRect(DeviceRecord& device, const IntRect& rect);
/// Stretches the picture `resource` of the program over `rect`. Returns 0; -2 when there is no such
/// picture; -1 without room to draw it; else the platform's error code.
[[nodiscard]] std::int32_t DrawImage(DeviceRecord& device, int resource, const IntRect& rect);
/// At the current position, baseline.
void DrawTextHere(DeviceRecord& device, const char* text);

/// Limits drawing, where the device can.
void ClipTo(DeviceRecord& device, const IntRect& rect);
void RemoveClip(DeviceRecord& device);
/// Moves the pixels of `rect` by `dy` and clears what becomes free with `background`.
void ScrollArea(ChildWindow* window, DeviceRecord& device, const IntRect& rect, std::int32_t dy,
                const RgbColor& background);

// --- Metafiles -------------------------------------------------------------------------------

/// A picture kept in memory as the operations that draw it.
struct MetafileHandle {
  void* Handle = nullptr;
};

/// Begins a metafile, whose device takes what is drawn. Such a device measures nothing: its texts
/// have no width, and it has no resolution. A null Dc when it could not be made.
[[nodiscard]] DeviceRecord BeginMetafile();
/// Ends it; the device is gone. A null handle when what was drawn could not be kept.
[[nodiscard]] MetafileHandle EndMetafile(DeviceRecord& device);
/// The bytes of the metafile as a file holds them: how many, and a copy into `bytes` of that size.
[[nodiscard]] std::size_t MetafileSize(MetafileHandle metafile);
[[nodiscard]] bool CopyMetafile(MetafileHandle metafile, void* bytes, std::size_t size);
/// Returns 0 or the platform's code.
std::int32_t DeleteMetafile(MetafileHandle metafile);

// --- Clipboard -------------------------------------------------------------------------------

[[nodiscard]] bool OpenClipboard(FrameWindow* frame);
[[nodiscard]] bool EmptyClipboard();
/// Puts the metafile up as a picture of this size, device units. It belongs to the clipboard from
/// then on, unless this fails.
[[nodiscard]] bool GiveToClipboard(MetafileHandle metafile, std::int32_t width,
                                   std::int32_t height);
[[nodiscard]] bool CloseClipboard();

// --- Printers --------------------------------------------------------------------------------

/// A printer that was chosen, and its device.
struct PrinterRecord {
  DeviceRecord Device;
  void* Choices = nullptr;  // what the platform's dialogs keep about printer and paper
};

enum class PrinterDialog : std::int32_t { Setup, Print };

/// The printer that the user has as default. False when there is none.
[[nodiscard]] bool FindDefaultPrinter(FrameWindow* frame, PrinterRecord* printer);
/// One of the platform's dialogs on `printer`; the device that the user chose replaces the one it
/// has. False when the user cancelled; `printer` then stays as it was.
[[nodiscard]] bool AskPrinter(FrameWindow* frame, PrinterDialog dialog, PrinterRecord* printer);
/// Harmless on a printer that was not found.
void FreePrinter(PrinterRecord* printer);

/// While a page is printed the platform asks time and again whether it may go on. Messages that
/// wait are then worked on, those of `dialog` first, and the answer is yes until `aborted`. Both
/// must outlive the printing.
void InstallAbortProcedure(PrinterRecord& printer, DialogRecord& dialog, const bool& aborted);
/// Each returns 0 or the platform's code.
[[nodiscard]] std::int32_t StartDocument(PrinterRecord& printer, const char* name);
[[nodiscard]] std::int32_t StartPage(PrinterRecord& printer);
[[nodiscard]] std::int32_t EndPage(PrinterRecord& printer);
std::int32_t EndDocument(PrinterRecord& printer);

}  // namespace ondrel::toolkit
