#include "output/documents.h"

#include <string_view>

#include "output/document_lines.h"
#include "workspace/output_file.h"

namespace ondrel {
namespace {

/// Takes x, y and a text from the stack and shows the text so that it ends at x.
constexpr std::string_view kRightShow[] = {
    "/right_show {", "  dup", "  stringwidth pop", "  4 -1 roll exch sub", "  3 -1 roll moveto",
    "  show",        "} def",
};

/// Left, top, right and bottom: the top stands where other programs expect the lower edge.
void PutBox(GraphicsContext& context, std::string_view name, const IntRect& box) {
  PutText(context, name);
  for (const std::int32_t edge : {box.Left, box.Top, box.Right}) {
    PutInteger(context, edge);
    PutText(context, " ");
  }
  PutInteger(context, box.Bottom);
  PutLine(context, "");
}

void CloseDocument(GraphicsContext& context) {
  const std::int32_t code = CloseOutputFile(*context.File);
  if (context.Status == 0) context.Status = code;
}

}  // namespace

void OpenEpsDocument(GraphicsContext& context, const IntRect& box) {
  PutLine(context, "%!PS-Adobe-3.0 EPSF-3.0");
  PutBox(context, "%%BoundingBox: ", box);
  PutLine(context, "%%EndComments");
  PutLine(context, "%%EndProlog");
  PutLine(context, "30 30 translate");
  for (const std::string_view line : kRightShow) PutLine(context, line);
}

void CloseEpsDocument(GraphicsContext& context) {
  PutLine(context, "showpage");
  PutLine(context, "%%EOF");
  CloseDocument(context);
}

void OpenIllustratorDocument(GraphicsContext& context, const IntRect& box,
                             const IntRect& templateBox) {
  PutLine(context, "%!PS-Adobe-2.0 EPSF-1.2");
  PutLine(context, "%%DocumentProcSets: Adobe_Illustrator_1.1 0 0");
  PutBox(context, "%%BoundingBox: ", box);
  PutBox(context, "%%TemplateBox: ", templateBox);
  PutLine(context, "%%EndComments");
  PutLine(context, "%%EndProlog");
}

void RestoreIllustratorClip(GraphicsContext& context) {
  PutLine(context, "Q");
}

void CloseIllustratorDocument(GraphicsContext& context) {
  PutLine(context, "%%Trailer");
  CloseDocument(context);
}

}  // namespace ondrel
