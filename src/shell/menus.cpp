#include "shell/menus.h"

#include <array>
#include <cstddef>
#include <iterator>

#include "shell/command_ids.h"
#include "shell/toolkit.h"
#include "views/view_kinds.h"

namespace ondrel {
namespace {

constexpr MenuRow kRows[] = {
#define ONDREL_MENU(id) {MenuRow::Kind::Menu, nullptr, id},
#define ONDREL_POPUP(text) {MenuRow::Kind::Popup, text, 0},
#define ONDREL_ENTRY(text, id) {MenuRow::Kind::Entry, text, id},
#define ONDREL_SEPARATOR {MenuRow::Kind::Separator, nullptr, 0},
#define ONDREL_POPUP_END {MenuRow::Kind::End, nullptr, 0},
#define ONDREL_MENU_END {MenuRow::Kind::End, nullptr, 0},
#include "resources/menus.inc"
#undef ONDREL_MENU
#undef ONDREL_POPUP
#undef ONDREL_ENTRY
#undef ONDREL_SEPARATOR
#undef ONDREL_POPUP_END
#undef ONDREL_MENU_END
};

// --- What is allowed when ------------------------------------------------------------------------

/// A run of commands that some state forbids.
struct CommandRule {
  CommandId First;
  CommandId Last;
  bool NoData;
  bool Data;
  bool ActiveView;
};

constexpr CommandRule kRules[] = {
    {command::kOpen, command::kOpen, true, false, false},
    {command::kClose, command::kSaveLevels, false, true, true},
    {command::kLoadPreferences, command::kLoadPreferences, true, false, false},
    {command::kFileSettings, command::kFileSettings, true, false, false},
    {command::kExportGraph, command::kPrint, false, false, true},
    {52225, 52231, false, true, true},  // the Settings menu
    {command::kAmplitudeView, command::kSweepView, false, true, true},
    {25857, 28164, false, false, true},  // the view menus' colours
    {52993, 55042, false, false, true},  // what else stands in the view menus
};

/// A fit starts from estimates, and these are there while the view of its parameters is open.
struct FitRule {
  CommandId Command;
  ViewKind View;
};

constexpr FitRule kFitRules[] = {
    {command::kAmplitudeAutomaticFit, ViewKind::AmplitudeFit},
    {command::kDurationAutomaticFit, ViewKind::DurationFit},
};

bool LacksFitView(const Workspace& workspace, CommandId command) {
  for (const FitRule& rule : kFitRules) {
    if (rule.Command == command) return ViewOf(workspace, rule.View).Window == nullptr;
  }
  return false;
}

bool HoldsIn(const CommandRule& rule, MenuState state) {
  switch (state) {
    case MenuState::NoData:
      return rule.NoData;
    case MenuState::Data:
      return rule.Data;
    case MenuState::ActiveView:
      return rule.ActiveView;
  }
  return false;
}

// "&Settings" and "&View" are greyed as a whole while there is nothing to set or to see.
constexpr int kSettingsPopup = 2;
constexpr int kViewPopup = 3;

// --- Greying the bar -----------------------------------------------------------------------------

/// Places on the way to an entry: of its popup in the bar, of the entry in the popup, and of the
/// entry in a popup inside that. All count from 1.
using EntryPlace = std::array<int, 3>;

void EnableAt(FrameWindow* frame, const EntryPlace& place, std::size_t depth, bool enabled) {
  if (depth == 2) {
    toolkit::EnableSubEntry(frame, place[0], place[1], place[2], enabled);
  } else {
    toolkit::EnableEntry(frame, place[0], place[1], enabled);
  }
}

/// Greys what is not allowed in the popups of a menu, the first of which stands at `firstPlace` of
/// the bar.
void GreyEntries(FrameWindow* frame, int resource, int firstPlace, MenuState state) {
  EntryPlace place{firstPlace - 1, 0, 0};
  std::size_t depth = 0;
  for (const MenuRow& row : RowsOfMenu(resource)) {
    if (row.RowKind == MenuRow::Kind::End) {
      --depth;
      continue;
    }
    ++place[depth];
    if (row.RowKind == MenuRow::Kind::Popup) place[++depth] = 0;
    if (row.RowKind == MenuRow::Kind::Entry) {
      const auto command = static_cast<CommandId>(row.Id);
      EnableAt(frame, place, depth, IsAllowed(*frame->Owner, command, state));
    }
  }
}

void InstallMainMenu(FrameWindow* frame, MenuState state) {
  toolkit::ReplaceMenu(frame, kMainMenu);
  GreyEntries(frame, kMainMenu, 1, state);
  toolkit::EnablePopup(frame, kSettingsPopup, state != MenuState::NoData);
  toolkit::EnablePopup(frame, kViewPopup, state != MenuState::NoData);
  frame->Owner->ViewMenu = 0;
}

}  // namespace

std::span<const MenuRow> RowsOfMenu(int resource) {
  const MenuRow* first = std::begin(kRows);
  while (first != std::end(kRows) &&
         !(first->RowKind == MenuRow::Kind::Menu && first->Id == resource)) {
    ++first;
  }
  if (first == std::end(kRows)) return {};
  const MenuRow* last = ++first;
  while (last != std::end(kRows) && last->RowKind != MenuRow::Kind::Menu) ++last;
  return {first, last - 1};
}

bool IsAllowed(const Workspace& workspace, CommandId command, MenuState state) {
  if (!HasHandler(command) || LacksFitView(workspace, command)) return false;
  for (const CommandRule& rule : kRules) {
    if (command >= rule.First && command <= rule.Last) return HoldsIn(rule, state);
  }
  return true;
}

MenuState CurrentMenuState(const Workspace& workspace) {
  if (workspace.Events.Index == nullptr) return MenuState::NoData;
  return toolkit::ActiveChild(workspace.Frame) == nullptr ? MenuState::Data : MenuState::ActiveView;
}

void InstallStartMenu(FrameWindow* frame) {
  InstallMainMenu(frame, MenuState::NoData);
  toolkit::RedrawMenuBar(frame);
}

void InstallDataMenu(FrameWindow* frame) {
  InstallMainMenu(frame, MenuState::Data);
  toolkit::RedrawMenuBar(frame);
}

void InstallViewMenu(FrameWindow* frame, ViewKind view) {
  InstallMainMenu(frame, MenuState::ActiveView);
  const int resource = FactsOf(view).MenuResource;
  if (resource != 0) {
    toolkit::InsertPopup(frame, resource, kViewMenuPlace);
    GreyEntries(frame, resource, kViewMenuPlace, MenuState::ActiveView);
  }
  frame->Owner->ViewMenu = resource;
  toolkit::RedrawMenuBar(frame);
}

void RefreshFitEntries(FrameWindow* frame) {
  const int resource = frame->Owner->ViewMenu;
  if (resource == 0) return;
  GreyEntries(frame, resource, kViewMenuPlace, MenuState::ActiveView);
  toolkit::RedrawMenuBar(frame);
}

const MenuOperations kMenuOperations = {
    .InstallViewMenu = InstallViewMenu,
    .InstallDataMenu = InstallDataMenu,
    .RefreshFitEntries = RefreshFitEntries,
};

}  // namespace ondrel
