#include <filesystem>
#include <string>

#include "fitting_gestures.h"
#include "tour_steps.h"

namespace ondrel::e2e {
namespace {

constexpr int kSaveLevels = 51720;
constexpr int kExportGraph = 51726;
constexpr int kExportText = 51727;

/// One way out of the program: a command, the form that its dialog asks for, and a file.
struct Export {
  int Command;
  const char* Dialog;
  int List;  // of forms
  const char* Form;
  const char* FileDialog;
  const char* File;
};

constexpr Export kExports[] = {
    {kExportText, "Export Text", 3, "Excel",
     "Export duration histogram as:", "duration_histogram.txt"},
    {kExportText, "Export Text", 3, "Igor",
     "Export duration histogram as:", "duration_histogram.itx"},
    {kExportGraph, "Export Graph", 8, "EPS", "Export EPS as:", "duration_histogram.eps"},
    {kExportGraph, "Export Graph", 8, "Adobe Illustrator",
     "Export window as:", "duration_histogram.ai"},
    {kExportGraph, "Export Graph", 8, "Metafile", "Export PICT as:", "duration_histogram.wmf"},
    {kSaveLevels, "Save Levels", 3, "Ond", "Save level list as:", "levels.evt"},
};

void Write(const Program& program, const Export& way, const std::string& path) {
  std::filesystem::remove(path);  // or the platform asks whether to replace it
  program.Command(way.Command);
  const Dialog dialog = program.WaitForDialog(way.Dialog);
  dialog.Choose(way.List, way.Form);
  dialog.Leave(kOkButton);
  ChooseFile(program.WaitForDialog(way.FileDialog), path);
  program.ToForeground();
  program.Settle(program.View(kDurationTwin.Histogram));
  if (!program.Dialogs().empty()) Fail("an export was not taken: " + program.Describe());
  if (std::filesystem::file_size(path) == 0) Fail("nothing was written to " + path);
}

}  // namespace

void ExportFit(const Program& program, const std::string& output) {
  program.Command(kDurationTwin.View);
  program.WaitForTopView(kDurationTwin.Histogram);
  for (const Export& way : kExports) {
    Write(program, way, output + "\\" + way.File);
    Tell(std::string("  ") + way.File);
  }
}

}  // namespace ondrel::e2e
