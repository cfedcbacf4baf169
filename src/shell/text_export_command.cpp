#include "shell/text_export_command.h"

#include "output/text_export.h"
#include "shell/export_dialogs.h"
#include "shell/toolkit.h"
#include "views/view_window.h"
#include "workspace/records.h"
#include "workspace/workspace.h"

namespace ondrel {

void ExportTextCommand(FrameWindow* frame) {
  if (!AskTextExport(frame)) return;
  const Workspace& workspace = *frame->Owner;
  ViewKind kind;
  if (!FindActiveView(workspace, &kind)) return;
  char path[kPathSize];
  const char* name = OfferedTextName(kind, workspace.TextExportType);
  if (!toolkit::AskFile(frame, toolkit::FileDialogMode::Save, TextExportOf(kind).Title, name,
                        path)) {
    return;
  }
  ExportText(frame, kind, path);
}

}  // namespace ondrel
