// The toolkit of native tests. It answers boxes and dialogs from a script, records what the program
// shows and draws, opens real files, and fails the n-th allocation or file operation on demand.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "shell/toolkit.h"

namespace ondrel::scripted {

/// Fails the `Next`-th call from now (1 is the very next), and all later ones when `Lasting`.
struct Fault {
  int Next = 0;
  bool Lasting = false;
  int Calls = 0;  // all calls since the reset

  /// Counts a call; true when it is to fail.
  bool Strikes();
};

struct Box {
  std::string Text;
  toolkit::BoxButtons Buttons{};
  toolkit::BoxIcon Icon{};
  int DefaultButton = 0;
  FrameWindow* Owner = nullptr;
};

struct FileDialog {
  toolkit::FileDialogMode Mode{};
  std::string Title;
  std::string DefaultName;
};

struct Control {
  std::string Text;
  bool Checked = false;
  bool Enabled = true;
  std::vector<std::string> Texts;  // of a list
  int Shown = -1;                  // place of the text that a list shows
};

/// A dialog while it is open: a script acts on it as a user would. On one that has ended it can do
/// nothing.
class OpenDialog {
 public:
  OpenDialog(int resource, const toolkit::DialogOperations& operations, void* user);
  /// One that stands beside the program, behind the program's record.
  OpenDialog(int resource, const toolkit::DialogOperations& operations, void* user,
             toolkit::DialogRecord& record);

  int Resource() const { return resource_; }
  /// The result that ended it, or 0 while it is open.
  int Result() const { return result_; }
  bool IsOpen() const { return result_ == 0; }
  Control& At(int control) { return controls_[control]; }

  void Initialize();
  /// Replaces the text of a field, as typing does.
  void Type(int control, const std::string& text);
  /// Chooses the text at this place, from 0, in a list.
  void Choose(int control, int place);
  /// Presses a button or a check box; a disabled one takes no notice.
  void Press(int control);
  /// The key, or the close box.
  void Escape();
  /// Ends it from outside.
  void Destroy();

  toolkit::DialogRecord Record;

 private:
  void Command(int control);
  void End(int result);

  int resource_;
  toolkit::DialogOperations operations_;
  void* user_;
  int result_ = 0;
  toolkit::DialogRecord* theirs_ = nullptr;  // of a dialog that stands beside the program
  std::map<int, Control> controls_;
};

struct ScrollBar {
  bool Exists = false;
  std::int32_t Maximum = 0;
  std::int32_t Position = 0;
};

struct Window {
  WindowRecord Record;
  FrameWindow* Frame = nullptr;  // null for the frame itself
  std::string Title;
  IntRect Place;
  IntRect Client;
  bool Shown = false;
  bool Enabled = true;
  WindowPlacement State = WindowPlacement::Normal;
  std::array<ScrollBar, 2> Bars;  // by Axis
  std::vector<IntRect> Invalidated;
  std::deque<int> Keys;  // key-down messages that wait for this window
};

struct MenuEntryState {
  int Popup = 0;
  int Entry = 0;
  int SubEntry = 0;  // 0: the entry itself
  bool operator<(const MenuEntryState& other) const;
  bool operator==(const MenuEntryState&) const = default;
};

/// The frame's menu bar: its resource, the view's popup in it, and what was enabled or greyed.
struct MenuBar {
  int Resource = 0;
  int InsertedResource = 0;  // 0: none
  int InsertedPlace = 0;
  std::map<int, bool> Popups;
  std::map<MenuEntryState, bool> Entries;
  int Redrawn = 0;
};

/// What other programs find on the clipboard.
struct Clipboard {
  bool Open = false;
  bool HasPicture = false;
  std::vector<std::string> Picture;  // what was drawn, as in Shell::Drawing
  std::int32_t Width = 0;
  std::int32_t Height = 0;
};

/// The printer of the machine. Its device draws as a window's does.
struct Printer {
  bool Exists = true;
  double Dpi = 300.0;
  std::deque<bool> Answers;         // to the dialogs, true for OK; none left: the user cancels
  std::vector<double> ChosenDpi;    // resolutions of the devices that OK brings, one after another
  std::function<void()> WhileBusy;  // messages that arrive during StartDocument and EndPage
  bool MindsAbort = true;           // off: it goes on whatever the abort procedure answers
  std::vector<std::string> Paper;   // what was drawn on it, as in Shell::Drawing
  Fault StartDocument;
  Fault StartPage;
  Fault EndPage;
  Fault EndDocument;
  std::int32_t Error = 1722;  // the code of those that fail
  int Live = 0;               // found and not freed
};

inline constexpr std::int32_t kPrintCancelled = 63;  // what the platform calls an aborted print
inline constexpr std::int32_t kScreenDpi = 96;

struct Shell {
  std::vector<Box> Boxes;
  std::deque<toolkit::BoxAnswer> Answers;  // OK or Yes once empty
  std::function<void(FrameWindow*)> WhileBoxStands;
  std::vector<FileDialog> FileDialogs;
  std::deque<std::string> FileChoices;  // empty text, or none left: the user cancels
  std::vector<std::string> ColorLabels;
  std::deque<RgbColor> ColorChoices;                           // none left: the user cancels
  std::deque<std::function<void(OpenDialog&)>> DialogScripts;  // none left: the user cancels
  std::vector<int> Dialogs;                                    // resources of those shown
  /// All that were opened beside the program, those that have ended included.
  std::vector<std::unique_ptr<OpenDialog>> DialogsBeside;

  Fault Allocation;
  Fault Open;
  Fault Size;
  Fault Seek;
  Fault Read;
  Fault Create;
  Fault OpenForWriting;
  Fault Write;
  Fault Close;  // the file is closed all the same
  Fault UserFolderFault;
  Fault ControlText;  // also check boxes and lists
  Fault CreateFrame;
  Fault CreateChild;
  Fault OpenDialogBeside;
  Fault MeasuringDevice;
  Fault BeginMetafile;
  Fault EndMetafile;  // the device is gone all the same
  Fault CopyMetafile;
  bool NoMetafileBytes = false;    // as of a metafile that the platform cannot read back
  Fault DeleteMetafile;            // the metafile is gone all the same
  std::int32_t MetafileError = 6;  // the code of a metafile that cannot be deleted
  Fault OpenClipboard;
  Fault EmptyClipboard;
  Fault GiveToClipboard;
  Fault CloseClipboard;                                  // it is closed all the same
  std::size_t LargestAllocation = std::size_t{1} << 31;  // larger ones are refused without trying
  int LiveAllocations = 0;
  std::vector<const void*>* Freed = nullptr;  // takes the addresses that are freed, in their order
  int OpenFiles = 0;
  std::string UserFolder;  // where the folders of programs are; empty: there is none
  int OpenDevices = 0;     // acquired and not released
  int DeviceObjects = 0;   // pens, brushes and fonts that device records own
  int LiveMetafiles = 0;   // ended, neither deleted nor given to the clipboard

  /// One line a call; what goes to a measuring device, and is never seen, begins with "measuring:
  /// ".
  std::vector<std::string> Drawing;
  bool KeepsDrawing = true;  // off where much is drawn and nobody reads the lines
  /// One line for each thing done to a window, a dialog beside the program, the clipboard or the
  /// printer.
  std::vector<std::string> Windows;
  bool Waiting = false;
  int WaitCursorChanges = 0;
  double DeviceDpi = kScreenDpi;
  std::int32_t ExternalLeading = 0;  // of every font
  bool NoBuffers = false;            // there is no room to draw out of sight
  std::int32_t ImageError = 0;       // what drawing a picture of the resources comes to
  std::uint32_t Ticks = 0;
  std::uint32_t DoubleClickTime = 500;

  std::unique_ptr<Window> FrameHolder;
  std::vector<std::unique_ptr<Window>> Children;  // top first
  MenuBar Menu;
  ondrel::scripted::Clipboard Clipboard;
  ondrel::scripted::Printer Printer;
  bool Quit = false;  // the frame was destroyed
  std::function<void(FrameWindow*)> Loop;

  ~Shell();
};

Shell& TheShell();
void ResetShell();

/// The dialog that stands beside the program, or null.
OpenDialog* DialogBeside();

/// Writes a line into Shell::Windows.
void Note(const std::string& line);

/// The scripted window behind a record.
Window& WindowOf(WindowRecord* record);

/// The titles of the children, top first.
std::vector<std::string> StackOfChildren();

/// Calls the child's Paint slot with a device, as a paint message would, and returns what it drew.
std::vector<std::string> PaintChild(ChildWindow* child);

/// Places and sizes a child as the user would with the mouse; the client area is `place` less frame
/// and caption.
void PlaceChild(ChildWindow* child, const IntRect& place);

/// As a paint message of the platform: paints the child and makes it valid, or does nothing while
/// no part of it is invalid. False when nothing was painted.
bool PaintInvalidChild(ChildWindow* child);

/// The bytes of a metafile, as a file holds them, in which these lines were drawn.
std::string MetafileBytes(const std::vector<std::string>& lines);

/// Every byte of a text is equally wide.
std::int32_t CharWidth(std::int32_t fontHeight);
toolkit::FontMetrics MetricsOf(std::int32_t fontHeight);

}  // namespace ondrel::scripted
