// What a user does with a dialog of the table, and its rows in the words of the driver.
#include <ostream>

#include "dialog_sheets.h"
#include "fixtures.h"

namespace ondrel::e2e {
namespace {

std::string Choices(const SheetRow& row, const std::string& chosen) {
  std::string line;
  for (const std::string& choice : row.Choices) {
    line += (line.empty() ? "" : ", ") + (choice == chosen ? "[" + choice + "]" : choice);
  }
  return line;
}

std::string Line(const SheetRow& row, const std::string& state) {
  const std::string id = std::to_string(row.Id) + " ";
  switch (row.Sort) {
    case SheetRow::Kind::Text:
      return row.Text;
    case SheetRow::Kind::Number:
      return id + "\"" + state + "\"";
    case SheetRow::Kind::List:
      return id + Choices(row, state);
    case SheetRow::Kind::Check:
      return id + (state.empty() ? "[ ] " : "[x] ") + row.Text;
    case SheetRow::Kind::Radio:
      return id + (state.empty() ? "( ) " : "(o) ") + row.Text;
  }
  return "";
}

std::vector<std::string> Lines(const DialogSheet& sheet, std::string SheetRow::*state) {
  std::vector<std::string> lines;
  for (const SheetRow& row : sheet.Rows) lines.push_back(Line(row, row.*state));
  lines.push_back(std::string("1 ") + sheet.First);
  lines.emplace_back("2 &Cancel");
  return lines;
}

}  // namespace

std::vector<std::string> LinesAtStart(const DialogSheet& sheet) {
  return Lines(sheet, &SheetRow::Shown);
}

std::vector<std::string> LinesLater(const DialogSheet& sheet) {
  return Lines(sheet, &SheetRow::Later);
}

std::vector<int> TabStops(const DialogSheet& sheet) {
  std::vector<int> stops;
  for (const SheetRow& row : sheet.Rows) {
    const bool stop =
        row.Sort == SheetRow::Kind::Radio ? !row.Shown.empty() : row.Sort != SheetRow::Kind::Text;
    if (stop) stops.push_back(row.Id);
  }
  stops.push_back(kOkButton);
  stops.push_back(kCancelButton);
  return stops;
}

Dialog OpenSheet(const Program& program, const DialogSheet& sheet) {
  if (sheet.ViewCommand != 0) {
    program.Command(sheet.ViewCommand);
    program.WaitForTopView(sheet.ViewTitle);
    if (sheet.Inside.X != 0) SizeInside(program.View(sheet.ViewTitle), sheet.Inside);
  }
  program.Command(sheet.Command);
  return program.WaitForDialog(sheet.Caption);
}

void CancelWhatFollows(const Program& program, const DialogSheet& sheet) {
  if (sheet.FileDialog == nullptr) return;
  program.WaitForDialog(sheet.FileDialog).Leave(kCancelButton);
  program.ToForeground();
}

void EnterAll(const Dialog& dialog, const DialogSheet& sheet) {
  for (const SheetRow& row : sheet.Rows) {
    if (row.Sort == SheetRow::Kind::Number) dialog.Type(row.Id, row.Entered);
    if (row.Sort == SheetRow::Kind::List) dialog.Choose(row.Id, row.Entered);
    const bool pressed = row.Sort == SheetRow::Kind::Check || row.Sort == SheetRow::Kind::Radio;
    if (!pressed || row.Entered.empty()) continue;
    dialog.Press(row.Id);
    WaitFor("button " + std::to_string(row.Id) + " to turn",
            [&] { return dialog.IsChecked(row.Id) == !row.Later.empty(); });
  }
}

void PrintTo(const DialogSheet& sheet, std::ostream* out) {
  *out << sheet.Name;
}

}  // namespace ondrel::e2e
