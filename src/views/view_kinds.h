// What differs among the twelve views, as a table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "shell/window_record.h"
#include "views/destination.h"
#include "views/view_state.h"
#include "workspace/workspace.h"

namespace ondrel {

struct ViewColorRecord {
  const char* Label;  // title of the colour dialog
  RgbColor Default;
};

struct RecordTable;

/// What a view does with the mouse. Places are client coordinates.
struct MouseRoutines {
  void (*Down)(ChildWindow* window, int x, int y);
  void (*Move)(ChildWindow* window, int x, int y);  // only between Down and Up
  void (*Up)(ChildWindow* window, int x, int y);
};

/// What a view does. It tells once how it is laid out and drawn; all destinations use that.
struct ViewRoutines {
  /// Draws the whole client area with the device of a paint message.
  void (*Paint)(ChildWindow* window, const DeviceRecord& device);
  /// Works out where everything stands. The drawing has begun.
  void (*LayOut)(Workspace& workspace, const Destination& destination);
  /// Draws what was laid out for the same destination.
  void (*Draw)(Workspace& workspace, const Destination& destination);
  /// What is moved for a metafile, after LayOut: a text that is to end at a place begins there,
  /// since the device of a metafile measures nothing. Null: nothing is.
  void (*MoveForMetafile)(Workspace& workspace, const Destination& destination) = nullptr;
  /// How far down a page the view goes; null: to the bottom of the destination.
  std::int32_t (*BottomOnPaper)(const Workspace& workspace,
                                const Destination& destination) = nullptr;
  bool ClipsOnPaper = true;
  /// The table that a scrolling view shows; null for the others.
  const RecordTable* Scrolled = nullptr;
  /// Null for views that take no notice of the mouse.
  const MouseRoutines* Mouse = nullptr;
  /// What else changes when the window has come or gone; null: nothing.
  void (*Opened)(Workspace& workspace) = nullptr;
  void (*Closed)(Workspace& workspace) = nullptr;
};

struct ViewKindRecord {
  ViewKind Kind;
  const char* Title;
  const char* CreationText;  // what the failure report names
  bool VerticalBar;
  bool ClipsInFiles;                        // whoever closes the document then ends the clip
  std::span<const ViewColorRecord> Colors;  // in the order of the view's colour places
  std::size_t Background;                   // place of the background among them
  int MenuResource;                         // 0: the view has no menu of its own
  const ViewRoutines* Routines;
};

const ViewKindRecord& FactsOf(ViewKind kind);

}  // namespace ondrel
