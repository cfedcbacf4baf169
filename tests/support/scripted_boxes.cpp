// Texts, boxes and the platform's own dialogs of the scripted shell.
#include <cstdio>

#include "support/scripted_shell.h"
#include "workspace/records.h"

namespace ondrel::toolkit {

using scripted::TheShell;

namespace {

struct TextRow {
  int Id;
  const char* Text;
};

constexpr TextRow kTexts[] = {
#define ONDREL_TEXT(id, text) {id, text},
#include "resources/strings.inc"
#undef ONDREL_TEXT
};

void CopyText(const char* text, char* buffer, std::size_t size) {
  std::snprintf(buffer, size, "%s", text);
}

}  // namespace

void LoadText(int id, char* buffer, std::size_t size) {
  CopyText("", buffer, size);
  for (const TextRow& row : kTexts) {
    if (row.Id == id) CopyText(row.Text, buffer, size);
  }
}

BoxAnswer ShowBox(FrameWindow* frame, const char* text, BoxButtons buttons, BoxIcon icon,
                  int defaultButton) {
  TheShell().Boxes.push_back({text, buttons, icon, defaultButton, frame});
  if (TheShell().WhileBoxStands) TheShell().WhileBoxStands(frame);
  if (TheShell().Answers.empty()) return BoxAnswer::Yes;
  const BoxAnswer answer = TheShell().Answers.front();
  TheShell().Answers.pop_front();
  return answer;
}

bool AskFile(FrameWindow*, FileDialogMode mode, const char* title, const char* defaultName,
             char* path) {
  TheShell().FileDialogs.push_back({mode, title, defaultName});
  if (TheShell().FileChoices.empty()) return false;
  const std::string choice = TheShell().FileChoices.front();
  TheShell().FileChoices.pop_front();
  if (choice.empty()) return false;
  CopyText(choice.c_str(), path, kPathSize);
  return true;
}

bool AskColor(FrameWindow*, const char* label, RgbColor* color) {
  TheShell().ColorLabels.push_back(label);
  if (TheShell().ColorChoices.empty()) return false;
  *color = TheShell().ColorChoices.front();
  TheShell().ColorChoices.pop_front();
  return true;
}

}  // namespace ondrel::toolkit
