// Works dialogs through the messages of their controls.
#include "dialog.h"

#include <array>

#include "picture.h"
#include "wait.h"

namespace ondrel::e2e {
namespace {

constexpr int kBoxText = 65535;
constexpr int kBoxIcon = 1088;
constexpr int kLastBoxButton = 11;

struct StockIcon {
  BoxIcon Icon;
  LPCSTR Resource;
};

const std::array<StockIcon, 4>& StockIcons() {
  static const std::array<StockIcon, 4> icons{{{BoxIcon::Stop, IDI_HAND},
                                               {BoxIcon::Exclamation, IDI_EXCLAMATION},
                                               {BoxIcon::Information, IDI_ASTERISK},
                                               {BoxIcon::Question, IDI_QUESTION}}};
  return icons;
}

/// A stock icon as a dialog draws it.
Picture DrawIconPicture(LPCSTR resource, int width, int height) {
  const HDC screen = GetDC(nullptr);
  const HDC dc = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ before = SelectObject(dc, bitmap);
  const RECT area{0, 0, width, height};
  FillRect(dc, &area, GetSysColorBrush(COLOR_BTNFACE));
  DrawIconEx(dc, 0, 0, LoadIconA(nullptr, resource), width, height, 0, nullptr, DI_NORMAL);
  Picture picture{width, height, {}};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const COLORREF color = GetPixel(dc, x, y);
      picture.Pixels.push_back(static_cast<std::uint32_t>(
          (GetRValue(color) << 16) | (GetGValue(color) << 8) | GetBValue(color)));
    }
  }
  SelectObject(dc, before);
  DeleteObject(bitmap);
  DeleteDC(dc);
  ReleaseDC(nullptr, screen);
  return picture;
}

/// Whether nearly all pixels are the same: shades of a smooth edge may differ.
bool LooksLike(const Picture& seen, const Picture& expected) {
  if (seen.Pixels.empty() || seen.Pixels.size() != expected.Pixels.size()) return false;
  std::size_t same = 0;
  for (std::size_t i = 0; i < seen.Pixels.size(); ++i) {
    if (seen.Pixels[i] == expected.Pixels[i]) ++same;
  }
  return same * 10 >= seen.Pixels.size() * 9;
}

// --- Controls in words ---------------------------------------------------------------------------

std::string WithoutMnemonic(std::string text) {
  std::erase(text, '&');
  return text;
}

std::string Caption(const Window& control) {
  const std::string text = WithoutMnemonic(control.Text());
  const bool on = control.Send(BM_GETCHECK) == BST_CHECKED;
  switch (GetWindowLongA(control.Handle(), GWL_STYLE) & BS_TYPEMASK) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
      return (on ? "[x] " : "[ ] ") + text;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
      return (on ? "(o) " : "( ) ") + text;
    case BS_GROUPBOX:
      return "";
    default:
      return control.Text();
  }
}

/// Asked in the wide form: Wine hands over the wide text whatever form was asked for.
std::string ListText(const Window& list, int place) {
  std::array<wchar_t, 256> text{};
  DWORD_PTR length = 0;
  SendMessageTimeoutW(list.Handle(), CB_GETLBTEXT, static_cast<WPARAM>(place),
                      reinterpret_cast<LPARAM>(text.data()), SMTO_NORMAL, kPatience, &length);
  std::string narrow;
  for (std::size_t i = 0; i < text.size() && text[i] != 0; ++i) {
    narrow += static_cast<char>(text[i]);
  }
  return narrow;
}

std::string Choices(const Window& list) {
  const int count = static_cast<int>(list.Send(CB_GETCOUNT));
  const int chosen = static_cast<int>(list.Send(CB_GETCURSEL));
  std::string line;
  for (int place = 0; place < count; ++place) {
    const std::string text = ListText(list, place);
    line += (place > 0 ? ", " : "") + (place == chosen ? "[" + text + "]" : text);
  }
  return line;
}

/// Empty for what is no control to the user.
std::string InWords(const Window& control) {
  const std::string kind = control.ClassName();
  if (kind == "Static") return WithoutMnemonic(control.Text());
  const std::string what = kind == "Edit"       ? "\"" + control.Text() + "\""
                           : kind == "ComboBox" ? Choices(control)
                                                : Caption(control);
  if (what.empty()) return "";
  return std::to_string(GetDlgCtrlID(control.Handle())) + " " + what;
}

}  // namespace

Window Dialog::Require(int id) const {
  const Window control = window_.Control(id);
  if (!control.Exists()) {
    Fail("the dialog '" + Title() + "' has no control " + std::to_string(id));
  }
  return control;
}

bool Dialog::IsChecked(int id) const {
  return Require(id).Send(BM_GETCHECK) == BST_CHECKED;
}

std::vector<std::string> Dialog::Lines() const {
  std::vector<std::string> lines;
  for (const Window& control : window_.Children()) {
    const std::string line = InWords(control);
    if (!line.empty()) lines.push_back(line);
  }
  return lines;
}

int Dialog::Focused() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(window_.Handle(), nullptr), &info);
  return GetParent(info.hwndFocus) == window_.Handle() ? GetDlgCtrlID(info.hwndFocus) : 0;
}

void Dialog::Choose(int id, const std::string& text) const {
  const Window list = Require(id);
  const auto count = static_cast<int>(list.Send(CB_GETCOUNT));
  list.Send(WM_KEYDOWN, VK_HOME);
  for (int step = 0; step < count && list.Text() != text; ++step) list.Send(WM_KEYDOWN, VK_DOWN);
  if (list.Text() != text) Fail("list " + std::to_string(id) + " has no '" + text + "'");
}

void Dialog::Type(int id, const std::string& text) const {
  const Window field = Require(id);
  field.Send(EM_SETSEL, 0, -1);
  if (text.empty()) field.Send(WM_CLEAR);
  for (const char character : text) {
    field.Send(WM_CHAR, static_cast<WPARAM>(static_cast<unsigned char>(character)), 1);
  }
  WaitFor("field " + std::to_string(id) + " to hold '" + text + "'",
          [&] { return field.Text() == text; });
}

void Dialog::Press(int id) const {
  const Window button = Require(id);
  if (!button.Enabled()) Fail("button " + std::to_string(id) + " of '" + Title() + "' is greyed");
  button.Post(BM_CLICK);
}

void Dialog::Leave(int id) const {
  Press(id);
  WaitUntilGone();
}

void Dialog::WaitUntilGone() const {
  DWORD process = 0;
  GetWindowThreadProcessId(window_.Handle(), &process);
  WaitFor(
      "the dialog '" + Title() + "' to close", [this] { return !window_.Visible(); },
      [process] { return "there are" + DescribeDialogs(process); });
}

bool Box::Is(Window window) {
  return window.ClassName() == "#32770" && window.Control(kBoxText).Exists();
}

std::string Box::Text() const {
  return dialog_.Text(kBoxText);
}

std::vector<int> Box::Buttons() const {
  std::vector<int> buttons;
  for (int id = 1; id <= kLastBoxButton; ++id) {
    if (dialog_.Frame().Control(id).Visible()) buttons.push_back(id);
  }
  return buttons;
}

BoxIcon Box::Icon() const {
  const Window field = dialog_.Frame().Control(kBoxIcon);
  if (!field.Visible()) return BoxIcon::None;
  BoxIcon found = BoxIcon::None;
  WaitFor("the icon of the box '" + Text() + "' to be seen", [&] {
    const Rect area = field.ClientArea();  // a window manager may still move the box
    const Picture seen = TakeScreen(area);
    for (const StockIcon& stock : StockIcons()) {
      if (LooksLike(seen, DrawIconPicture(stock.Resource, area.Width(), area.Height()))) {
        found = stock.Icon;
      }
    }
    return found != BoxIcon::None;
  });
  return found;
}

std::vector<Window> VisibleDialogs(DWORD process) {
  std::vector<Window> dialogs;
  for (const Window& window : TopLevelWindows(process)) {
    if (window.Visible() && window.ClassName() == "#32770") dialogs.push_back(window);
  }
  return dialogs;
}

std::string DescribeDialogs(DWORD process) {
  std::string text;
  for (const Window& window : VisibleDialogs(process)) {
    text += Box::Is(window) ? ", a box '" + Box(window).Text() + "'"
                            : ", the dialog '" + window.Title() + "'";
  }
  return text;
}

void ChooseFile(const Dialog& dialog, const std::string& path) {
  const Window field = dialog.Frame().Control(kFileNameField);
  WaitFor("the file dialog to take the path " + path, [&] {
    field.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    return field.Text() == path;
  });
  dialog.Leave(kOkButton);
}

}  // namespace ondrel::e2e
