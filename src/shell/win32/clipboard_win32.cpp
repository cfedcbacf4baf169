// The clipboard, which takes pictures.
#include "shell/toolkit.h"
#include "shell/win32/win32.h"

namespace ondrel::toolkit {
namespace {

/// What the clipboard wants to know of a picture, in memory that can be handed over to it. Null
/// without memory.
HGLOBAL DescribePicture(const METAFILEPICT& picture) {
  HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sizeof(METAFILEPICT));
  if (memory == nullptr) return nullptr;
  auto* place = static_cast<METAFILEPICT*>(GlobalLock(memory));
  if (place == nullptr) {
    GlobalFree(memory);
    return nullptr;
  }
  *place = picture;
  GlobalUnlock(memory);
  return memory;
}

}  // namespace

bool OpenClipboard(FrameWindow* frame) {
  return ::OpenClipboard(win32::OwnerHandle(frame)) != FALSE;
}

bool EmptyClipboard() {
  return ::EmptyClipboard() != FALSE;
}

bool GiveToClipboard(MetafileHandle metafile, std::int32_t width, std::int32_t height) {
  HGLOBAL memory = DescribePicture(
      {.mm = MM_TEXT, .xExt = width, .yExt = height, .hMF = win32::HandleOf(metafile)});
  if (memory == nullptr) return false;
  if (SetClipboardData(CF_METAFILEPICT, memory) != nullptr) return true;
  GlobalFree(memory);
  return false;
}

bool CloseClipboard() {
  return ::CloseClipboard() != FALSE;
}

}  // namespace ondrel::toolkit
