// The table of the dialogs that ask in which form something should leave the program.
#include "fixtures.h"
#include "sheet_rows.h"

namespace ondrel::e2e {
namespace {

const Limits kHeight{{"2.99", "3"}, {"1.1e20", "1e20"}, {"-", "12.5"}};
const Limits kWidth{{"4.99", "5"}, {"1.1e20", "1e20"}, {"", "12.5"}};

/// Of a view of 576 by 384 pixels at 96 to the inch. The size is always that of the view.
Rows GraphRows() {
  return {
      Words("Window:"),
      Words("Height (cm):"),
      Number(5, "10.16", kHeight, "7.5", "10.16"),
      Words("Width (cm):"),
      Number(7, "15.24", kWidth, "20", "15.24"),
      Words("File type:"),
      List(8, {"Adobe Illustrator", "Clipboard", "EPS", "Metafile"}, "Adobe Illustrator",
           "Metafile"),
      Words("Metafile:"),
      Words("Resolution (dpi):"),
      Number(11, "96.00", kPositive, "300", "300.00"),
  };
}

Rows TextRows() {
  return {
      Words("File type:"),
      List(3, {"Excel", "Igor"}, "Excel", "Igor"),
      Check(4, "Limit to window", true),
  };
}

Rows LevelFileRows() {
  return {Words("File type:"), List(3, {"QUB", "Ond"}, "Ond", "QUB")};
}

std::vector<DialogSheet> MakeSheets() {
  return {
      {.Name = "ExportGraph",
       .Caption = "Export Graph",
       .Command = command::kExportGraph,
       .ViewCommand = command::kViewEvent,
       .ViewTitle = "Event",
       .Rows = GraphRows(),
       .FileDialog = "Export PICT as:",
       .Inside = {576, 384}},
      {.Name = "ExportText",
       .Caption = "Export Text",
       .Command = command::kExportText,
       .ViewCommand = command::kViewEvent,
       .ViewTitle = "Event",
       .Rows = TextRows(),
       .FileDialog = "Export event list as:"},
      {.Name = "SaveLevels",
       .Caption = "Save Levels",
       .Command = command::kSaveLevels,
       .ViewCommand = 0,
       .ViewTitle = "",
       .Rows = LevelFileRows(),
       .FileDialog = "Save level list as:"},
  };
}

}  // namespace

const std::vector<DialogSheet>& ExportSheets() {
  static const std::vector<DialogSheet> sheets = MakeSheets();
  return sheets;
}

}  // namespace ondrel::e2e
