// The menu bar in its three states, and the one list of what is allowed when.
#pragma once

#include <cstdint>
#include <span>

#include "shell/commands.h"
#include "workspace/workspace.h"

namespace ondrel {

enum class MenuState : std::uint8_t {
  NoData,      // after the start and after "&Close"
  Data,        // recordings are loaded and no view is active
  ActiveView,  // a view is active and has its menu in the bar
};

inline constexpr int kMainMenu = 200;     // resource
inline constexpr int kViewMenuPlace = 4;  // of the bar, before "&Help"; places count from 1

/// A row of a menu as the resources hold it. Popups nest and are closed by an End, a menu by one
/// more.
struct MenuRow {
  enum class Kind : std::uint8_t { Menu, Popup, Entry, Separator, End };
  Kind RowKind;
  const char* Text;  // null for separators and ends
  int Id;            // the resource of a menu, the command of an entry, else 0
};

/// The rows inside a menu of the resources, without its first row and last end; empty when there is
/// no such menu.
std::span<const MenuRow> RowsOfMenu(int resource);

/// Whether `command` may run in `state`: it exists, and no rule forbids it there. The menus grey
/// what may not, and the dispatcher refuses it.
bool IsAllowed(const Workspace& workspace, CommandId command, MenuState state);

/// The state that the loaded data and the active view call for.
MenuState CurrentMenuState(const Workspace& workspace);

/// Each loads the main menu for its state. The old menu is destroyed.
void InstallStartMenu(FrameWindow* frame);
void InstallDataMenu(FrameWindow* frame);
/// With the view's own popup in the bar, when it has one.
void InstallViewMenu(FrameWindow* frame, ViewKind view);
/// Enables or greys "&Automatic Fit" anew where it stands in the bar.
void RefreshFitEntries(FrameWindow* frame);

/// How views reach the operations above.
extern const MenuOperations kMenuOperations;

}  // namespace ondrel
