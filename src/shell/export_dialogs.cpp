#include "shell/export_dialogs.h"

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
    RealField<&GraphExport::Height>(5, kHeightRule),
    RealField<&GraphExport::Width>(7, kWidthRule),
    ListField<&GraphExport::Type>(8, kGraphForms),
    RealField<&GraphExport::Resolution>(11, kPositive),
};
constexpr DialogTable kGraphDialog{.Resource = 131, .Fields = kGraphFields};

// --- Texts and levels ----------------------------------------------------------------------------

constexpr const char* kTextForms[] = {"Excel", "Igor"};
constexpr DialogField kTextFields[] = {
    ListField<&Workspace::TextExportType>(3, kTextForms),
    CheckField<&Workspace::LimitToWindow>(4),
};
constexpr DialogTable kTextDialog{.Resource = 129, .Fields = kTextFields};

constexpr const char* kLevelForms[] = {"QUB", "Ond"};
constexpr DialogField kLevelFields[] = {
    ListField<&Workspace::LevelFileType>(3, kLevelForms),
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
