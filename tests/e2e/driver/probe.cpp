// The library that goes into the process of the program under test as a message hook. It looks: it
// asks the platform for what stands in menus and scroll bars, and notes when barrier messages have
// been taken from the queue. It leaves a patch of paint in a window where it is asked to.
#include <cstdio>
#include <cstring>

#include "probe_board.h"

namespace ondrel::e2e {
namespace {

ProbeBoard* OpenBoard() {
  char name[64];
  std::snprintf(name, sizeof name, "%s%lu", kBoardName, GetCurrentProcessId());
  const HANDLE mapping = OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, name);
  if (mapping == nullptr) return nullptr;
  return static_cast<ProbeBoard*>(MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, 0));
}

ProbeBoard* Board() {
  static ProbeBoard* const board = OpenBoard();
  return board;
}

void AddLine(ProbeBoard& board, const char* line) {
  const std::size_t used = std::strlen(board.Lines);
  if (used + std::strlen(line) < sizeof board.Lines) std::strcpy(board.Lines + used, line);
}

void WriteMenu(ProbeBoard& board, HMENU menu, int depth) {
  const int count = GetMenuItemCount(menu);
  for (int place = 0; place < count; ++place) {
    char text[256] = "";
    MENUITEMINFOA item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_STRING;
    item.dwTypeData = text;
    item.cch = sizeof text;
    if (GetMenuItemInfoA(menu, static_cast<UINT>(place), TRUE, &item) == 0) continue;
    char line[400];
    std::snprintf(line, sizeof line, "%d %u %u %u %s\n", depth, item.fState, item.fType,
                  item.hSubMenu != nullptr ? 0U : item.wID, text);
    AddLine(board, line);
    if (item.hSubMenu != nullptr) WriteMenu(board, item.hSubMenu, depth + 1);
  }
}

void WriteScroll(ProbeBoard& board, HWND window) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(window, SB_VERT, &info);
  SCROLLBARINFO bar{};
  bar.cbSize = sizeof bar;
  GetScrollBarInfo(window, OBJID_VSCROLL, &bar);
  board.Scroll = {info.nMin,         info.nMax,      info.nPos,        bar.rcScrollBar,
                  bar.dxyLineButton, bar.xyThumbTop, bar.xyThumbBottom};
}

/// What a program draws anew covers the patch, and what it leaves as it is shows it.
void Smear(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  const LONG left = (client.right - kSmearSide) / 2;
  const LONG top = (client.bottom - kSmearSide) / 2;
  const RECT patch{left, top, left + kSmearSide, top + kSmearSide};
  const HDC dc = GetDC(window);
  const HBRUSH brush = CreateSolidBrush(kSmearColor);
  FillRect(dc, &patch, brush);
  DeleteObject(brush);
  ReleaseDC(window, dc);
}

void Answer(ProbeBoard& board, HWND window, ProbeQuery query) {
  board.Lines[0] = '\0';
  switch (query) {
    case ProbeQuery::MenuBar:
      WriteMenu(board, GetMenu(window), 0);
      break;
    case ProbeQuery::SystemMenu:
      WriteMenu(board, GetSystemMenu(window, FALSE), 0);
      break;
    case ProbeQuery::VerticalScroll:
      WriteScroll(board, window);
      break;
    case ProbeQuery::NeedsPaint:
      board.NeedsPaint = GetUpdateRect(window, nullptr, FALSE);
      break;
    case ProbeQuery::Smear:
      Smear(window);
      break;
  }
  InterlockedIncrement(&board.Answers);
}

/// Holds the program until the driver lets it go on, with all that it has drawn on the screen. A
/// driver that has died does not hold it for ever.
void Pause(ProbeBoard& board) {
  constexpr DWORD kLongest = 30000;  // ms
  constexpr UINT kNobodysMessage = 0xBFFF;
  // What is drawn may be kept back until a look into the queue finds nothing.
  MSG none{};
  PeekMessageA(&none, nullptr, kNobodysMessage, kNobodysMessage, PM_NOREMOVE);
  const DWORD start = GetTickCount();
  InterlockedIncrement(&board.Pauses);
  while (board.Resumes < board.Pauses && GetTickCount() - start < kLongest) Sleep(1);
}

}  // namespace
}  // namespace ondrel::e2e

using namespace ondrel::e2e;

extern "C" __declspec(dllexport) LRESULT CALLBACK
    SentMessageHook(int code, WPARAM wParam, LPARAM lParam) {
  static const UINT probeMessage = RegisterWindowMessageA(kProbeMessage);
  const auto* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code >= 0 && message->message == probeMessage && Board() != nullptr) {
    Answer(*Board(), message->hwnd, static_cast<ProbeQuery>(message->wParam));
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

extern "C" __declspec(dllexport) LRESULT CALLBACK
    QueueHook(int code, WPARAM wParam, LPARAM lParam) {
  static const UINT barrierMessage = RegisterWindowMessageA(kBarrierMessage);
  const auto* message = reinterpret_cast<const MSG*>(lParam);
  if (code >= 0 && wParam == PM_REMOVE && Board() != nullptr) {
    if (message->message == barrierMessage) {
      InterlockedExchange(&Board()->LastBarrier, static_cast<LONG>(message->wParam));
    }
    // Without a window that has the focus, keys arrive as system keys.
    const bool keyDown = message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN;
    if (keyDown && message->wParam == kBarrierKey) InterlockedIncrement(&Board()->BarrierKeys);
    if (keyDown && message->wParam == kPauseKey) Pause(*Board());
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}
