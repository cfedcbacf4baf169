#include "shell/export_dialogs.h"

#include <cstddef>

#include "shell/dialog_fields.h"
#include "workspace/units.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

// --- Graphs --------------------------------------------------------------------------------------

/// The private copy of what "Export Graph" asks for.
struct GraphExport {
  double Height;  // cm
  double Width;   // cm
  ExportChoice Type;
  double Resolution;  // dots per inch
};

constexpr double kLargestSize = 1e20;  // cm
constexpr NumberRule kHeightRule{.Low = 3.0, .High = kLargestSize};
constexpr NumberRule kWidthRule{.Low = 5.0, .High = kLargestSize};
constexpr const char* kGraphForms[] = {"Adobe Illustrator", "Clipboard", "EPS", "Metafile"};

constexpr DialogField kGraphFields[] = {
    RealField(5, offsetof(GraphExport, Height), kHeightRule),
    RealField(7, offsetof(GraphExport, Width), kWidthRule),
    ListField(8, offsetof(GraphExport, Type), kGraphForms),
    RealField(11, offsetof(GraphExport, Resolution), kPositive),
};
constexpr DialogTable kGraphDialog{.Resource = 131, .Fields = kGraphFields};

// --- Texts and levels ----------------------------------------------------------------------------

constexpr const char* kTextForms[] = {"Excel", "Igor"};
constexpr DialogField kTextFields[] = {
    ListField(3, offsetof(Workspace, TextExportType), kTextForms),
    CheckField(4, offsetof(Workspace, LimitToWindow)),
};
constexpr DialogTable kTextDialog{.Resource = 129, .Fields = kTextFields};

constexpr const char* kLevelForms[] = {"QUB", "Ond"};
constexpr DialogField kLevelFields[] = {
    ListField(3, offsetof(Workspace, LevelFileType), kLevelForms),
};
constexpr DialogTable kLevelDialog{.Resource = 144, .Fields = kLevelFields};

}  // namespace

bool AskGraphExport(FrameWindow* frame, const IntRect& client, PictureSize* size) {
  Workspace& workspace = *frame->Owner;
  const double dpi = workspace.ScreenDpi;
  GraphExport entered = {.Height = Height(client) * kCentimetersPerInch / dpi,
                         .Width = Width(client) * kCentimetersPerInch / dpi,
                         .Type = workspace.ExportType,
                         .Resolution = workspace.ExportDpi == 0.0 ? dpi : workspace.ExportDpi};
  if (!EditSettings(frame, kGraphDialog, entered)) return false;
  workspace.ExportType = entered.Type;
  workspace.ExportDpi = entered.Resolution;
  *size = {.Height = entered.Height, .Width = entered.Width};
  return true;
}

bool AskTextExport(FrameWindow* frame) {
  return EditSettings(frame, kTextDialog, *frame->Owner);
}

bool AskLevelFile(FrameWindow* frame) {
  return EditSettings(frame, kLevelDialog, *frame->Owner);
}

}  // namespace ondrel
