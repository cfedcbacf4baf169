#include "support/scripted_shell.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <tuple>

namespace ondrel::scripted {

bool Fault::Strikes() {
  ++Calls;
  if (Next == 0) return false;
  if (Next > 1) {
    --Next;
    return false;
  }
  if (!Lasting) Next = 0;
  return true;
}

bool MenuEntryState::operator<(const MenuEntryState& other) const {
  return std::tie(Popup, Entry, SubEntry) < std::tie(other.Popup, other.Entry, other.SubEntry);
}

Shell::~Shell() = default;

namespace {
std::unique_ptr<Shell>& Holder() {
  static std::unique_ptr<Shell> shell = std::make_unique<Shell>();
  return shell;
}
}  // namespace

Shell& TheShell() {
  return *Holder();
}
void ResetShell() {
  Holder() = std::make_unique<Shell>();
}

}  // namespace ondrel::scripted

namespace ondrel::toolkit {

using scripted::TheShell;

void* AllocateZeroed(std::size_t count, std::size_t size) {
  if (TheShell().Allocation.Strikes()) return nullptr;
  if (size != 0 && count > TheShell().LargestAllocation / size) return nullptr;
  void* memory = std::calloc(std::max<std::size_t>(count, 1), size);
  if (memory != nullptr) ++TheShell().LiveAllocations;
  return memory;
}

void FreeMemory(void* memory) {
  if (memory == nullptr) return;
  --TheShell().LiveAllocations;
  if (auto* const freed = TheShell().Freed) freed->push_back(memory);
  std::free(memory);
}

void SetWaitCursor(bool waiting) {
  TheShell().Waiting = waiting;
  ++TheShell().WaitCursorChanges;
}

std::uint32_t DoubleClickTime() {
  return TheShell().DoubleClickTime;
}
std::uint32_t TickCount() {
  return TheShell().Ticks;
}
std::int32_t MinimumWindowHeight() {
  return 27;
}
double ScreenDpi() {
  return scripted::kScreenDpi;
}

}  // namespace ondrel::toolkit
