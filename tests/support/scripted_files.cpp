// Files, texts and boxes of the scripted shell.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "support/scripted_shell.h"
#include "workspace/records.h"

namespace ondrel::toolkit {

using scripted::TheShell;

namespace {

// Error codes as the platform has them.
constexpr std::int32_t kNoFile = 2;
constexpr std::int32_t kNoPath = 3;
constexpr std::int32_t kNoAccess = 5;
constexpr std::int32_t kReadFault = 23;
constexpr std::int32_t kDiskFull = 112;

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

std::int32_t OpenFileForReading(const char* path, FileHandle* file) {
  if (TheShell().Open.Strikes()) return kNoAccess;
  std::FILE* stream = std::fopen(path, "rb");
  if (stream == nullptr) return errno == ENOENT ? kNoFile : kNoAccess;
  ++TheShell().OpenFiles;
  file->Handle = stream;
  return 0;
}

std::int32_t FileSize(FileHandle file, std::uint64_t* bytes) {
  if (TheShell().Size.Strikes()) return kReadFault;
  auto* stream = static_cast<std::FILE*>(file.Handle);
  if (std::fseek(stream, 0, SEEK_END) != 0) return kReadFault;
  *bytes = static_cast<std::uint64_t>(std::ftell(stream));
  return 0;
}

std::int32_t SeekToStart(FileHandle file) {
  if (TheShell().Seek.Strikes()) return kReadFault;
  return std::fseek(static_cast<std::FILE*>(file.Handle), 0, SEEK_SET) == 0 ? 0 : kReadFault;
}

std::int32_t ReadBytes(FileHandle file, void* buffer, std::size_t bytes) {
  if (TheShell().Read.Strikes()) return kReadFault;
  const std::size_t got = std::fread(buffer, 1, bytes, static_cast<std::FILE*>(file.Handle));
  return got == bytes ? 0 : kReadFault;
}

std::int32_t CloseFile(FileHandle file) {
  if (file.Handle == nullptr) return 0;
  --TheShell().OpenFiles;
  const bool closed = std::fclose(static_cast<std::FILE*>(file.Handle)) == 0;
  return closed && !TheShell().Close.Strikes() ? 0 : kReadFault;
}

std::int32_t CreateEmptyFile(const char* path) {
  if (TheShell().Create.Strikes()) return kNoAccess;
  std::FILE* stream = std::fopen(path, "wb");
  if (stream == nullptr) return errno == ENOENT ? kNoPath : kNoAccess;
  std::fclose(stream);
  return 0;
}

std::int32_t OpenFileForWriting(const char* path, FileHandle* file) {
  if (TheShell().OpenForWriting.Strikes()) return kNoAccess;
  std::FILE* stream = std::fopen(path, "r+b");
  if (stream == nullptr) return errno == ENOENT ? kNoFile : kNoAccess;
  ++TheShell().OpenFiles;
  file->Handle = stream;
  return 0;
}

std::int32_t WriteBytes(FileHandle file, const void* bytes, std::size_t count) {
  if (TheShell().Write.Strikes()) return kDiskFull;
  const std::size_t put = std::fwrite(bytes, 1, count, static_cast<std::FILE*>(file.Handle));
  return put == count ? 0 : kDiskFull;
}

std::int32_t RemoveFile(const char* path) {
  return std::remove(path) == 0 ? 0 : kNoFile;
}

std::int32_t FindUserFile(const char* folder, const char* name, char* path) {
  if (TheShell().UserFolder.empty() || TheShell().UserFolderFault.Strikes()) return kNoPath;
  const std::filesystem::path place = std::filesystem::path(TheShell().UserFolder) / folder;
  std::error_code failure;
  std::filesystem::create_directory(place, failure);
  if (failure) return kNoAccess;
  CopyText((place / name).string().c_str(), path, kPathSize);
  return 0;
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

namespace ondrel::scripted {

OpenDialog::OpenDialog(int resource, const toolkit::DialogOperations& operations, void* user)
    : resource_(resource), operations_(operations), user_(user) {
  Record.Handle = this;
}

void OpenDialog::Initialize() {
  result_ = operations_.Initialize(Record, user_);
}

void OpenDialog::Command(int control) {
  if (result_ != 0) return;
  if (operations_.Command(Record, control, user_) != 0) result_ = control;
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

bool SetControlText(DialogRecord& dialog, int control, const char* text) {
  if (TheShell().ControlText.Strikes()) return false;
  DialogOf(dialog).At(control).Text = text;
  return true;
}

void GetControlText(DialogRecord& dialog, int control, char* text, std::size_t size) {
  CopyText(DialogOf(dialog).At(control).Text.c_str(), text, size);
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
