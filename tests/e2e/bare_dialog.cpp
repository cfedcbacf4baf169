#include "bare_dialog.h"

#include <string>

namespace ondrel::e2e {
namespace {

INT_PTR CALLBACK LeaveToWindows(HWND, UINT, WPARAM, LPARAM) {
  return FALSE;
}

BOOL CALLBACK NoteNumber(HMODULE, LPCSTR, LPSTR name, LONG_PTR numbers) {
  const auto number = static_cast<int>(reinterpret_cast<ULONG_PTR>(name));
  reinterpret_cast<std::vector<int>*>(numbers)->push_back(number);
  return TRUE;
}

}  // namespace

Resources::Resources()
    : program_(LoadLibraryExA(ExecutablePath().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE)) {
  if (program_ == nullptr) Fail("the program cannot be read");
}

std::vector<int> Resources::Numbers(LPCSTR kind) const {
  std::vector<int> numbers;
  EnumResourceNamesA(program_, kind, NoteNumber, reinterpret_cast<LONG_PTR>(&numbers));
  return numbers;
}

BareDialog::BareDialog(const Resources& resources, int number)
    : handle_(CreateDialogParamA(resources.Module(), MAKEINTRESOURCEA(number), nullptr,
                                 LeaveToWindows, 0)) {
  if (handle_ == nullptr) Fail("there is no dialog " + std::to_string(number));
}

}  // namespace ondrel::e2e
