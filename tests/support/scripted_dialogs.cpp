// Dialogs of the scripted shell: those that stop the program and those that stand beside it.
#include <cstdio>
#include <memory>
#include <string>

#include "support/scripted_shell.h"

namespace ondrel::scripted {

namespace {
constexpr int kDestroyed = -1;
}  // namespace

OpenDialog::OpenDialog(int resource, const toolkit::DialogOperations& operations, void* user)
    : resource_(resource), operations_(operations), user_(user) {
  Record.Handle = this;
}

OpenDialog::OpenDialog(int resource, const toolkit::DialogOperations& operations, void* user,
                       toolkit::DialogRecord& record)
    : OpenDialog(resource, operations, user) {
  theirs_ = &record;
  theirs_->Handle = this;
}

OpenDialog* DialogBeside() {
  for (const auto& dialog : TheShell().DialogsBeside) {
    if (dialog->IsOpen()) return dialog.get();
  }
  return nullptr;
}

void OpenDialog::Initialize() {
  const int result = operations_.Initialize(theirs_ == nullptr ? Record : *theirs_, user_);
  if (result != 0) End(result);
}

void OpenDialog::End(int result) {
  result_ = result;
  if (theirs_ == nullptr) return;
  theirs_->Handle = nullptr;
  Note("dialog " + std::to_string(resource_) + " is gone");
}

void OpenDialog::Destroy() {
  if (IsOpen()) End(kDestroyed);
}

void OpenDialog::Command(int control) {
  if (!IsOpen()) return;
  const int result = operations_.Command(theirs_ == nullptr ? Record : *theirs_, control, user_);
  if (result != 0 && IsOpen()) End(control);
}

void OpenDialog::Type(int control, const std::string& text) {
  At(control).Text = text;
  Command(control);
}

void OpenDialog::Choose(int control, int place) {
  At(control).Shown = place;
  Command(control);
}

void OpenDialog::Escape() {
  Command(operations_.CancelControl);
}

void OpenDialog::Press(int control) {
  if (At(control).Enabled) Command(control);
}

}  // namespace ondrel::scripted

namespace ondrel::toolkit {

using scripted::TheShell;

namespace {
scripted::OpenDialog& DialogOf(DialogRecord& dialog) {
  return *static_cast<scripted::OpenDialog*>(dialog.Handle);
}
}  // namespace

int RunDialog(FrameWindow*, int resource, const DialogOperations& operations, void* user) {
  TheShell().Dialogs.push_back(resource);
  scripted::OpenDialog dialog(resource, operations, user);
  dialog.Initialize();
  if (dialog.Result() != 0) return dialog.Result();
  if (!TheShell().DialogScripts.empty()) {
    const auto script = TheShell().DialogScripts.front();
    TheShell().DialogScripts.pop_front();
    script(dialog);
  }
  if (dialog.Result() == 0) dialog.Escape();
  return dialog.Result();
}

bool OpenDialog(FrameWindow*, int resource, const DialogOperations& operations, void* user,
                DialogRecord& dialog) {
  if (TheShell().OpenDialogBeside.Strikes()) return false;
  TheShell().Dialogs.push_back(resource);
  auto& beside = TheShell().DialogsBeside;
  beside.push_back(std::make_unique<scripted::OpenDialog>(resource, operations, user, dialog));
  scripted::Note("dialog " + std::to_string(resource) + " opens");
  beside.back()->Initialize();
  return dialog.Handle != nullptr;
}

void DestroyDialog(DialogRecord& dialog) {
  if (dialog.Handle != nullptr) DialogOf(dialog).Destroy();
}

bool SetControlText(DialogRecord& dialog, int control, const char* text) {
  if (TheShell().ControlText.Strikes()) return false;
  DialogOf(dialog).At(control).Text = text;
  return true;
}

void GetControlText(DialogRecord& dialog, int control, char* text, std::size_t size) {
  std::snprintf(text, size, "%s", DialogOf(dialog).At(control).Text.c_str());
}

bool SetChecked(DialogRecord& dialog, int control, bool checked) {
  if (TheShell().ControlText.Strikes()) return false;
  DialogOf(dialog).At(control).Checked = checked;
  return true;
}

bool FillList(DialogRecord& dialog, int control, std::span<const char* const> texts, int shown) {
  if (TheShell().ControlText.Strikes()) return false;
  scripted::Control& list = DialogOf(dialog).At(control);
  list.Texts.assign(texts.begin(), texts.end());
  list.Shown = shown;
  return true;
}

int ReadList(DialogRecord& dialog, int control) {
  return DialogOf(dialog).At(control).Shown;
}

void EnableControl(DialogRecord& dialog, int control, bool enabled) {
  DialogOf(dialog).At(control).Enabled = enabled;
}

}  // namespace ondrel::toolkit
