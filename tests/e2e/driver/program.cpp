// Starts and ends the program, finds its windows and gives it commands.
#include "program.h"

#include <shlobj.h>

#include <algorithm>
#include <array>
#include <filesystem>

namespace ondrel::e2e {
namespace {

constexpr const char* kWelcome = "Welcome to Ondrel for Windows X4.3.3!";
constexpr int kFileOpen = 51713;
constexpr int kFileExit = 51730;
constexpr int kSettingsOk = 2;

std::string OwnFolder() {
  std::array<char, MAX_PATH> path{};
  GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
  return std::filesystem::path(path.data()).parent_path().string();
}

}  // namespace

std::string NativePath(const std::string& path) {
  if (path.empty() || path[0] != '/') return path;
  std::string native = "Z:" + path;
  std::replace(native.begin(), native.end(), '/', '\\');
  return native;
}

std::string Environment(const char* name) {
  std::array<char, 1024> value{};
  GetEnvironmentVariableA(name, value.data(), static_cast<DWORD>(value.size()));
  return value.data();
}

std::string ExecutablePath() {
  const std::string named = Environment("ONDREL_EXE");
  if (!named.empty()) return NativePath(named);
  std::filesystem::path folder = OwnFolder();
  for (int level = 0; level < 4; ++level) {
    if (std::filesystem::exists(folder / "Ondrel.exe")) return (folder / "Ondrel.exe").string();
    folder = folder.parent_path();
  }
  Fail("there is no Ondrel.exe in " + OwnFolder() + " or above it; ONDREL_EXE can name one");
}

std::string PreferencePath() {
  std::array<char, MAX_PATH> folder{};
  SHGetFolderPathA(nullptr, CSIDL_APPDATA, nullptr, 0, folder.data());
  return std::string(folder.data()) + "\\Halmere\\Ondrel.set";
}

void ForgetPreferences() {
  DeleteFileA(PreferencePath().c_str());
}

Program::Program(FormerRuns former) {
  if (former == FormerRuns::Forgotten) ForgetPreferences();
  Start(ExecutablePath());
  Await("the frame window to be made", [this] {
    for (const Window& window : TopLevelWindows(process_.dwProcessId)) {
      if (window.ClassName() == "Frame Window") frame_ = window;
    }
    return frame_.Exists();
  });
  inside_ = std::make_unique<Inside>(frame_);
}

void Program::Start(const std::string& executable) {
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  std::string command = "\"" + executable + "\"";
  std::array<char, MAX_PATH> folder{};
  GetTempPathA(static_cast<DWORD>(folder.size()), folder.data());
  // Detached, or the program would hold the driver's output open after the driver's end.
  if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, DETACHED_PROCESS, nullptr,
                     folder.data(), &startup, &process_) == 0) {
    Fail("the program " + executable + " does not start, error " + std::to_string(GetLastError()));
  }
}

Program::~Program() {
  inside_.reset();
  if (Running()) {
    TerminateProcess(process_.hProcess, 99);
    WaitForSingleObject(process_.hProcess, kPatience);
  }
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

void Program::PassStart() {
  WaitForBox(kWelcome).Answer(kOkButton);
  PassLaterStart();
}

void Program::PassLaterStart() {
  WaitForDialog("File Settings").Leave(kSettingsOk);
  Await("the frame to show", [this] { return frame_.Visible() && frame_.Enabled(); });
  ToForeground();
}

void Program::Open(const std::string& path) {
  Command(kFileOpen);
  ChooseFile(WaitForDialog("Data file:"), path);
}

bool Program::Running() const {
  return process_.hProcess != nullptr && WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT;
}

void Program::Await(const std::string& what, const Condition& condition) const {
  WaitFor(
      what,
      [&] {
        if (condition()) return true;
        if (!Running()) Fail("the program ended while waited for was " + what);
        return false;
      },
      [this] { return Describe(); });
}

std::string Program::Describe() const {
  if (!Running()) return "the program has ended";
  std::string text = "the program shows";
  if (frame_.Visible()) text += " its frame at " + ToText(frame_.Place());
  for (const std::string& title : ViewTitles()) text += ", the view '" + title + "'";
  return text + DescribeDialogs(process_.dwProcessId);
}

std::vector<std::string> Program::ViewTitles() const {
  std::vector<std::string> titles;
  for (const Window& child : frame_.Children()) titles.push_back(child.Title());
  return titles;
}

bool Program::IsOpen(const std::string& title) const {
  const std::vector<std::string> titles = ViewTitles();
  return std::find(titles.begin(), titles.end(), title) != titles.end();
}

Window Program::View(const std::string& title) const {
  Window found;
  Await("the view '" + title + "' to open", [&] {
    for (const Window& child : frame_.Children()) {
      if (child.Title() == title) found = child;
    }
    return found.Exists();
  });
  return found;
}

void Program::WaitForTopView(const std::string& title) const {
  Await("the view '" + title + "' to be on top", [&] {
    const std::vector<std::string> titles = ViewTitles();
    return !titles.empty() && titles.front() == title;
  });
}

void Program::WaitForNoView(const std::string& title) const {
  Await("the view '" + title + "' to close", [&] { return !IsOpen(title); });
}

void Program::WaitForViews(const std::vector<std::string>& titles) const {
  std::string list;
  for (const std::string& title : titles) list += " '" + title + "'";
  Await("the views to be, from the top," + (list.empty() ? " none" : list),
        [&] { return ViewTitles() == titles; });
}

std::vector<Window> Program::Dialogs() const {
  return VisibleDialogs(process_.dwProcessId);
}

Dialog Program::WaitForDialog(const std::string& title) const {
  Window found;
  Await("the dialog '" + title + "'", [&] {
    for (const Window& window : Dialogs()) {
      if (!Box::Is(window) && window.Enabled() && window.Title() == title) found = window;
    }
    return found.Exists();
  });
  return Dialog(found);
}

Box Program::WaitForBox(const std::string& text) const {
  Window found;
  Await("a box with the text '" + text + "'", [&] {
    for (const Window& window : Dialogs()) {
      if (Box::Is(window) && Box(window).Text() == text) found = window;
    }
    return found.Exists();
  });
  return Box(found);
}

int Program::WaitForEnd() {
  WaitFor(
      "the program to end", [this] { return !Running(); }, [this] { return Describe(); });
  DWORD code = 0;
  GetExitCodeProcess(process_.hProcess, &code);
  return static_cast<int>(code);
}

int Program::Exit() {
  Command(kFileExit);
  return WaitForEnd();
}

}  // namespace ondrel::e2e
