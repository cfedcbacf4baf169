// The settings dialogs as a user knows them: which command leads to each, what stands in it at the
// start, which numbers it does not take, and something else to enter everywhere.
#pragma once

#include <string>
#include <vector>

#include "program.h"

namespace ondrel::e2e {

/// Numbers at the edge of what a field takes.
struct Limit {
  const char* Bad;
  const char* Good;
};
using Limits = std::vector<Limit>;

struct SheetRow {
  enum class Kind { Text, Number, List, Check, Radio };

  Kind Sort = Kind::Text;
  int Id = 0;
  std::string Text{};  // of a text, a check box, a radio button
  std::vector<std::string> Choices{};
  std::string Shown{};    // at the start: number or choice, "on" or ""
  std::string Entered{};  // as typed or chosen; "on" or "" for what is pressed
  std::string Later{};    // how that shows when the dialog comes again
  Limits Edges{};         // of a number
};

struct DialogSheet {
  const char* Name;  // for tests and pictures
  const char* Caption;
  int Command;
  int ViewCommand;  // opens the view whose menu has the command; 0 for one of the bar
  const char* ViewTitle;
  std::vector<SheetRow> Rows;
  const char* First = "&OK";
  const char* FileDialog = nullptr;  // that the first button leads to
  Point Inside{};                    // of the view, pixels, when the dialog depends on it
};

/// All settings that menus lead to but "File Settings".
const std::vector<DialogSheet>& EverySheet();
/// What comes before something leaves the program.
const std::vector<DialogSheet>& ExportSheets();

/// As Dialog::Lines tells it, at the start and with everything entered.
std::vector<std::string> LinesAtStart(const DialogSheet& sheet);
std::vector<std::string> LinesLater(const DialogSheet& sheet);

/// Ids of the controls that Tab stops at, first to last, at the start.
std::vector<int> TabStops(const DialogSheet& sheet);

/// Brings its view forward and opens the dialog.
Dialog OpenSheet(const Program& program, const DialogSheet& sheet);

/// Cancels the file dialog that the first button led to, if it leads to one.
void CancelWhatFollows(const Program& program, const DialogSheet& sheet);

/// Enters everything that the sheet has to offer, from the top down.
void EnterAll(const Dialog& dialog, const DialogSheet& sheet);

/// Also for messages of tests.
void PrintTo(const DialogSheet& sheet, std::ostream* out);

}  // namespace ondrel::e2e
