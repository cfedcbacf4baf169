// Memory and the texts of the string table.
#include <limits>

#include "shell/toolkit.h"
#include "shell/win32/win32.h"

namespace ondrel::toolkit {

void* AllocateZeroed(std::size_t count, std::size_t size) {
  if (size != 0 && count > std::numeric_limits<std::size_t>::max() / size) return nullptr;
  // The process heap takes large blocks from the system one by one and gives them back when freed.
  return HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, count * size);
}

void FreeMemory(void* memory) {
  if (memory != nullptr) HeapFree(GetProcessHeap(), 0, memory);
}

void LoadText(int id, char* buffer, std::size_t size) {
  if (size == 0) return;
  buffer[0] = '\0';
  LoadStringA(win32::Module(), static_cast<UINT>(id), buffer, static_cast<int>(size));
}

}  // namespace ondrel::toolkit
