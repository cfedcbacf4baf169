// Where Windows enters the program.
#include "shell/application.h"
#include "shell/win32/win32.h"

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  if (!ondrel::win32::RegisterWindowClasses(instance)) return -1;
  return ondrel::RunApplication(instance);
}
