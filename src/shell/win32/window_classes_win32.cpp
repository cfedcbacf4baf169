// The two window classes of the program.
#include "resources/resource_ids.h"
#include "shell/win32/win32.h"

namespace ondrel::win32 {
namespace {

HICON SmallIcon(HINSTANCE instance, int icon) {
  return static_cast<HICON>(LoadImageA(instance, MAKEINTRESOURCEA(icon), IMAGE_ICON,
                                       GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON),
                                       LR_SHARED));
}

bool RegisterWindowClass(HINSTANCE instance, const char* name, WNDPROC procedure, int icon,
                         HBRUSH background) {
  WNDCLASSEXA windowClass{};
  windowClass.cbSize = sizeof(windowClass);
  windowClass.style = CS_HREDRAW | CS_VREDRAW;
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = instance;
  windowClass.hIcon = LoadIconA(instance, MAKEINTRESOURCEA(icon));
  windowClass.hIconSm = SmallIcon(instance, icon);
  windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
  windowClass.hbrBackground = background;
  windowClass.lpszClassName = name;
  return RegisterClassExA(&windowClass) != 0;
}

}  // namespace

bool RegisterWindowClasses(HINSTANCE instance) {
  // A child has no background: its view paints everything.
  return RegisterWindowClass(instance, kFrameClass, FrameProcedure, ONDREL_ICON_APPLICATION,
                             GetSysColorBrush(COLOR_APPWORKSPACE)) &&
         RegisterWindowClass(instance, kChildClass, ChildProcedure, ONDREL_ICON_CHILD, nullptr);
}

}  // namespace ondrel::win32
